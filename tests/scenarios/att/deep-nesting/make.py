n = 200000
with open("deep.lsp", "w") as f:
    f.write("(alias deep (make-av " + "((l " * n + "()" + "))" * n + "))\n")
    f.write("(eval (comp (attvec ((i 1) (v " + "(v " * n + "()" + ")" * n + "))) (attvec2str i) (print-str :suffix \"\\n\")))\n")
with open("packed.dat", "wb") as f:
    body = b"bomb\0" + b"\0\0\1" * 300000
    f.write(len(body).to_bytes(4, "big") + body)
