#!/usr/bin/env python3
"""Runs the program on the cases of one topic and tells which do not hold.

usage: run_scenarios.py PROGRAM TOPIC_FOLDER [NAME_PART]

Each folder below TOPIC_FOLDER is a case. Its files, and the files beside the folders, which the cases
share, are copied to a scratch folder and PROGRAM runs there, without arguments. What is wanted of the run:

  stdout.want  stderr.want    the whole stream, byte for byte
  stdout.has   stderr.has     texts of which each occurs in a line of the stream, in this order
  stdout.hasnt stderr.hasnt   texts that occur in no line of the stream
  stdout.count stderr.count   how many lines the stream has, those that repeat as well
  status.want                 the exit status; 0 without this file
  check.py                    runs afterwards in the scratch folder, with the two streams as files
                              `stdout` and `stderr` in the folder that is its argument; 0 if all is well

What else a case may hold:

  make.py      runs first in the scratch folder, for inputs that are too large to be kept
  stdin.txt    the standard input; without it there is none
  no-sentence  a marker: the run has no "sentense.dat"; else one with an empty line is made if there is none
  link-data    a marker: the project's data folder stands in the scratch folder as `data`
"""
import concurrent.futures
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

TIMEOUT = float(os.environ.get("SCENARIO_TIMEOUT", "120"))
PROJECT = pathlib.Path(__file__).resolve().parent.parent
STREAMS = ("stdout", "stderr")
NOT_COPIED = {f"{s}.{kind}" for s in STREAMS for kind in ("want", "has", "hasnt", "count")} | {
    "status.want", "check.py", "make.py", "no-sentence", "link-data"}
# A sanitizer's verdict must not look like the status of a normal end.
ENVIRONMENT = {"ASAN_OPTIONS": "exitcode=99", "UBSAN_OPTIONS": "exitcode=99:print_stacktrace=1",
               **os.environ}


def lines_of(path):
    return [line for line in path.read_bytes().split(b"\n") if line] if path.exists() else []


def readable(data, most=2000):
    text = data.decode("utf-8", "backslashreplace")
    return text if len(text) <= most else text[:most] + f"... ({len(data)} bytes)"


def stream_faults(case, name, data):
    """What a stream has that it must not have, or lacks."""
    wanted = case / f"{name}.want"
    if wanted.exists() and wanted.read_bytes() != data:
        yield f"{name} is\n{readable(data)}\nand not\n{readable(wanted.read_bytes())}"
    lines = iter(data.split(b"\n"))
    for text in lines_of(case / f"{name}.has"):
        if not any(text in line for line in lines):
            yield f"{name} lacks, in this order: {readable(text)}\n{readable(data)}"
            break
    for text in lines_of(case / f"{name}.hasnt"):
        if any(text in line for line in data.split(b"\n")):
            yield f"{name} has: {readable(text)}"
    count = case / f"{name}.count"
    if count.exists() and int(count.read_text()) != data.count(b"\n"):
        yield f"{name} has {data.count(10)} lines, not {count.read_text().strip()}"


def prepare(case, scratch):
    shared = [entry for entry in case.parent.iterdir() if entry.is_file()]
    for entry in [*shared, *case.iterdir()]:
        if entry.name in NOT_COPIED:
            continue
        if entry.is_dir():
            shutil.copytree(entry, scratch / entry.name)
        else:
            shutil.copy(entry, scratch / entry.name)
    if (case / "link-data").exists():
        (scratch / "data").symlink_to(PROJECT / "data")
    if (case / "make.py").exists():
        subprocess.run([sys.executable, case / "make.py"], cwd=scratch, check=True)
    sentence = scratch / "sentense.dat"
    if not os.path.lexists(sentence) and not (case / "no-sentence").exists():
        sentence.write_bytes(b"\n")


def run_checks(case, scratch, streams):
    script = case / "check.py"
    if not script.exists():
        return
    with tempfile.TemporaryDirectory(prefix="streams-") as folder:
        for name, data in streams.items():
            (pathlib.Path(folder) / name).write_bytes(data)
        check = subprocess.run([sys.executable, script, folder], cwd=scratch, capture_output=True,
                               timeout=TIMEOUT)
    if check.returncode != 0:
        yield "check: " + readable(check.stdout + check.stderr)


def run_case(program, case):
    """The faults of one case, none if it holds."""
    with tempfile.TemporaryDirectory(prefix="scenario-", ignore_cleanup_errors=True) as folder:
        scratch = pathlib.Path(folder)
        prepare(case, scratch)
        given = scratch / "stdin.txt"
        with open(given if given.exists() else os.devnull, "rb") as stdin:
            try:
                run = subprocess.run([program], cwd=scratch, stdin=stdin, capture_output=True,
                                     timeout=TIMEOUT, env=ENVIRONMENT)
            except subprocess.TimeoutExpired:
                return [f"did not end within {TIMEOUT:g} s"]
        status = case / "status.want"
        wanted = int(status.read_text()) if status.exists() else 0
        faults = []
        if run.returncode != wanted:
            faults.append(f"status {run.returncode}, not {wanted}\n{readable(run.stderr[-3000:], 3000)}")
        streams = dict(zip(STREAMS, (run.stdout, run.stderr)))
        for name, data in streams.items():
            faults.extend(stream_faults(case, name, data))
        faults.extend(run_checks(case, scratch, streams))
        return faults


def main():
    if len(sys.argv) not in (3, 4):
        sys.exit(__doc__)
    program = pathlib.Path(sys.argv[1]).resolve()
    topic = pathlib.Path(sys.argv[2]).resolve()
    part = sys.argv[3] if len(sys.argv) == 4 else ""
    cases = sorted(c for c in topic.iterdir() if c.is_dir() and part in c.name)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = list(pool.map(lambda case: run_case(program, case), cases))
    for case, faults in zip(cases, results):
        for fault in faults:
            print(f"{topic.name}/{case.name}: {fault}\n")
    failed = sum(1 for faults in results if faults)
    print(f"{len(cases) - failed} of {len(cases)} cases hold")
    return 0 if cases and failed == 0 else 1


if __name__ == "__main__":
    sys.exit(main())
