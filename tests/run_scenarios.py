#!/usr/bin/env python3
"""Runs the program on cases and tells which do not hold.

usage: run_scenarios.py [--write] PROGRAM FOLDER...

A FOLDER is a case, or a topic: a folder of cases, which are then all run. The files of a case are copied to a
scratch folder, with those beside the case and beside its topic, which cases share, and PROGRAM runs there,
without arguments. What is wanted of the run:

  stdout.want stderr.want  the whole stream, byte for byte
  NAME.want                the whole of the file NAME that the run leaves in the scratch folder
  status.want              the exit status; 0 without this file
  check.py                 runs afterwards in the scratch folder, with the two streams as files
                           `stdout` and `stderr` in the folder that is its argument; 0 if all is well

How long a parse took differs from run to run: behind ";; parse time:" a stream is taken to have a "~".

What else a case may hold:

  make.py      runs first in the scratch folder, for inputs that are too large to be kept
  stdin.txt    the standard input; without it there is none
  sentense.dat the sentence; without it there is an empty one, and the run ends behind the start-up file
  no-sentence  a marker: there is no sentence at all
  link-data    a marker: the project's data folder stands in the scratch folder as `data`

With --write what the run gives is written into the .want files that a case has, or into stdout.want if the case
states nothing yet. What changed is then to be read with `git diff`.
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

TIMEOUT = float(os.environ.get("SCENARIO_TIMEOUT", "120"))
PROJECT = pathlib.Path(__file__).resolve().parent.parent
TOPICS = PROJECT / "tests" / "scenarios"
# The scripts of cases need no more of Python than starts fast.
PYTHON = [sys.executable, "-S"]
NOT_COPIED = {"check.py", "make.py", "no-sentence", "link-data"}
# A sanitizer's verdict must not look like the status of a normal end.
ENVIRONMENT = {"ASAN_OPTIONS": "exitcode=99", "UBSAN_OPTIONS": "exitcode=99:print_stacktrace=1",
               **os.environ}


def readable(data, most=2000):
    text = data.decode("utf-8", "backslashreplace")
    return text if len(text) <= most else text[:most] + f"... ({len(data)} bytes)"


def timeless(stream):
    return re.sub(rb"(?m)^(;; parse time:).*", rb"\1 ~", stream)


def prepare(case, scratch):
    shared = [entry for folder in (case.parent.parent, case.parent) for entry in folder.iterdir()
              if entry.is_file()]
    for entry in [*shared, *case.iterdir()]:
        if entry.name in NOT_COPIED or entry.suffix == ".want":
            continue
        if entry.is_dir():
            shutil.copytree(entry, scratch / entry.name)
        else:
            shutil.copy(entry, scratch / entry.name)
    if (case / "link-data").exists():
        (scratch / "data").symlink_to(PROJECT / "data")
    if (case / "make.py").exists():
        subprocess.run([*PYTHON, case / "make.py"], cwd=scratch, check=True)
    sentence, start_up = scratch / "sentense.dat", scratch / "torvane.lsp"
    if not os.path.lexists(sentence) and not (case / "no-sentence").exists():
        sentence.write_bytes(b"\n")
        if start_up.exists():
            start_up.write_bytes(start_up.read_bytes() + b"\n(exit)\n")


def results(run, scratch):
    """What the run gave under a name, as bytes; none if it left no such file."""
    streams = {"stdout": timeless(run.stdout), "stderr": timeless(run.stderr),
               "status": b"%d\n" % run.returncode}

    def result(name):
        file = scratch / name
        return streams.get(name, file.read_bytes() if file.is_file() else None)
    return result


def write(case, result):
    stated = sorted(case.glob("*.want"))
    if not stated and not (case / "check.py").exists():
        stated = [case / "stdout.want"]
    for want in stated:
        data = result(want.stem)
        if data is None:
            yield f"{want.stem} is not there"
        else:
            want.write_bytes(data)


def faults(case, result, scratch):
    wanted = {want.stem: want.read_bytes() for want in sorted(case.glob("*.want"))}
    for name, want in {"status": b"0\n", **wanted}.items():
        data = result(name)
        if data is None:
            yield f"{name} is not there"
        elif data != want:
            yield f"{name} is\n{readable(data)}\nand not\n{readable(want)}"
            if name == "status":
                yield f"stderr ends in\n{readable(result('stderr')[-3000:], 3000)}"
    if (case / "check.py").exists():
        yield from failed_check(case, result, scratch)


def failed_check(case, result, scratch):
    with tempfile.TemporaryDirectory(prefix="streams-") as folder:
        for name in ("stdout", "stderr"):
            (pathlib.Path(folder) / name).write_bytes(result(name))
        check = subprocess.run([*PYTHON, case / "check.py", folder], cwd=scratch, capture_output=True,
                               timeout=TIMEOUT)
    if check.returncode != 0:
        yield "check: " + readable(check.stdout + check.stderr)


def run_case(program, case, writing):
    """What is wrong with a case, nothing if it holds."""
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
        result = results(run, scratch)
        return list(write(case, result) if writing else faults(case, result, scratch))


def cases_of(folder):
    if folder.parent != TOPICS:
        return [folder]
    return sorted(entry for entry in folder.iterdir() if entry.is_dir())


def main():
    arguments = sys.argv[1:]
    writing = arguments[:1] == ["--write"]
    program, *folders = [pathlib.Path(name).resolve() for name in arguments[writing:]] or [None]
    if not folders:
        sys.exit(__doc__)
    cases = [case for folder in folders for case in cases_of(folder)]
    held = 0
    for case in cases:
        wrong = run_case(program, case, writing)
        held += not wrong
        for fault in wrong:
            print(f"{case.parent.name}/{case.name}: {fault}\n")
    print(f"{held} of {len(cases)} cases {'are written' if writing else 'hold'}")
    return 0 if held == len(cases) > 0 else 1


if __name__ == "__main__":
    sys.exit(main())
