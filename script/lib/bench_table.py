#!/usr/bin/env python3
"""Prints what the benchmarks reach as one table, and what a whole run of the program costs.

usage: bench_table.py BENCH_PROGRAM PROGRAM DATA_FOLDER [options of the benchmark program]

A row with a peer (NAME_own/..., beside it NAME_std/... or NAME_peer/...) gives the ratio of the two, measured in one run. Wanted figures
stand in the last column where there are any.
"""
import json
import os
import subprocess
import sys
import tempfile

RUNS = 9


def benchmarks(program, options):
    with tempfile.NamedTemporaryFile() as report:
        command = [program, f"--benchmark_out={report.name}", "--benchmark_out_format=json",
                   "--benchmark_min_time=0.2", *options]
        subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True)
        return json.load(report)["benchmarks"]


def scaled(value, units):
    for unit, size in units:
        if value >= size:
            return f"{value / size:.3g} {unit}"
    return f"{value:.3g} {units[-1][0]}"


def time_text(row):
    nanoseconds = row["cpu_time"] * {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}[row["time_unit"]]
    return scaled(nanoseconds, [("s", 1e9), ("ms", 1e6), ("us", 1e3), ("ns", 1)])


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
    peer = peers.get(row["name"])
    if peer:
        notes.append(f"{peer['cpu_time'] / row['cpu_time']:.1f} times as fast as {peer['name']}")
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


def main():
    bench, program, data = (os.path.abspath(a) for a in sys.argv[1:4])
    rows = benchmarks(bench, sys.argv[4:])
    by_name = {row["name"]: row for row in rows}
    peers = {name: by_name[peer] for name in by_name if "_own/" in name
             for peer in (name.replace("_own/", "_std/"), name.replace("_own/", "_peer/")) if peer in by_name}
    table = [(row["name"], time_text(row), note(row, peers)) for row in rows]
    seconds, peak = whole_run(program, data)
    table.append(("whole run", f"{seconds * 1e3:.0f} ms", "processor time, start-up included (wanted: below 50 ms)"))
    table.append(("whole run, peak memory", f"{peak / 1e6:.0f} MB", "wanted: below 48 MB"))
    width = max(len(name) for name, _, _ in table)
    for name, time, notes in table:
        print(f"{name:{width}}  {time:>9}  {notes}".rstrip())


main()
