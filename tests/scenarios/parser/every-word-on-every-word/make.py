with open("long.lsp", "w") as out:
    out.write("(output-tree 1) (p" + " boy" * 1000 + ") (output-tree 0)")
