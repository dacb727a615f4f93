import sys
lines = open(sys.argv[1] + "/stdout").read().split("\n")
assert lines[:5] == ["((i 1))", "100000", "((v ((i 1))) (i 1))", "(a40)", "lists"], lines[:5]
assert lines[6:] == ["done", ""] and lines[5].count("(v ") + lines[5].count("(w ") < 3000000, lines[6:]
errors = open(sys.argv[1] + "/stderr").read().split("\n")
assert errors == ["() is used as attribute name.", "Attribute vectors are nested too deep", ""], errors
