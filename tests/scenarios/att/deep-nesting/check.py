import sys
lines = open(sys.argv[1] + "/stdout").read().split("\n")
assert lines[:5] == ["((i 1))", "100000", "((v ((i 1))) (i 1))", "(a40)", "lists"], lines[:5]
assert lines[6:] == ["done", ""] and lines[5].count("(v ") + lines[5].count("(w ") < 3000000, lines[6:]
deep = "Attribute vectors are nested too deep"
errors = open(sys.argv[1] + "/stderr").read().split("\n")
# Where frames are large, what is read first nests too deep as well.
assert errors in (["() is used as attribute name."] + [deep] * n + [""] for n in (1, 2)), errors
