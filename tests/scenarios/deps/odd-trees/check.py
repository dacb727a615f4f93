import pathlib
import sys

lengths = [len(line) for line in pathlib.Path("words.txt").read_text().splitlines()]
if len(lengths) != 12 or max(lengths) != 1023:
    sys.exit(f"words of {lengths} bytes")
written = pathlib.Path("out.txt").read_text()
if written.count("(:id") != 12 or written.count("x" * 100000) < 5:
    sys.exit("not every tree was written")
