#!/usr/bin/env python3
"""The command line on what nobody should feed it: odd bytes, grammars that end the program, broken streams.

usage: command_line_faults.py PROGRAM [TEST...]
"""
import os
import pathlib
import random
import signal
import subprocess
import sys
import tempfile
import time
import unittest

import command_line
import conllu_rules
from command_line import SMALL, run

WAYS = ("text", "lines", "tokens")


class Input(unittest.TestCase):
    def test_odd_texts(self):
        noise = random.Random(7).randbytes(20000)
        for given in (noise, b"\n" * 1000000, b"x" * 10000000, b"", b"\xef\xbb\xbf\r\n\r\n", b"(" * 5000 + b")" * 5000,
                      b"\xff" * 20000 + b"\n", bytes(range(256)) * 20):
            for way in WAYS:
                status, out, errors = run("parse", "--from", way, given=given)
                what = (way, given[:10], errors[:300])
                self.assertEqual(status, 0, what)
                self.assertLessEqual(errors.count("\n"), 2, what)  # bytes that are no UTF-8, and the summary
                self.assertEqual(out == b"", not given.strip(b"\r\n\xef\xbb\xbf"), what)
            self.assertIn(run("parse", "--quiet", "--from", "conllu", given=given)[0], (0, 1))

    def test_sentences_of_5000_words(self):
        given = ("The old man who sleeps saw a dog and " * 555 + "left.\n").encode()
        for way in WAYS:
            status, out, errors = run("parse", "--from", way, "-j", "2", given=given)
            self.assertEqual((status, conllu_rules.faults(out.decode())), (0, []))
            self.assertIn(b"# cut = words\n", out)
            self.assertGreaterEqual(out.count(b"\tsleeps\t"), 555)

    def test_nothing_to_read(self):
        for options in (["--from", way] for way in (*WAYS, "conllu")):
            status, out, errors = run("parse", *options)
            self.assertEqual((status, out, errors.split(";")[0]),
                             (0, b"", "0 sentences, 0 whole, 0 in parts, 0 cut"))
        with tempfile.TemporaryDirectory() as folder:
            for name in (folder, folder + "/missing"):
                for command in ("parse", "convert"):
                    status, out, errors = run(command, name)
                    self.assertEqual((status, out, errors.splitlines()[0].count(name)), (1, b"", 1))


class Grammars(unittest.TestCase):
    """What a grammar does besides."""

    END = '(exec-commands (exit))'

    def run_with(self, forms, *options, given="the cat sleeps\n"):
        with tempfile.TemporaryDirectory() as folder:
            pathlib.Path(folder, "own.lsp").write_text(SMALL + forms)
            return run("parse", "--quiet", "--grammar", "./own.lsp", "--from", "lines", "--to", "brackets", *options,
                       given=given, cwd=folder)

    def test_the_end_of_the_program_inside_a_parse(self):
        places = (f"(def-modifiers V (? (N (modifier-cond {self.END}))) (:head))",
                  f"(roots (V {self.END}))", f"(roots (V (t) {self.END}))",
                  f"(def-tree-rules ends (up :name end (node (t)) {self.END})) (set-deps-modifier parser ends)",
                  f"(defun universal-category () {self.END})")
        for forms in places:
            for options in ([], ["-j", "2"], ["-o", "out"]):
                status, out, errors = self.run_with(forms, *options)
                self.assertEqual((status, out, errors), (4, b"", "torvane: the grammar ended the program\n"), forms)

    def test_what_was_parsed_before_the_end_is_written(self):
        forms = f"(defun universal-category () (if (node2word (in (sleeps))) {self.END} (str X)))"
        for options in ([], ["-j", "3"]):
            status, out, errors = self.run_with(forms, *options, given="the cat\n" * 50 + "the cat sleeps\n" * 9)
            self.assertEqual((status, out.count(b"\n")), (4, 50), options)

    def test_printing(self):
        forms = ('(echo (loaded)) (def-tree-rules prints (up :name print (node (t)) (print-str :suffix " seen\\n"))) '
                 '(defun universal-category () (prog (exec-commands (echo called)) (str X)))')
        status, out, errors = self.run_with(forms)
        self.assertEqual((status, out), (0, b"(root (subj (det the) cat) sleeps)\n"))
        self.assertIn("called\n", errors)

    def test_files_that_are_no_grammars(self):
        for text in ("", "(", ")", '"', "\x00\xff" * 1000, "(load own.lsp)", "(nosuch)", "(def-category N)", "a " * 10000):
            with tempfile.TemporaryDirectory() as folder:
                pathlib.Path(folder, "own.lsp").write_text(text, "latin-1")
                status, out, errors = run("parse", "--grammar", "./own.lsp", given="Dogs bark.\n", cwd=folder)
                self.assertEqual((status, out), (4, b""), text[:20])
                self.assertIn("torvane: the grammar makes no parser", errors)


class Ends(unittest.TestCase):
    TEXT = b"The cat sat on the mat.\n" * 3000

    def test_nobody_reads(self):
        for options in ([], ["-j", "2"], ["--best", "3"]):
            with subprocess.Popen([command_line.PROGRAM, "parse", *options], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                  stderr=subprocess.PIPE) as child:
                child.stdout.close()
                child.stdin.write(self.TEXT)
                child.stdin.close()
                errors = child.stderr.read()
                self.assertEqual((child.wait(60), errors.count(b"\n")), (0, 1), errors)  # the summary

    def test_full_disk(self):
        trees = run("parse", "--quiet", given="Dogs bark.\n")[1]
        for command, given in ((["parse", "--quiet", "-j", "2"], self.TEXT), (["parse", "--quiet"], b"Dogs bark.\n"),
                               (["convert"], trees), (["help", "language"], b"")):
            with open("/dev/full", "wb") as full:
                done = subprocess.run([command_line.PROGRAM, *command], input=given, stdout=full, stderr=subprocess.PIPE)
            self.assertEqual((done.returncode, done.stderr.count(b"\n")), (1, 1), done.stderr)

    def test_what_was_parsed_before_a_fault_is_written(self):
        with tempfile.TemporaryDirectory() as folder:
            first = pathlib.Path(folder, "first")
            first.write_text("Dogs bark.\n")
            status, out, _ = run("parse", "--quiet", first, folder, first)
            self.assertEqual((status, out.count(b"# text = Dogs bark.\n")), (1, 2))

    def test_signals(self):
        for options, number in ((["-j", "3"], signal.SIGINT), (["--best", "4"], signal.SIGTERM), ([], signal.SIGHUP)):
            with tempfile.TemporaryDirectory() as folder:
                out = pathlib.Path(folder, "out")
                with subprocess.Popen([command_line.PROGRAM, "parse", "--quiet", "-o", out, *options],
                                      stdin=subprocess.PIPE, stderr=subprocess.PIPE) as child:
                    child.stdin.write(self.TEXT[:12000])
                    child.stdin.flush()
                    for _ in range(1200):
                        if out.exists() and out.stat().st_size:
                            break
                        time.sleep(0.05)
                    child.send_signal(number)
                    self.assertEqual((child.wait(60), child.stderr.read()), (-number, b""))
                    child.stdin.close()
                self.assertEqual(conllu_rules.faults(out.read_text()), [])
                self.assertIn("# sent_id = 1\n", out.read_text())


if __name__ == "__main__":
    command_line.PROGRAM = os.path.abspath(sys.argv.pop(1))
    unittest.main()
