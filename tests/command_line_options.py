#!/usr/bin/env python3
"""What the options of the command line give.

usage: command_line_options.py PROGRAM [TEST...]
"""
import json
import os
import pathlib
import pty
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

import command_line
import conllu_rules
from command_line import SENTENCES, run

ROOT = pathlib.Path(__file__).resolve().parent.parent


def some_sentences():
    lines = [line.split("\t")[0] for line in SENTENCES.read_text().splitlines()]
    return [line for line in lines if line.strip() and not line.startswith("#")]


class Best(unittest.TestCase):
    """The next-best trees."""

    def test_they_are_different_and_dearer(self):
        text = "I saw the man in the park with a telescope.\n\nDogs bark.\n"
        out = run("parse", "--quiet", "--best", "5", "--to", "json", given=text)[1]
        trees = [json.loads(line) for line in out.splitlines()]
        first = [tree for tree in trees if tree["id"].split("-")[0] == "1"]
        self.assertEqual([tree["id"] for tree in first], ["1", "1-2", "1-3", "1-4", "1-5"])
        self.assertEqual([tree["best"] for tree in first], [1, 2, 3, 4, 5])
        costs = [tree["cost"] for tree in first]
        self.assertEqual(costs, sorted(costs))
        shapes = {json.dumps(tree["words"]) for tree in first}
        self.assertEqual(len(shapes), 5)
        heads = {tree["words"][6]["head"] for tree in first}  # of: with a telescope
        self.assertGreaterEqual(len({tree["words"][8]["head"] for tree in first} | heads), 3)
        plain = json.loads(run("parse", "--quiet", "--to", "json", given=text)[1].splitlines()[0])
        self.assertEqual({**plain, "best": 1}, first[0])

    def test_conllu_keeps_its_rules(self):
        given = "She saw the man with a telescope. Why?\n\nHe (the old man) said that flying planes can be dangerous.\n"
        status, out, _ = run("parse", "--best", "3", given=given)
        self.assertEqual((status, conllu_rules.faults(out.decode())), (0, []))
        lines = out.decode().splitlines()
        self.assertIn("# best = 2", lines)
        self.assertTrue(any(line.startswith("# cost = ") for line in lines))
        self.assertEqual(lines.count("# newpar"), 2)
        self.assertEqual(run("convert", "--to", "conllu", given=out)[1], out)
        many = run("parse", "--best", "3", "-j", "2", given=given)[1]
        self.assertEqual(many, out)

    def test_given_words_and_cut_sentences(self):
        block = run("parse", "--quiet", "--from", "tokens", "--best", "2", given="She saw the man with a telescope .\n")[1]
        self.assertEqual(run("parse", "--quiet", "--from", "conllu", "--best", "1", given=block)[0], 0)
        self.assertIn(b"# best = 2", block)
        pieces = run("parse", "--quiet", "--max-words", "4", "--best", "3", given="She saw the man with a telescope.\n")[1]
        self.assertEqual(pieces.count(b"# best = "), 1)


class Counts(unittest.TestCase):
    """A database of counts."""

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.path = pathlib.Path(self.folder.name)
        corpus = self.path / "corpus"
        corpus.write_text("She painted with a brush.\n" * 60 + "He saw the wall.\nDogs sleep.\n" * 200)
        self.learned = self.path / 'a "folder" (exit); \\'
        done = subprocess.run([sys.executable, ROOT / "script/lib/learn.py", command_line.PROGRAM, ROOT / "data", corpus,
                               self.path / "learned"], capture_output=True, timeout=300)
        self.assertEqual(done.returncode, 0, done.stderr)
        shutil.copytree(self.path / "learned", self.learned, symlinks=True)

    def tearDown(self):
        self.folder.cleanup()

    def test_words_seen_together_as_a_start_up_file_has_it(self):
        learned = self.path / "learned"
        text = "He painted the wall with a brush."
        (learned / "sentense.dat").write_text(text)
        wanted = subprocess.run([command_line.PROGRAM], cwd=learned, capture_output=True, timeout=300).stdout
        table = ["parse", "--quiet", "--style", "grammar", "--to", "table"]
        got = run(*table, "--counts", self.learned, given=text + "\n")
        self.assertEqual((got[0], got[2]), (0, ""))
        self.assertEqual([line for line in got[1].splitlines() if b"\tU\t" not in line and b"(." not in line],
                         wanted.splitlines())
        self.assertNotEqual(got[1], run(*table, given=text + "\n")[1])
        given = text + "\n" + "\n".join(some_sentences()) + "\n"
        one = run(*table, "--counts", learned, given=given)
        self.assertEqual(run(*table, "--counts", learned, "-j", "3", given=given), one)

    def test_two_at_once(self):
        given = "\n".join(some_sentences() * 3).encode() + b"\n"
        both = [subprocess.Popen([command_line.PROGRAM, "parse", "--quiet", "--counts", self.learned], stdin=subprocess.PIPE,
                                 stdout=subprocess.PIPE) for _ in range(2)]
        for child in both:
            child.stdin.write(given)
            child.stdin.close()
        first, second = (child.stdout.read() for child in both)
        for child in both:
            child.stdout.close()
        self.assertEqual([child.wait(60) for child in both], [0, 0])
        self.assertEqual(first, second)
        self.assertIn(b"# sent_id = 2\n", first)

    def test_missing_and_broken_ones(self):
        empty = self.path / "empty"
        empty.mkdir()
        broken = self.path / "broken"
        shutil.copytree(self.path / "learned", broken, symlinks=True)
        (broken / "triples.db").write_bytes(b"no database" * 100)
        for folder in (empty, broken, self.path / "nosuch", self.path / "corpus"):
            status, out, errors = run("parse", "--counts", folder, given="Dogs bark.\n")
            self.assertEqual((status, out, errors.count("\n")), (4, b"", 1), (folder, errors))
            self.assertIn(str(folder), errors)


