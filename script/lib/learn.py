#!/usr/bin/env python3
"""Learns from a corpus, parses it again with the counts, and makes reports of them.

usage: learn.py PROGRAM DATA_FOLDER CORPUS DIR    (script/learn says what comes to lie in DIR)
"""
import os
import subprocess
import sys

from run_folder import quoted

REPORTED_WORDS = 6  # verbs, and as many nouns
# How the pages name the relations between content words, from the head's side and from the modifier's.
READABLE = {
    "V:subj:N": ("whose subject is", "subject of"),
    "V:obj:N": ("whose object is", "object of"),
    "V:iobj:N": ("to whom", "receiver of"),
    "V:mod:Adv": ("done", "how to"),
    "N:mod:A": ("described as", "describing"),
    "N:nn:N": ("with the noun before it", "before the noun"),
    "N:conj:N": ("joined with", "joined to"),
    "P:pcomp:N": ("before", "after the preposition"),
}
PAGE = """<!doctype html>
<meta charset="utf-8">
<title>{title}</title>
<style>body {{ font: 16px/1.5 sans-serif; max-width: 60em; margin: 2em auto; padding: 0 1em; }}
a {{ color: inherit; }} h3 {{ border-bottom: 1px solid #ccc; }}</style>
{body}"""


class Engine:
    """Runs of the program in a folder."""

    def __init__(self, program, folder):
        self.program, self.folder = os.path.abspath(program), folder

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, text):
        with open(self.path(name), "w", encoding="utf-8", errors="surrogateescape") as file:
            file.write(text)

    def run(self, forms):
        """The output of a run, line by line. `forms` is the start-up file."""
        self.write("torvane.lsp", forms)
        process = subprocess.Popen([self.program], cwd=self.folder, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, encoding="utf-8", errors="surrogateescape")
        yield from process.stdout
        if process.wait() not in (0, 1):  # 1 is the normal end
            sys.exit(f"the program ended with {process.returncode}")

    def command(self, *arguments):
        """Runs a command of the command line."""
        if subprocess.run([self.program, *arguments]).returncode != 0:
            sys.exit(f"torvane {arguments[0]} failed")


def read_counts(path):
    """(relation, head, modifier) -> count, of a file of counts."""
    header_lines = 5
    with open(path, encoding="utf-8", errors="surrogateescape", newline="\n") as file:
        rows = [line.rstrip("\n").split("\t") for line in list(file)[header_lines:]]
    return {(relation, head, modifier): int(count) for head, relation, modifier, count in rows}


def frequent_heads(counts, relation):
    """The words that most often head a relation, the most frequent first."""
    totals = {}
    for (name, head, _), count in counts.items():
        if name == relation and head.isalpha():
            totals[head] = totals.get(head, 0) + count
    return sorted(totals, key=lambda word: (-totals[word], word))[:REPORTED_WORDS]


def codes(counts, behind=""):
    """The readable names of all relations, each with `behind` at its end, as an argument."""
    pairs = [f"({quoted(sign + name)} {quoted(text + behind)})"
             for name in sorted({relation for relation, _, _ in counts})
             for sign, text in zip(("", "-"), READABLE.get(name, (name, "-" + name)))]
    return f":codes ({' '.join(pairs)})"


def write_reports(engine, counts):
    os.makedirs(engine.path("report"), exist_ok=True)
    start = "(make-tripledb triples)\n(link-file triples triples.hdr)\n"
    nouns, verbs = frequent_heads(counts, "N:mod:A"), frequent_heads(counts, "V:obj:N")

    def page(name, title, form):
        body = "".join(engine.run(f"{start}{form}\n(exit)\n"))
        engine.write(f"report/{name}", PAGE.format(title=title, body=body))

    engine.write("report/pairs.txt", "".join(engine.run(
        start + "(print-high-mutinfo triples :min-count 3)\n(exit)\n")))
    page("words.html", "Words and what goes with them",
         f"(print-tripledb-entry-in-html triples :url \"<a href=?\" {codes(counts)} "
         f":words ({' '.join(map(quoted, nouns + verbs))}))")
    if len(nouns) > 1:
        page("compare.html", "Two words compared",
             f"(cmp-tripledb-entries triples {quoted(nouns[0])} {quoted(nouns[1])} "
             f"{codes(counts, ': ')})")


def main():
    program, data, corpus, folder = sys.argv[1:5]
    os.makedirs(folder, exist_ok=True)
    engine = Engine(program, folder)
    if os.path.islink(engine.path("data")):
        os.unlink(engine.path("data"))
    os.symlink(os.path.abspath(data), engine.path("data"))
    engine.write("sentense.dat", "\n")
    jobs = str(os.cpu_count() or 1)
    engine.command("learn", "--from", "lines", "--data", data, "-j", jobs, corpus, folder)
    engine.command("parse", "--from", "lines", "--data", data, "-j", jobs, "--style", "grammar", "--to", "deps",
                   "--counts", folder, "-o", engine.path("trees.txt"), corpus)
    counts = read_counts(engine.path("all.counts"))
    write_reports(engine, counts)
    engine.write("torvane.lsp", "(load data/torvane.lsp)\n(make-tripledb triples)\n(link-file triples triples.hdr)\n"
                                "(set-reldb english-parser triples)\n")
    print(f"{sum(counts.values())} dependencies, {len(counts)} different ones")


main()
