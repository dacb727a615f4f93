open("lex.dat", "w").write("".join(f"(w{i} (g {i}))\n" for i in range(20000)))
open("lex.hdr", "w").write("lex.dat 9973 lex.idx ( )")
open("long.dat", "w").write("(" + "k" * 100000 + "(g " + "x" * 1000000 + "))(z)")
open("long.hdr", "w").write("long.dat 1 long.idx ( )")
