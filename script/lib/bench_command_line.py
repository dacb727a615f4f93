#!/usr/bin/env python3
"""What the command line costs as a whole process: sentences a second, a second thread, a million lines, the first answer.

usage: bench_command_line.py PROGRAM [TEXT]

TEXT holds a sentence a line, of which those of 4 to 20 words count, 400 at most; without it sentences are made up.
"""
import os
import random
import subprocess
import sys
import tempfile
import time

RUNS = 5
MANY = 20000
MOST = 400
SUBJECTS = ("the old teacher", "she", "my brother", "a girl with a red hat", "nobody", "the people in the house",
            "Anna", "the dogs of the farmer", "his first letter", "they")
VERBS = ("saw {o}", "gave {o} to {s}", "slept", "wanted to buy {o}", "said that {s} had found {o}",
         "sold {o} because {s} needed money", "walked {p}", "was looking for {o}", "thinks that {s} can read {o}",
         "did not know where {s} had put {o}")
OBJECTS = ("the book", "an old car", "some apples", "the house that {s} built", "three small birds", "it",
           "the picture of {s}", "a long story about {s}")
PLACES = ("in the garden", "to the station", "after dinner", "with a friend", "on Monday morning", "near the river")


def made_up(count):
    """Sentences of 4 to 20 words, the same ones each time."""
    choose = random.Random(1).choice

    def fill(text):
        for mark, texts in (("{o}", OBJECTS), ("{s}", SUBJECTS), ("{p}", PLACES)):
            while mark in text:
                text = text.replace(mark, choose(texts), 1)
        return text

    found = []
    while len(found) < count:
        text = fill(fill(choose(("{s} ", "{p} {s} ")) + choose(VERBS) + choose(("", " {p}", " {p} {p}"))))
        if 4 <= len(text.split()) <= 20:
            found.append(text[0].upper() + text[1:] + ".")
    return found


def run(program, path, *options):
    """Seconds by the clock, seconds of processor, peak bytes of one run over a file."""
    start = time.monotonic()
    child = subprocess.Popen([program, "parse", "--quiet", "--from", "lines", *options, path], stdout=subprocess.DEVNULL)
    _, status, usage = os.wait4(child.pid, 0)
    if status:
        sys.exit(f"{program} ended with {status}")
    return time.monotonic() - start, usage.ru_utime + usage.ru_stime, usage.ru_maxrss * 1024


def first_answer(program):
    """From the start of the process to the first line of the first tree."""
    start = time.monotonic()
    with subprocess.Popen([program, "parse", "--quiet", "--from", "lines"], stdin=subprocess.PIPE,
                          stdout=subprocess.PIPE) as child:
        child.stdin.write(b"Dogs bark.\n")
        child.stdin.flush()
        child.stdout.readline()
        took = time.monotonic() - start
        child.stdin.close()
    return took


def lines_through_a_pipe(program, count):
    """Seconds of processor and peak bytes for short lines, none of which is kept."""
    child = subprocess.Popen([program, "parse", "--quiet", "--from", "lines"], stdin=subprocess.PIPE,
                             stdout=subprocess.DEVNULL)
    for _ in range(count // 1000):
        child.stdin.write(b"Dogs bark.\nShe sleeps.\nThe cat saw him.\nIt rained.\nWho left?\n" * 200)
    child.stdin.close()
    _, _, usage = os.wait4(child.pid, 0)
    return usage.ru_utime + usage.ru_stime, usage.ru_maxrss * 1024


def table(program, text=None):
    """Rows of name, figure and note."""
    if text:
        with open(text, encoding="utf-8") as file:
            sentences = [line.strip() for line in file if 4 <= len(line.split()) <= 20][:MOST]
    else:
        sentences = made_up(MOST)
    with tempfile.TemporaryDirectory() as folder:
        few, many = (os.path.join(folder, name) for name in ("few", "many"))
        for path, count in ((few, len(sentences)), (many, MANY)):
            with open(path, "w", encoding="utf-8") as file:
                file.writelines(sentences[i % len(sentences)] + "\n" for i in range(count))
        clock, processor, _ = (min(row) for row in zip(*(run(program, few) for _ in range(RUNS))))
        one, two = ([run(program, many, "-j", jobs) for _ in range(2)] for jobs in "12")
    one, two = min(one), min(two)
    rows = [("sentences of 4 to 20 words", f"{len(sentences) / clock:,.0f} /s",
             f"whole process, {len(sentences)} of them; {len(sentences) / processor:,.0f} /s by processor time (wanted: 2,000)"),
            ("-j 2", f"{one[0] / two[0]:.2f} x",
             f"one core, {MANY:,} sentences (wanted: 1.8); {two[1] / one[1]:.2f} times its processor time")]
    seconds, small = lines_through_a_pipe(program, 10000)
    seconds, peak = lines_through_a_pipe(program, 1000000)
    rows.append(("1,000,000 lines", f"{seconds:.0f} s", f"peak {peak / 1e6:.1f} MB; of 10,000 lines {small / 1e6:.1f} MB"))
    rows.append(("first answer", f"{min(first_answer(program) for _ in range(21)) * 1e3:.0f} ms", "wanted: below 30 ms"))
    return rows


if __name__ == "__main__":
    for row in table(*sys.argv[1:3]):
        print("{:27} {:>9}  {}".format(*row))
