for name, words in (("long", " big boy" * 2500), ("every-word-on-every-word", " boy" * 1000)):
    with open(name + ".lsp", "w") as out:
        out.write("(output-tree 1) (p" + words + ") (output-tree 0)")
