import sys

errors = open(sys.argv[1] + "/stderr").read().split("\n")
assert errors[0] == "expecting an atom. This is found instead:" and errors[1].startswith("(((((") and len(errors) == 4
assert errors[2] == "The phrase of 'a' has more than 255 words", errors[2]
