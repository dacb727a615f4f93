import random

random.seed(1)
open("binary.lex", "wb").write(bytes(random.randrange(256) for _ in range(20000)))
open("deep.lex", "w").write("(deep " + "(" * 100000 + ")" * 100001 + "(d (g " + "(" * 100000)
key = "k" * 100000
open("long.lex", "w").write(f"({key} (g {'x' * 200000}))({key} up (g y))" + "(" + "a " * 300 + "(g too-long))")
open("many.lex", "w").write("(many " + "(g x)" * 2000 + ")")
open("heads.lex", "w").write("".join(f"(go x{i} (g p))" for i in range(30000)))
open("sentence.lsp", "w").write("(parse" + " whole" * 5000 + ") (parse" + " go x17" * 2000 + f") (parse {key} {key} up many)")
