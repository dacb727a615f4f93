#!/usr/bin/env python3
"""A corpus is learned from by the script that does it; then a phrase goes where the corpus has it.

usage: learned_attachment.py PROGRAM DATA_FOLDER LEARN_PY
"""
import os
import pathlib
import subprocess
import sys
import tempfile

CORPUS = ["She painted with a brush."] * 60 + ["The girl with a hat slept.", "He saw the wall.", "Dogs sleep."] * 200
SENTENCE = "He painted the wall with a brush.\n"


def head_of(program, folder, word):
    pathlib.Path(folder, "sentense.dat").write_text(SENTENCE)
    tree = subprocess.run([program], cwd=folder, capture_output=True, text=True).stdout
    lines = [line.split("\t") for line in tree.splitlines() if line.count("\t") == 3]
    label, = [fields[3][:-1] for fields in lines if fields[1] == "(" + word]
    return next(fields[1][1:] for fields in lines if fields[0] == label)


def main():
    program, data, script = map(os.path.abspath, sys.argv[1:4])
    with tempfile.TemporaryDirectory() as top:
        plain, learned = os.path.join(top, "plain"), os.path.join(top, "learned")
        corpus = os.path.join(top, "corpus.txt")
        pathlib.Path(corpus).write_text("\n".join(CORPUS))
        os.mkdir(plain)
        os.symlink(data, os.path.join(plain, "data"))
        for _ in range(2):  # a second run takes the place of the first
            done = subprocess.run([sys.executable, script, program, data, corpus, learned],
                                  check=True, capture_output=True, text=True)
        heads = head_of(program, plain, "with"), head_of(program, learned, "with")
        assert "2040 dependencies, 13 different" in done.stdout, done.stdout
        assert "<h3>see</h3>" in pathlib.Path(learned, "report", "words.html").read_text()
    assert heads == ("wall", "painted"), heads


main()
