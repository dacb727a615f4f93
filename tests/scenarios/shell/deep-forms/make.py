deep = 1000000
open("balanced.lsp", "w").write("(nosuch " + "(" * deep + "x" + ")" * deep + ")")
open("open.lsp", "w").write("(nosuch" + "(" * deep)
open("heads.lsp", "w").write("(" * deep + "x" + ")" * deep)
open("closed.lsp", "w").write(")" * deep)
