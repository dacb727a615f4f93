"""Each tree of first.txt as a form that reads it out of a string."""
import pathlib

trees = pathlib.Path("first.txt").read_text().split("\n)\n")[:-1]
with open("strings.lsp", "w") as forms:
    for tree in trees:
        text = (tree + "\n)\n").replace("\\", "\\\\").replace('"', '\\"')
        forms.write(f'(eval (comp (str "{text}") (str2deps) (save-deps (att-set syn (cat vform agr)) (output strings.txt))))\n')
