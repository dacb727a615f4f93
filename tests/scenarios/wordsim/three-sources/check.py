import sys

dicts, source, store = open(sys.argv[1] + "/stdout").read().replace("== store\n", "== source\n").split("== source\n")
assert dicts == source == store
