def nested(depth, open, inner, close):
    return open * depth + inner + close * depth
with open("torvane.lsp", "w") as out:
    out.write("(eval " + nested(100000, "(not ", "(t)", ")") + ")\n(echo on)\n")
    out.write("(foreach (w) :eval (comp " + nested(490, "(prog ", "(str ok)", ")") + ' (print-str :suffix "\\n")))\n')
    out.write("(defun deep () " + nested(5000, "(let (x) ", "(deep)", ")") + ")\n(eval (deep))\n")
    out.write("(exit)\n")
