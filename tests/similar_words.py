#!/usr/bin/env python3
"""Counts become similar words: a small database of triples, the script that compares its words, its answers.

usage: similar_words.py PROGRAM_FOLDER SIMILAR_PY
"""
import collections
import os
import pathlib
import re
import subprocess
import sys
import tempfile

KINDS = {"drink": ("tea", "coffee", "orange juice"), "drive": ("car", "truck", "bus"), "read": ("book", "page", "letter")}
VERBS = {"drink": ("drink", "brew", "spill"), "drive": ("drive", "park", "wash"), "read": ("read", "write", "tear")}
ATOM = re.compile(r'"([^"]*)"|([A-Za-z]+)')


def triples():
    for kind, nouns in KINDS.items():
        for noun in nouns:
            for verb in VERBS[kind]:
                yield verb, "v:obj:n", noun
            yield noun, "n:mod:a", "new"  # goes with all: tells little
            yield noun, "n:det:det", "the"


def write_counts(folder, count=10):
    details, relations = [], collections.Counter()
    for head, relation, other in triples():
        details += [f"{head}\t{relation}\t{other}\t{count}", f"{other}\t-{relation}\t{head}\t{count}"]
        for key in (f"{head}\t \tfreq", f"{head}\t{relation}\t ", f"{other}\t \tinvFreq", f"{other}\t-{relation}\t ",
                    f"{relation}\t \tfreq"):
            relations[key] += count
    for name, lines in (("deps.txt", details), ("rels.txt", [f"{key}\t{n}" for key, n in relations.items()])):
        pathlib.Path(folder, name).write_text("".join(line + "\n" for line in sorted(lines)))


def main():
    programs, script = map(os.path.abspath, sys.argv[1:3])
    with tempfile.TemporaryDirectory() as folder:
        write_counts(folder)
        for name, text in (("sentense.dat", "\n"), ("triples.hdr", "triples.db 64 11 strcasecmp\n"), (
                "torvane.lsp", "(make-tripledb t)\n(link-file t triples.hdr rw)\n(populate-tripledb t rels.txt deps.txt)\n"
                               "(exit)\n")):
            pathlib.Path(folder, name).write_text(text)
        subprocess.run([os.path.join(programs, "torvane")], cwd=folder, check=True, stderr=subprocess.DEVNULL)
        for _ in range(2):  # a second run takes the place of the first
            answers = subprocess.run([sys.executable, script, programs, folder], check=True, text=True,
                                     stdout=subprocess.PIPE).stdout
        rows = map(ATOM.findall, pathlib.Path(folder, "similar", "words.src").read_text().splitlines())
        lists = {quoted or plain: [q or p for q, p in rest] for (quoted, plain), *rest in rows}
        page = pathlib.Path(folder, "similar", "words.html").read_text()
    for kind, nouns in KINDS.items():
        for words, pos in ((nouns, "N"), (VERBS[kind], "V")):
            for word in words:
                first, *alike = lists[word]
                assert first == pos and set(alike[:2]) == set(words) - {word}, (word, lists[word])
    assert "the" not in lists and "(N " in answers and "(V " in answers, answers
    assert "<h3>" in page


main()
