import pathlib
import re
import sys


def trees(name):
    text = pathlib.Path(name).read_text()
    return re.sub(" ;;total-weight [^\n]*", "", text).split("\n)\n")


first, second, strings = map(trees, ("first.txt", "second.txt", "strings.txt"))
if len(first) < 100 or min(map(len, first[:-1])) < 40:
    sys.exit(f"only {len(first)} trees, or empty ones")
for number, (tree, from_file, from_string) in enumerate(zip(first, second, strings)):
    if not tree == from_file == from_string:
        sys.exit(f"tree {number} is\n{tree}\nread from the file\n{from_file}\nand from a string\n{from_string}")
if not len(first) == len(second) == len(strings):
    sys.exit(f"{len(first)} trees, {len(second)} from the file, {len(strings)} from strings")
