#!/usr/bin/env python3
"""Runs every command of a page's console blocks and compares what it prints.

usage: using_page.py PROGRAM PAGE [--prefix FOLDER] [--python INTERPRETER] [--write]

A line that begins with "$ " is a command for the shell; the lines up to the next one are its output, messages too.
The commands of a page run one after the other in one folder, with the files that blocks of code with a file's name
hold. Blocks marked "installed" need torvane installed in the folder of --prefix, those with python3 its module for the
interpreter of --python; else they are left out. --write puts what they print into the page.
"""
import argparse
import os
import pathlib
import re
import subprocess
import sys
import tempfile

BLOCK = re.compile(r"^```([^\n]*)\n(.*?)^```$", re.M | re.S)


def run_block(body, folder, environment):
    out = ""
    for command in re.findall(r"^\$ (.*)\n", body, re.M):
        done = subprocess.run(["sh", "-c", command], cwd=folder, env=environment, text=True, timeout=60,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        out += f"$ {command}\n{done.stdout}"
    return out


def installed(prefix):
    """What a user sets who has torvane in a folder of his own."""
    libraries = next(prefix.glob("lib/**/torvane.pc")).parent.parent
    modules = [path.parent.parent for path in prefix.glob("lib/**/torvane/__init__.py")]
    return {"PATH": f"{prefix}/bin:{os.environ['PATH']}", "LD_LIBRARY_PATH": str(libraries),
            "PKG_CONFIG_PATH": f"{libraries}/pkgconfig", "PYTHONPATH": ":".join(map(str, modules))}


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program", type=pathlib.Path)
    parser.add_argument("page", type=pathlib.Path)
    parser.add_argument("--prefix", type=pathlib.Path)
    parser.add_argument("--python")
    parser.add_argument("--write", action="store_true")
    options = parser.parse_args()
    text = options.page.read_text()
    environment = {**os.environ, "PATH": f"{options.program.resolve().parent}:{os.environ['PATH']}"}
    if options.prefix:
        # The program stays the one that was built: its English has the starter lexicon on every machine.
        path = environment["PATH"]
        environment.update(installed(options.prefix.resolve()))
        environment["PATH"] = f"{path.split(':', 1)[0]}:{environment['PATH']}"
    if options.python:
        own, others = environment["PATH"].split(":", 1)
        environment["PATH"] = f"{own}:{pathlib.Path(options.python).parent}:{others}"
    faults = 0
    with tempfile.TemporaryDirectory() as folder:
        for kind, body in BLOCK.findall(text):
            kind, _, name = kind.partition(" ")
            if kind != "console" and name:
                pathlib.Path(folder, name).write_text(body)
            if kind != "console" or (name and not options.prefix) or ("$ python3 " in body and not options.python):
                continue
            printed = run_block(body, folder, environment)
            if printed != body:
                faults += 1
                print(printed)
                text = text.replace(body, printed)
    if options.write:
        options.page.write_text(text)
    print(f"{faults} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
