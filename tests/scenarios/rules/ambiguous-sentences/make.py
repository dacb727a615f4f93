import pathlib
items = " ".join(["(lexitem (t))"] * 25)
start_up = pathlib.Path("torvane.lsp")
start_up.write_text(start_up.read_text().replace("(load-of-items)", items))
words = [f"w{i}" for i in range(40)]
senses = " ".join(f"(avm ((cat {c})))" for c in "acdijnpv")
pathlib.Path("words.lsp").write_text("(lex L\n" + "\n".join(f"({w} {senses})" for w in words) + ")\n")
pathlib.Path("sentence.lsp").write_text("(p3 \"" + " ".join(words) + "\")\n")
