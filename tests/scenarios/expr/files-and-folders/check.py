import os, sys
def content(name):
    return open(name).read()
wanted = {"out/deep/a b.txt": "out/deep/a b.txt\n", "whole.txt": "shorter", "closed.txt": "kept"}
for name, text in wanted.items():
    if content(name) != text:
        sys.exit(f"{name} holds {content(name)!r}")
if os.path.exists("untouched.txt"):
    sys.exit("an input of nothing made a file")
