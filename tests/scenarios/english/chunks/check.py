"""The lines of chunks, which stand between the trees that p3 prints."""
import sys

lines = [line for line in open(sys.argv[1] + "/stdout") if line.startswith("[")]
assert lines == list(open("chunks.txt")), "".join(lines)
