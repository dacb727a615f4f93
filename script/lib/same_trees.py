#!/usr/bin/env python3
"""Compares what two programs print of the same sentences, byte by byte.

usage: same_trees.py DATA_FOLDER OLD NEW [TEXT...]    (script/same-trees says what is compared)
"""
import os
import re
import sys

import debian_text
from run_folder import RunFolder

WANTED = 10000  # sentences
RUN = 500  # of them in one run
WITH_ITEMS = 10  # of one sentence in so many the items too
SHOWN = 5
FOLDERS = ["/usr/share/common-licenses", "/usr/share/doc", "/usr/share/man/man1", "/usr/share/man/man3",
           "/usr/share/man/man5", "/usr/share/man/man7", "/usr/share/man/man8", "/usr/share/perl"]
NAMES = re.compile(r"(README|NEWS|FAQ|INSTALL|HOWTO)[^/]*$|\.(txt|pod|[1-8])(\.gz)?$|/common-licenses/")
MARK = "-- sentence %d --"
MARKS = re.compile(rb"-- sentence (\d+) --")


def text_files():
    for folder in FOLDERS:
        for path, folders, names in os.walk(folder):
            folders.sort()
            for name in sorted(names):
                file = os.path.join(path, name)
                if NAMES.search(file) and os.path.isfile(file):
                    yield file


def gathered(paths):
    """Different sentences, evenly from all that the files hold; and of how many files how many there were."""
    found, files = {}, 0
    for path in paths:
        files += 1
        found.update(dict.fromkeys(debian_text.sentences_of(path)))
    found = list(found)
    step = max(1.0, len(found) / WANTED)
    return [found[int(i * step)] for i in range(min(WANTED, len(found)))], files, len(found)


def printed(output):
    """What was printed of each sentence, by its number; under -1 how the output ends."""
    parts = MARKS.split(output)
    return {**{int(number): part for part, number in zip(parts[0::2], parts[1::2])}, -1: parts[-1]}


def differing(data, programs, sentences, behind):
    """The sentences of which the two print different bytes."""
    for start in range(0, len(sentences), RUN):
        part = sentences[start:start + RUN]
        with RunFolder(data, part, lambda i: f'{behind}(echo "{MARK % i}")') as folder:
            old, new = (printed(folder.output(program)) for program in programs)
        if len(old) != len(part) + 1:
            sys.exit(f"{programs[0]} got through {len(old) - 1} sentences of {len(part)}: {old[-1][-200:]!r}")
        for i, sentence in enumerate(part):
            if old[i] != new.get(i):
                yield sentence
        if old[-1] != new[-1]:
            yield "(the end of a run)"


def main():
    data, old, new = (os.path.abspath(path) for path in sys.argv[1:4])
    paths = sys.argv[4:] or list(text_files())
    sentences, files, all_of_them = gathered(paths)
    if not sentences:
        sys.exit("no sentence found")
    print(f"{len(sentences)} of {all_of_them} sentences in {files} files"
          + ("" if sys.argv[4:] else ", below " + " ".join(FOLDERS)))
    bad = []
    for what, part, behind in [("trees", sentences, ""), ("trees and items", sentences[::WITH_ITEMS], "(pn)")]:
        different = list(differing(data, [old, new], part, behind))
        print(f"{what}: {len(part)} sentences compared, {len(different)} differ")
        bad += different
    for sentence in bad[:SHOWN]:
        print("  " + sentence)
    sys.exit(1 if bad else 0)


main()
