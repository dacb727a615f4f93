import pathlib
words = [f"u{i}" for i in range(1, 5000)] + ["end"]
pathlib.Path("sentence.lsp").write_text("(p2 " + " ".join(words) + ")\n")
