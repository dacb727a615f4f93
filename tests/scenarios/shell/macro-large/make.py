words = " ".join(f"w{i}" for i in range(100000))
open("big.lsp", "w").write(
    "(defmacro big (x) (echo " + "(" * 1000 + ")" * 1000 + words + " x))\n"
    "(big end) (big (" + words + "))"
    "(defmacro many (" + " ".join(f"p{i}" for i in range(2000)) + ") (echo p0 p1999))\n"
    "(many " + " ".join(str(i) for i in range(2000)) + ")")
