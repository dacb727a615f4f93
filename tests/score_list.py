#!/usr/bin/env python3
"""`torvane score` on lists for the small grammar of tests/check.

usage: score_list.py PROGRAM
"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

GRAMMAR = pathlib.Path(__file__).resolve().parent / "check" / "own.lsp"
WORDS = '(load own.lsp)\n(lex words ("Äpfel" (avm (noun))) ("Жук" (avm (noun))))\n'


class Score(unittest.TestCase):
    def score(self, text, *options):
        """Status, lines of output without the place of the list, messages."""
        with tempfile.TemporaryDirectory() as folder:
            own = pathlib.Path(shutil.copytree(GRAMMAR.parent, pathlib.Path(folder, "own")), "words-too.lsp")
            own.write_text(WORDS)
            pathlib.Path(folder, "list").write_text(text)
            done = subprocess.run([PROGRAM, "score", own, "list", *options], cwd=folder, capture_output=True, text=True)
            return done.returncode, done.stdout.splitlines(), done.stderr

    def right(self, text, heads):
        self.assertEqual(self.score(text), (0, [f"heads {heads} of {heads}, sentences wholly right 1 of 1"], ""))

    def test_names_of_words(self):
        self.right("the dogs see the cat\tdogs>see the>dogs the.2>cat see>*", 4)
        self.right("The DOGS see the cat\tDogs>SEE The.2>cat the>Dogs|cat", 3)
        self.right("Äpfel see Жук\täpfel>see жУК>see SEE>*", 3)
        self.right("# a comment\n\nthe dogs see the cat\tthe>cat|dogs\n", 1)

    def test_wrong_heads(self):
        status, out, _ = self.score("the dogs sleep\tdogs>the the>sleep sleep>*\nthe cat sleeps\tcat>sleeps\n")
        self.assertEqual((status, out), (3, ["list:1: dogs>the: the head is sleep", "list:1: the>sleep: the head is dogs",
                                             "heads 2 of 4, sentences wholly right 1 of 2"]))
        self.assertEqual(self.score("the dogs zzz\tzzz>dogs")[1][0], "list:1: zzz>dogs: the head is none: no tree has the word")
        self.assertEqual(self.score("the cat the dogs\tcat>the dogs>*")[1][0], "list:1: cat>the: the head is *")

    def test_status(self):
        half = "the dogs sleep\tdogs>the\nthe cat sleeps\tcat>sleeps\n"
        for want, status in (("50", 0), ("50.1", 3), ("0", 0)):
            self.assertEqual(self.score(half, "--quiet", "--want", want)[:2],
                             (status, ["heads 1 of 2, sentences wholly right 1 of 2"]))

    def test_faults_of_the_list(self):
        for line, fault in (("the dogs sleep", "no tab"), ("the dogs sleep\tdogs sleep>*", "dogs is not WORD>HEAD"),
                            ("the dogs sleep\t>dogs", ">dogs is not WORD>HEAD"), ("the dogs sleep\tdogs>", "dogs> is not WORD>HEAD"),
                            ("the dogs sleep\tdogs>slepe", "dogs>slepe: the sentence has no word slepe; do you mean sleep?"),
                            ("the dogs sleep\tthe.2>dogs", "no word the.2"), ("\tdogs>the", "no word dogs")):
            status, out, errors = self.score(line + "\nthe cat sleeps\tcat>sleeps\n")
            self.assertEqual((status, out), (1, ["heads 1 of 1, sentences wholly right 1 of 1"]), line)
            self.assertIn(f"torvane: list:1: ", errors)
            self.assertIn(fault, errors)

    def test_what_cannot_be_read(self):
        for arguments, status, fault in ((["nosuch", "list"], 4, "no grammar nosuch"), ([GRAMMAR, "nosuch"], 1, "nosuch: No such file"),
                                         ([GRAMMAR], 2, "LIST is required")):
            done = subprocess.run([PROGRAM, "score", *arguments], capture_output=True, text=True)
            self.assertEqual(done.returncode, status)
            self.assertIn(fault, done.stderr)


if __name__ == "__main__":
    PROGRAM = os.path.abspath(sys.argv.pop(1))
    unittest.main()
