#!/usr/bin/env python3
"""Runs every command of a page's console blocks and compares what it prints.

usage: using_page.py PROGRAM PAGE [--write]

A line that begins with "$ " is a command for the shell; the lines up to the next one are its output, messages too.
The commands of a page run one after the other in one folder. --write puts what they print into the page.
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile

BLOCK = re.compile(r"^```console\n(.*?)^```$", re.M | re.S)


def run_block(body, folder, environment):
    out = ""
    for command in re.findall(r"^\$ (.*)\n", body, re.M):
        done = subprocess.run(["sh", "-c", command], cwd=folder, env=environment, text=True, timeout=60,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        out += f"$ {command}\n{done.stdout}"
    return out


def main():
    program, page = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2])
    text = page.read_text()
    environment = {**os.environ, "PATH": f"{program.parent}:{os.environ['PATH']}"}
    faults = 0
    with tempfile.TemporaryDirectory() as folder:
        for body in BLOCK.findall(text):
            printed = run_block(body, folder, environment)
            if printed != body:
                faults += 1
                print(printed)
                text = text.replace(f"```console\n{body}```", f"```console\n{printed}```")
    if "--write" in sys.argv:
        page.write_text(text)
    print(f"{faults} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
