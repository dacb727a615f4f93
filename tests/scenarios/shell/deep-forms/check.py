import sys
lines = open(sys.argv[1] + "/stderr").read().split("\n")
deep = 1000000
assert lines[0] == "unknown function nosuch"
assert lines[1] == "(" * deep + "x" + ")" * deep
assert lines[2] == "unknown function nosuch"
assert lines[3] == "(" * deep + ")" * deep
assert "eval: the name of a command is nested too deeply" in lines[4:]
