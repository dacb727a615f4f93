#!/usr/bin/env python3
"""Parses a corpus, counts what depends on what, makes a database of the counts, and parses again with it.

usage: learn.py PROGRAM DATA_FOLDER CORPUS DIR    (script/learn says what comes to lie in DIR)
"""
import os
import subprocess
import sys
import time

from run_folder import quoted

HEADER = "triples.db 64 20011 strcasecmp\n"
# Printed after each sentence, so that the progress can be told from the output.
MARK = "-- next --"
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


class Progress:
    """Sentences done, rate and time left, on the error stream if that is a terminal."""

    def __init__(self, task, total):
        self.task, self.total, self.done = task, total, 0
        self.start = self.shown = time.monotonic()
        self.live = sys.stderr.isatty()

    def step(self):
        self.done += 1
        now = time.monotonic()
        if self.live and now - self.shown > 0.2:
            self.shown = now
            rate = self.done / (now - self.start)
            left = (self.total - self.done) / rate
            print(f"\r{self.task}: {self.done} of {self.total} sentences, {rate:.0f} a second, "
                  f"{left:.0f} s left \033[K", end="", file=sys.stderr, flush=True)

    def close(self):
        seconds = time.monotonic() - self.start
        clear = "\r\033[K" if self.live else ""
        print(f"{clear}{self.task}: {self.done} sentences in {seconds:.1f} s", file=sys.stderr)


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

    def parse_all(self, task, sentences, forms):
        """The output of parsing all sentences, without the marks."""
        progress = Progress(task, len(sentences))
        for line in self.run(forms + "(load sentences.lsp)\n(exit)\n"):
            if line.startswith(MARK):
                progress.step()
            else:
                yield line
        progress.close()


def counted(rows):
    """(relation, head, modifier) -> count. The database knows no case, so words are counted without it."""
    counts = {}
    for row in rows:
        relation, head, modifier = row.split("\t")
        key = relation, head.lower(), modifier.lower()
        counts[key] = counts.get(key, 0) + 1
    return counts


def write_dump(engine, counts):
    """The two files that populate-tripledb reads, sorted as it wants them."""
    details, relations = [], {}

    def add(word, relation, other, count):
        key = f"{word}\t{relation}\t{other}"
        relations[key] = relations.get(key, 0) + count

    for (relation, head, modifier), count in counts.items():
        details.append(f"{head}\t{relation}\t{modifier}\t{count}")
        details.append(f"{modifier}\t-{relation}\t{head}\t{count}")
        add(head, " ", "freq", count)
        add(head, relation, " ", count)
        add(modifier, " ", "invFreq", count)
        add(modifier, "-" + relation, " ", count)
        add(relation, " ", "freq", count)
    rows = [f"{key}\t{count}" for key, count in relations.items()]
    engine.write("deps.txt", "".join(line + "\n" for line in sorted(details)))
    engine.write("rels.txt", "".join(line + "\n" for line in sorted(rows)))


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
    with open(corpus, encoding="utf-8", errors="surrogateescape") as file:
        sentences = [line.strip() for line in file if line.strip()]
    os.makedirs(folder, exist_ok=True)
    engine = Engine(program, folder)
    if os.path.islink(engine.path("data")):
        os.unlink(engine.path("data"))
    os.symlink(os.path.abspath(data), engine.path("data"))
    for stale in ("triples.db", "triples.db-journal"):
        if os.path.exists(engine.path(stale)):
            os.unlink(engine.path(stale))
    engine.write("sentense.dat", "\n")
    engine.write("triples.hdr", HEADER)
    engine.write("sentences.lsp", "".join(f"(p3 {quoted(s)})\n(echo {quoted(MARK)})\n" for s in sentences))

    grammar = "(load data/torvane.lsp)\n"
    rows = [line.rstrip("\n") for line in
            engine.parse_all("reading", sentences,
                             grammar + "(load english/triples.lsp)\n(set-deps-modifier english-parser parser-triples)\n")
            if line.count("\t") == 2]
    engine.write("rows.txt", "".join(row + "\n" for row in rows))
    counts = counted(rows)
    write_dump(engine, counts)
    print(f"making the database of {len(counts)} different dependencies; words passed by:", file=sys.stderr)
    for _ in engine.run("(make-tripledb triples)\n(link-file triples triples.hdr rw)\n"
                        "(populate-tripledb triples rels.txt deps.txt)\n(exit)\n"):
        pass
    with_counts = grammar + "(make-tripledb triples)\n(link-file triples triples.hdr)\n(set-reldb english-parser triples)\n"
    engine.write("trees.txt", "".join(engine.parse_all("parsing with counts", sentences, with_counts)))
    write_reports(engine, counts)
    engine.write("torvane.lsp", with_counts)
    print(f"{len(rows)} dependencies, {len(counts)} different ones")


main()