class Threads(unittest.TestCase):
    def test_a_sentence_does_not_depend_on_those_before(self):
        odd = "Rita about kilometers hour it headed across the Gulf of"
        table = ["parse", "--quiet", "--from", "lines", "--to", "table"]
        alone = run(*table, given=odd + "\n")[1]
        self.assertEqual(run(*table, given="cities\nHe gave her that.\n" + odd + "\n")[1][-len(alone):], alone)
        lines = some_sentences() + [odd]
        given = "\n".join(lines * 3) + "\n"
        one = run("parse", "--quiet", "--from", "lines", given=given)
        for jobs in ("2", "5"):
            self.assertEqual(run("parse", "--quiet", "--from", "lines", "-j", jobs, given=given), one)


class Progress(unittest.TestCase):
    """The line on the terminal."""

    def shown(self, *options, given, wait=0.0):
        """What a terminal gets of standard error."""
        ours, theirs = pty.openpty()
        with subprocess.Popen([command_line.PROGRAM, "parse", "--from", "lines", *options], stdin=given,
                              stdout=subprocess.DEVNULL, stderr=theirs) as child:
            os.close(theirs)
            if child.stdin:
                for _ in range(2):
                    child.stdin.write(b"Dogs bark.\n")
                    child.stdin.flush()
                    time.sleep(wait)
                child.stdin.close()
            text = b""
            try:
                while piece := os.read(ours, 4096):
                    text += piece
            except OSError:  # the other end is closed
                pass
        os.close(ours)
        return text.decode()

    def test_a_long_run_tells_how_far_it_is(self):
        with tempfile.TemporaryFile() as file:
            file.write(b"The old man who sleeps saw a dog in the garden of the house on Monday.\n" * 12000)
            file.seek(0)
            text = self.shown(given=file)
        self.assertRegex(text, r"\r[0-9,]+ sentences, [0-9,]+ a second, [0-9]+ (s|min) left\x1b\[K")
        self.assertRegex(text, r"\r\x1b\[K12,000 sentences, 12,000 whole, 0 in parts, 0 cut; [0-9,]+ a second\r\n$")

    def test_a_pipe_has_no_end_that_is_known(self):
        text = self.shown(given=subprocess.PIPE, wait=1.2)
        self.assertRegex(text, r"^\r2 sentences, [0-9]+ a second\x1b\[K\r\x1b\[K2 sentences, ")
        self.assertEqual(self.shown("--quiet", given=subprocess.PIPE, wait=1.2), "")


class Help(unittest.TestCase):
    def test_pages(self):
        for page in ("language", "formats", "grammar", "patterns", "using"):
            self.assertEqual(run("help", page), (0, (ROOT / "docs" / f"{page}.md").read_bytes(), ""))
        status, out, _ = run("help", "forms", "sbnd")
        self.assertEqual((status, out.count(b"\n")), (0, 1), out)
        self.assertGreater(run("help", "forms")[1].count(b"\n"), 300)
        self.assertEqual(run("help")[1], run("--help")[1])
        for command in ("parse", "convert", "help"):
            status, out, errors = run(command, "--help")
            self.assertEqual((status, errors), (0, ""))
            self.assertIn(f"Usage: torvane {command} ".encode(), out)
            self.assertEqual(run("help", command)[1], out)
        with subprocess.Popen([command_line.PROGRAM, "help", "forms"], stdout=subprocess.PIPE, stderr=subprocess.PIPE) as child:
            child.stdout.close()
            self.assertEqual((child.stderr.read(), child.wait(60)), (b"", 0))

    def test_hints(self):
        for wrong, hint in ((["pasre"], "parse"), (["parse", "--srtict"], "--strict"), (["convert", "--ouptut=x"], "--output"),
                            (["--versoin"], "--version"), (["help", "langauge"], "language"), (["parse", "--coun"], "--counts")):
            status, out, errors = run(*wrong)
            self.assertEqual((status, out), (2, b""))
            self.assertIn(f"; do you mean {hint}?\n", errors)
        for wrong in (["xyzzy"], ["parse", "--xyzzy"], ["parse", "-z"], ["help", "xyzzy"], ["help", "forms", "xyzzy"]):
            status, out, errors = run(*wrong)
            self.assertEqual((status, out, errors.count("\n"), "mean" in errors), (2, b"", 2, False), errors)

    def test_wrong_values(self):
        for option, values, wanted in (("--from", ("", "Text", "pdf"), 2), ("--to", ("", "xml"), 2),
                                       ("--max-words", ("0", "-1", "x", "1.5", "30001", "9" * 30), 2),
                                       ("--jobs", ("0", "-1", "x", "257", "9" * 30), 2),
                                       ("--best", ("0", "-1", "x", "1001", "9" * 30), 2),
                                       ("--grammar", ("nosuch", "/", "/dev/null", ""), 4), ("--style", ("nosuch", "../x"), 4),
                                       ("--data", ("/nosuch", "/dev/null"), 4), ("--counts", ("/nosuch", "/dev/null"), 4),
                                       ("--output", ("/", "/nosuch/x"), 1)):
            for value in values:
                status, out, errors = run("parse", option, value, given="Dogs bark.\n")
                self.assertEqual((status, out), (wanted, b""), (option, value, errors))
                self.assertIn("torvane: ", errors)
            self.assertEqual(run("parse", option)[0], 2)


if __name__ == "__main__":
    command_line.PROGRAM = os.path.abspath(sys.argv.pop(1))
    unittest.main()
