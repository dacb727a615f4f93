import sys
# Every message, those that repeat as well.
assert open(sys.argv[1] + "/stderr", "rb").read().count(b"\n") == 78
