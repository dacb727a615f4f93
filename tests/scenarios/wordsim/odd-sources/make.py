# Inputs that are too long to be kept: one list of 200,000 ascending pairs, lists in lists, a word of 300 bytes.
LONG = "x" * 300
with open("long.src", "w") as out:
    out.write("(wide (N 1 (" + " ".join(f"w{i} {i}" for i in range(200000)) + ") (w7 0 w8 0)))\n")
    out.write("(deep (N 1 " + "(" * 50000 + "a 1" + ")" * 50000 + "))\n")
    out.write(f"({LONG} (N 1 (y 1)))\n")
with open("noun.dic", "w") as out:
    out.write(f'(dog (desc 1) (sims {LONG}\t0.5\t"{LONG}"\t{"1" * 300}\tcat\t0.2))\n')
    out.write("(endless (sims " + "\t".join(f"w{i}\t.5" for i in range(200000)) + "))\n")
    out.write("(none)\n(bare (desc 2))\n(open (sims a\t1 \"b\t2))\n(odd (sims a\t\tb\t3\tc))\n(nosims (x a\t1))\n")
    out.write('(two (desc 1.5)\n (sims a\t1\nb\t2))\n(minus (sims -a\t-1e-2\t(b)\t3))\n')
open("noun.hdr", "w").write("noun.dic 11 noun.idx ( )\n")
