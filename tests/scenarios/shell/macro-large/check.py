import sys
lines = open(sys.argv[1] + "/stdout").read().split("\n")
words = " ".join(f"w{i}" for i in range(100000))
assert lines == [words + " end", words, "0 1999", ""], [line[:100] for line in lines]
