import pathlib
import re


def trees(name):
    return re.sub(" ;;total-weight [^\n]*", "", pathlib.Path(name).read_text()).split("\n)\n")


first, second, strings = map(trees, ("first.txt", "second.txt", "strings.txt"))
assert len(first) >= 100 and min(map(len, first[:-1])) >= 40, "too few trees, or empty ones"
for number, (tree, from_file, from_string) in enumerate(zip(first, second, strings)):
    assert tree == from_file == from_string, f"{number}: {tree}\n{from_file}\n{from_string}"
assert len(first) == len(second) == len(strings)
