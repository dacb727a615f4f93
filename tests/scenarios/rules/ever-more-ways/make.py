import pathlib

words = [f"w{i}" for i in range(40)]
senses = " ".join(f"(avm ((cat {c})))" for c in "acdijnpv")
pathlib.Path("sentence.lsp").write_text("(lex L\n" + "\n".join(f"({w} {senses})" for w in words) + ")\n"
                                        '(sentence "forty words:" "' + " ".join(words) + '")\n')
