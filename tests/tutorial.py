#!/usr/bin/env python3
"""Runs every step of a page such as docs/grammar.md and compares the trees that it shows.

usage: tutorial.py PROGRAM PAGE [--write]

A block headed "lisp NAME" is a file. A block headed "tree NAME: SENTENCE" is what the program prints for
the sentence when it loads that file, without the outer parentheses; "output NAME" is all that it prints.
--write puts what it prints into the page.
"""
import pathlib
import re
import subprocess
import sys
import tempfile

BLOCK = re.compile(r"^```(lisp|tree|output) ([^\n]*)\n(.*?)^```$", re.M | re.S)


def run(program, folder, name, sentence):
    (folder / "torvane.lsp").write_text(f"(load {name})\n")
    (folder / "sentense.dat").write_text(sentence + "\n")
    done = subprocess.run([program], cwd=folder, capture_output=True, text=True, timeout=60)
    return done.stdout, done.stderr


def main():
    program, page = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2])
    text = page.read_text()
    faults = 0
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "data").symlink_to((page.resolve().parent.parent / "data"))
        for kind, head, body in BLOCK.findall(text):
            if kind == "lisp":
                (folder / head).write_text(body)
                continue
            file, _, sentence = head.partition(": ")
            printed, errors = run(program, folder, file, sentence)
            if kind == "tree":
                printed = printed.removeprefix("(\n").removesuffix(")\n")
            if errors or printed != body:
                faults += 1
                print(f"{head}\n{printed}{errors}")
            if "--write" in sys.argv:
                text = text.replace(f"```{kind} {head}\n{body}```", f"```{kind} {head}\n{printed}```")
    if "--write" in sys.argv:
        page.write_text(text)
    print(f"{faults} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
