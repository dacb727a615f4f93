#!/usr/bin/env python3
"""Builds a store of similar words from a database of triples and asks it about the words that are known best.

usage: similar.py BIN_FOLDER DIR    (script/similar says what comes to lie in DIR)
"""
import os
import re
import subprocess
import sys
import time

HEADER = "words.db 64 {buckets} strcasecmp\n"
OPEN = "(make-simworddb words :db words.hdr :size {size})\n"
COLORS = "(black red blue green purple)"
ATOM = r'"(?:[^"\\]|\\.)*"|[^\s()",;]+'
ENTRY = re.compile(rf"\(({ATOM})")
LIST = re.compile(rf" \(([NVA]) (\S+) \((?:({ATOM}) \S+)?(?: ({ATOM}) \S+)?")
SHOWN = 2  # words a part of speech


def timed(task, command, **options):
    start = time.monotonic()
    if subprocess.run(command, **options).returncode not in (0, 1):  # 1 is the program's normal end
        sys.exit(f"{task}: {command[0]} failed")
    print(f"{task}: {time.monotonic() - start:.1f} s", file=sys.stderr)


def best_known(source):
    """The number of entries, and for each part of speech the words with most information and two neighbours."""
    entries, best = 0, {"N": [], "V": [], "A": []}
    with open(source, encoding="utf-8", errors="surrogateescape") as file:
        for line in file:
            head = ENTRY.match(line)
            if not head:
                continue
            entries += 1
            for pos, information, first, second in LIST.findall(line):
                if first and second:
                    best[pos].append((float(information), head[1], first, second))
                    best[pos] = sorted(best[pos], reverse=True)[:SHOWN]
    return entries, best


def questions(best, size):
    words = " ".join(row[1] for rows in best.values() for row in rows)
    forms = OPEN.format(size=size).replace(")\n", " :max-syns 10)\n")
    forms += f"(simwords words {words})\n"
    for pos, rows in best.items():
        for _, word, first, second in rows:
            forms += f"(echo {pos} {word} {first} {second})\n"
            forms += f"(expand-using-group-sims words {pos} ({word} {first} {second}) :f-threshold 0.1)\n"
    return forms + "(exit)\n", OPEN.format(size=size) + (
        f"(get-grouped-sim-words words :colors {COLORS} :words ({words}))\n(exit)\n")


def main():
    programs, folder = os.path.abspath(sys.argv[1]), sys.argv[2]
    place = os.path.join(folder, "similar")
    os.makedirs(place, exist_ok=True)

    def path(name):
        return os.path.join(place, name)

    def write(name, text):
        with open(path(name), "w", encoding="utf-8", errors="surrogateescape") as file:
            file.write(text)

    def run(task, forms, **options):
        write("torvane.lsp", forms)
        timed(task, [os.path.join(programs, "torvane")], cwd=place, stdin=subprocess.DEVNULL, **options)

    for stale in ("words.db", "words.db-journal"):
        if os.path.exists(path(stale)):
            os.unlink(path(stale))
    timed("comparing words", [os.path.join(programs, "torvane"), "similar", "-j", str(os.cpu_count() or 1), "--quiet",
                              "-o", path("words.src"), folder])
    entries, best = best_known(path("words.src"))
    size = max(1997, entries)
    write("sentense.dat", "\n")
    write("words.hdr", HEADER.format(buckets=size))
    run("making the store", OPEN.format(size=size).replace(":db", ":src words.src :access rw :db") + "(exit)\n")
    shown, page = questions(best, size)
    with open(path("words.html"), "w", encoding="utf-8", errors="surrogateescape") as out:
        run("writing the page", page, stdout=out)
    run("asking", shown)


main()
