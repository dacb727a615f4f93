with open("long.lsp", "w") as out:
    out.write("(output-tree 1) (p" + " big boy" * 2500 + ") (output-tree 0)")
