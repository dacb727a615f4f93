import sys

assert open(sys.argv[1] + "/stderr").read() == "format error in data\n" * 17
