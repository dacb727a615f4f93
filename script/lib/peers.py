#!/usr/bin/env python3
"""Times torvane beside other parsers on one text, and prints a table.

usage: peers.py PROGRAM DATA_FOLDER TEXT [RUNS]

Times are processor seconds of the whole process, start included, on one core. CG-3 has no grammar of its own: it gets
the words with the categories that torvane gave them, and the small grammar below.
"""
import os
import pathlib
import subprocess
import sys
import tempfile

GRAMMAR = """DELIMITERS = "<.>" "<!>" "<?>" ;
LIST Noun = NOUN PROPN ; LIST Nominal = NOUN PROPN PRON ; LIST Verb = VERB ; LIST Left = DET ADJ NUM ;
LIST Adp = ADP ; LIST Aux = AUX ; LIST Adv = ADV ; LIST Punct = PUNCT ;
SECTION
MAP (@mod) TARGET Left IF (*1 Noun BARRIER Verb OR Adp) ;
MAP (@case) TARGET Adp ;
MAP (@aux) TARGET Aux ;
MAP (@subj) TARGET Nominal IF (*1 Verb BARRIER Nominal) (NOT *-1 Verb) ;
MAP (@obj) TARGET Nominal IF (*-1 Verb BARRIER Adp) ;
MAP (@advmod) TARGET Adv ;
SETPARENT Left TO (*1 Noun) ;
SETPARENT Adp TO (*1 Nominal) ;
SETPARENT Aux TO (*1 Verb) ;
SETPARENT Nominal + (@subj) TO (*1 Verb) ;
SETPARENT Nominal + (@obj) TO (*-1 Verb) ;
SETPARENT Adv TO (*-1 Verb) ;
SETPARENT Punct TO (*-1 Verb) ;
"""


def run(command, given, to):
    """Processor seconds and peak bytes."""
    with open(given, "rb") as source, open(to, "wb") as out:
        process = subprocess.Popen(command, stdin=source, stdout=out, stderr=subprocess.DEVNULL)
        _, status, usage = os.wait4(process.pid, 0)
    if status:
        sys.exit(f"{command[0]}: status {status}")
    return usage.ru_utime + usage.ru_stime, usage.ru_maxrss * 1024


def cohorts(conllu):
    rows = [line.split("\t") for line in conllu.splitlines() if line[:1].isdigit()]
    return "".join(f'"<{row[1]}>"\n\t"{row[2]}" {row[3]}\n' for row in rows if row[0].isdigit())


def main():
    program, data, text = sys.argv[1:4]
    runs = int(sys.argv[4]) if len(sys.argv) > 4 else 5
    sentences = sum(1 for line in open(text, encoding="utf-8", errors="replace") if line.strip())
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "rules.cg3").write_text(GRAMMAR)
        torvane = [program, "parse", "--from", "lines", "--quiet", "--data", data]
        run(torvane, text, folder / "conllu")
        (folder / "cohorts").write_text(cohorts((folder / "conllu").read_text(errors="replace")))
        peers = {"torvane": (torvane, text),
                 "Link Grammar": (["link-parser", "en", "-verbosity=0"], text),
                 "CG-3": (["vislcg3", "--grammar", folder / "rules.cg3"], folder / "cohorts")}
        best = {}
        for _ in range(runs):
            for name, (command, given) in peers.items():
                seconds, peak = run(command, given, folder / "out")
                before = best.get(name, (seconds, peak))
                best[name] = min(before[0], seconds), min(before[1], peak)
        own = best["torvane"][0]
        print(f"| {sentences:,} sentences | seconds | sentences a second | torvane is so many times as fast | memory |")
        print("|---|---|---|---|---|")
        for name, (seconds, peak) in best.items():
            print(f"| {name} | {seconds:.2f} | {sentences / seconds:,.0f} | {seconds / own:.1f} | {peak / 2**20:.0f} MB |")


if __name__ == "__main__":
    main()
