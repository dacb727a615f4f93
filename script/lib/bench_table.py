#!/usr/bin/env python3
"""Prints what the benchmarks reach as one table, and what a whole run of the program costs.

usage: bench_table.py BENCH_PROGRAM STORE_BENCH_PROGRAM STEP_COUNTS_PROGRAM PROGRAM DATA_FOLDER
                      [--against OLD_PROGRAM | options of the benchmark programs]

A row with a peer (NAME_own/..., beside it NAME_std/..., NAME_peer/... or one under the name of a library) gives the
ratio of the two, measured in one run. Wanted figures stand in the last column where there are any. With --against,
what text costs two programs that are run in turn, and nothing else.
"""
import json
import os
import pathlib
import re
import resource
import subprocess
import sys
import tempfile

import bench_command_line
import bench_text

RUNS = 9
PEERS = ["std", "peer", "gdbm", "lmdb"]


def benchmarks(program, options):
    with tempfile.NamedTemporaryFile() as report:
        command = [program, f"--benchmark_out={report.name}", "--benchmark_out_format=json",
                   "--benchmark_min_time=0.2", *options]
        subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True)
        text = report.read()  # nothing if the filter leaves nothing to run
        return json.loads(text)["benchmarks"] if text else []


def scaled(value, units):
    for unit, size in units:
        if value >= size:
            return f"{value / size:.3g} {unit}"
    return f"{value:.3g} {units[-1][0]}"


def time_of(row):
    """Processor time; on the clock where the row says so, since a disk is not waited for by the processor."""
    return row["real_time" if row["name"].endswith("/real_time") else "cpu_time"]


def time_text(row):
    nanoseconds = time_of(row) * {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}[row["time_unit"]]
    return scaled(nanoseconds, [("s", 1e9), ("ms", 1e6), ("us", 1e3), ("ns", 1)])


def short_name(row):
    return row["name"].removesuffix("/real_time").removesuffix("/iterations:1")


def note(row, peers):
    notes = []
    if "bytes_per_second" in row:
        notes.append(f"{row['bytes_per_second'] / 1e6:.0f} MB/s")
    if "items_per_second" in row:
        notes.append(scaled(row["items_per_second"], [("M/s", 1e6), ("k/s", 1e3), ("/s", 1)]))
    if "ns_per_node" in row:
        notes.append(f"{row['ns_per_node']:.2g} ns a node")
    if "allocations" in row:
        wanted = " (wanted: 0)" if row["name"].startswith("parsing_loop") else ""
        notes.append(f"{row['allocations']:g} allocations{wanted}")
    if "bytes_per_record" in row:
        notes.append(f"{row['bytes_per_record']:.0f} bytes a record")
    for peer in peers.get(row["name"], []):
        notes.append(f"{time_of(peer) / time_of(row):.1f} times as fast as {short_name(peer)}")
    return ", ".join(notes)


def whole_run(program, data):
    """Processor seconds and peak bytes of one run with the shipped grammar: the medians of some runs."""
    times, peaks = [], []
    with tempfile.TemporaryDirectory() as folder:
        with open(os.path.join(folder, "sentense.dat"), "w") as file:
            file.write("The cat sat on the mat.\n")
        os.symlink(os.path.abspath(data), os.path.join(folder, "data"))
        for _ in range(RUNS):
            process = subprocess.Popen([program], cwd=folder, stdout=subprocess.DEVNULL,
                                       stderr=subprocess.DEVNULL)
            _, _, usage = os.wait4(process.pid, 0)
            times.append(usage.ru_utime + usage.ru_stime)
            peaks.append(usage.ru_maxrss * 1024)
    return sorted(times)[RUNS // 2], sorted(peaks)[RUNS // 2]


def print_table(table):
    width = max(len(name) for name, _, _ in table)
    for name, time, notes in table:
        print(f"{name:{width}}  {time:>9}  {notes}".rstrip())


def compare(old, new, data):
    print_table([(name, f"{before:.3g} ms", f"now {after:.3g} ms, {before / after:.2f} times as fast")
                 for name, (before, after), _ in bench_text.rows([old, new], data)])


PYTHON_LOOP = """
import sys, torvane
nlp = torvane.load("english", data=sys.argv[1])
for line in sys.stdin:
    sys.stdout.write(nlp(line, "lines").to_conllu())
"""


def python_run(program, data):
    """Processor times of the command line and of a loop in Python over the same sentences; None without the module."""
    build = pathlib.Path(program).parent.parent
    cache = (build / "CMakeCache.txt").read_text()
    interpreter = re.search("^TORVANE_PYTHON_PROGRAM:FILEPATH=(.*)", cache, re.M)
    if not interpreter or not list(build.glob("python/torvane/_torvane*.so")):
        return None
    listed = pathlib.Path(data).parent / "tests/english/sentences.tsv"
    lines = [line.split("\t")[0] for line in listed.read_text().splitlines() if line and not line.startswith("#")]
    text = ("\n".join(lines * (2000 // len(lines) + 1)) + "\n").encode()
    commands = [[program, "parse", "--quiet", "--from", "lines", "--data", data],
                [interpreter[1], "-c", PYTHON_LOOP, data]]
    best = [None, None]
    for _ in range(RUNS):
        for i, command in enumerate(commands):
            before = resource.getrusage(resource.RUSAGE_CHILDREN)
            subprocess.run(command, input=text, stdout=subprocess.DEVNULL, check=True,
                           env={**os.environ, "PYTHONPATH": str(build / "python")})
            after = resource.getrusage(resource.RUSAGE_CHILDREN)
            took = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
            best[i] = min(best[i] or took, took)
    return best


def main():
    bench, store_bench, step_counts, program, data = (os.path.abspath(a) for a in sys.argv[1:6])
    options = sys.argv[6:]
    if options[:1] == ["--against"]:
        compare(os.path.abspath(options[1]), program, data)
        return
    rows = benchmarks(bench, options) + benchmarks(store_bench, options)
    by_name = {row["name"]: row for row in rows}
    peers = {name: [by_name[peer] for peer in (name.replace("_own/", f"_{p}/") for p in PEERS) if peer in by_name]
             for name in by_name if "_own/" in name}
    table = [(short_name(row), time_text(row), note(row, peers)) for row in rows]
    if "format_parse" in by_name:
        parse, sentence, write, read = (time_of(by_name[name]) for name in (
            "format_parse", "format_sentence", "format_write/conllu", "format_read/conllu"))
        table.append(("CoNLL-U in and out", f"{100 * (sentence + write + read) / parse:.0f} %",
                      "on top of parsing (wanted: below 20 %)"))
    seconds, peak = whole_run(program, data)
    table.append(("whole run", f"{seconds * 1e3:.0f} ms", "processor time, start-up included (wanted: below 50 ms)"))
    table.append(("whole run, peak memory", f"{peak / 1e6:.0f} MB", "wanted: below 48 MB"))
    if not options:
        table += bench_command_line.table(program)
    if both := python_run(program, data):
        table.append(("2,000 sentences from Python", f"{both[1] * 1e3:.0f} ms",
                      f"{both[1] / both[0]:.2f} times the command line, both with their start (wanted: at most 1.3)"))
    table += [(name, f"{time:.3g} ms", note) for name, (time,), note in bench_text.rows([program], data)]
    time, ratio = bench_text.counts_row(program, data)
    table.append(("text, with counts", f"{time:.3g} ms", f"{ratio:.2f} times as long as without (wanted: 1.2)"))
    print_table(table)
    for step, counts in bench_text.step_rows(step_counts, data):
        print(f"{step:42}" + "".join(f"{count:>10}" for count in counts))


main()
