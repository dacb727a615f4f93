n = 200000
with open("deep.lsp", "w") as f:
    f.write("(alias deep (make-av " + "((l " * n + "()" + "))" * n + "))\n")
    f.write("(eval (comp (attvec ((i 1) (v " + "(v " * n + "()" + ")" * n + "))) (attvec2str i) (print-str :suffix \"\\n\")))\n")
with open("packed.dat", "wb") as f:
    body = b"bomb\0" + b"\0\0\1" * 300000
    f.write(len(body).to_bytes(4, "big") + body)
with open("tower.lsp", "w") as f:
    f.write("(alias a0 ((i 1))) (alias b0 ((i 1)))\n")
    for i in range(40):
        f.write("(alias a{1} ((v a{0}) (w a{0}) (v a{0}) (w a{0})))\n"
                "(alias b{1} ((l (b{0}) (b{0})) (l (b{0}) (b{0})) (s (b{0})) (s (b{0}) (b{0}))))\n".format(i, i + 1))
