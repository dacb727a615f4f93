import sys
# Every line, those that repeat as well.
assert open(sys.argv[1] + "/stdout", "rb").read().count(b"\n") == 267
