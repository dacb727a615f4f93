#!/usr/bin/env python3
"""The prompt: through a pipe, and at a terminal as somebody types.

usage: repl.py PROGRAM DATA [TEST...]
"""
import os
import pathlib
import pty
import re
import select
import signal
import subprocess
import sys
import tempfile
import termios
import time
import unittest

PROGRAM = DATA = None
TESTS = pathlib.Path(__file__).resolve().parent

GRAMMAR = """(load syn.lsp)
(make-lexicon words 101)
(lex words (dog (avm ((cat n)))) (cat (avm ((cat n)))) (barks (avm ((cat v)))) (near (avm ((cat p)))))
(make-lex-analyzer analyser :lexicon words)
(def-torvane-parser parser :attribute-vector-type syn :lexical-attributes (lexitem)
  :show-attributes (cat num) :default-percolating-attributes ()
  :weights-of-words (int 5) :lexical-analyzer analyser)
(init-attributes)
(def-category N (visible-atts (lexitem)))
(def-category V (visible-atts (lexitem)))
(def-category P (visible-atts (lexitem)))
(def-modifiers N (* (N (dep-type nn)) (N (dep-type mm))) (:head) (* (P (dep-type mod))))
(def-modifiers P (:head) (? (N (dep-type comp))))
(def-modifiers V (? (N (dep-type subj))) (:head) (* (P (dep-type mod) (dep-weight 2))))
(roots (V) (N (t) (int 4)))
"""


class Prompt(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "syn.lsp").write_text((TESTS / "scenarios/syn.lsp").read_text())
        self.grammar = self.folder / "own.lsp"
        self.grammar.write_text(GRAMMAR)
        self.command = [PROGRAM, "repl", "--grammar", str(self.grammar), "--to", "brackets"]
        self.environment = {**os.environ, "HOME": str(self.folder), "TERM": "xterm"}


class Pipe(Prompt):
    def run_lines(self, *lines):
        done = subprocess.run(self.command, input="\n".join(lines) + "\n", capture_output=True, text=True, timeout=60,
                              env=self.environment)
        self.assertEqual(done.returncode, 0)
        return done.stdout, done.stderr

    def test_commands(self):
        out, errors = self.run_lines(
            "dog barks near cat", ":next", ":next", ":next", ":cost", ":why near dog", ":next", ":readings dog",
            ":items P", ":save tree.txt", f":save {self.folder}/tree.json", ":set format table", ":set format nosuch",
            ":why 1", ":why cow dog", ":set style nosuch", ":nxt", ":")
        for part in ("(root (subj dog) barks (mod near (comp cat)))\n", "there is no other tree\n", "the words by themselves",
                     "Why is 3 near not under 1 dog?", "1 dog:\n  dog  N  dog", "Node: P\n", "written as json",
                     "no format nosuch", ":why takes two words", "the sentence has no word cow", "do you mean next?"):
            self.assertIn(part, out)
        self.assertIn("has no style nosuch", errors)
        self.assertIn('"form":"barks"', (self.folder / "tree.json").read_text())
        out, _ = self.run_lines(":next", "(p3 dog", ")", "(exit)", "dog barks")
        self.assertTrue(out.startswith("no sentence was parsed yet\n\n(\n  (N dog"), out)
        self.assertNotIn("barks", out)

    def test_trees_go_on_after_an_explanation(self):
        sentence = "dog cat dog barks near dog"
        plain, _ = self.run_lines(sentence, ":next", ":next", ":next")
        asked, _ = self.run_lines(sentence, ":next", ":cost", ":next", ":next")
        trees = [line for line in plain.splitlines() if line.startswith("(root")]
        self.assertGreater(len(trees), 2)
        self.assertEqual(trees, [line for line in asked.splitlines() if line.startswith("(root")])

    def test_reload(self):
        session = subprocess.Popen(self.command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
                                   env=self.environment)
        self.addCleanup(session.stdout.close)

        def ask(line, lines):
            session.stdin.write(line + "\n")
            session.stdin.flush()
            return [session.stdout.readline().rstrip() for _ in range(lines)]
        ask("dog barks near cat", 1)
        self.grammar.write_text(GRAMMAR.replace("(:head) (* (P (dep-type mod) (dep-weight 2)))", "(:head) (* (P (dep-type place)))"))
        told = ask(":reload", 3)
        self.assertEqual(told[:2], ["(root (subj dog) barks (place near (comp cat)))",
                                    "3 near:  mod of 2 barks ->  place of 2 barks"])
        self.grammar.write_text("(load nosuch")
        ask(":reload", 0)
        self.assertEqual(ask("dog barks", 1), ["(root (subj dog) barks)"])
        session.stdin.close()
        self.assertEqual(session.wait(timeout=20), 0)


class Terminal(Prompt):
    def start(self):
        process, terminal = pty.fork()
        if process == 0:
            # What libedit leaves behind at the end is its own.
            os.execve(PROGRAM, self.command, {**self.environment, "ASAN_OPTIONS": "detect_leaks=0"})
        self.process, self.terminal, self.seen = process, terminal, ""

    def wait_for(self, pattern, seconds=20):
        """What came up to where the pattern fits."""
        end = time.monotonic() + seconds
        while not (found := re.search(pattern, self.seen)):
            self.assertLess(time.monotonic(), end, self.seen)
            if select.select([self.terminal], [], [], 0.1)[0]:
                try:
                    self.seen += os.read(self.terminal, 4096).decode("utf-8", "replace")
                except OSError:
                    self.fail("the program ended: " + self.seen)
        came, self.seen = self.seen[:found.end()], self.seen[found.end():]
        return came

    def type(self, text):
        """At the prompt: what comes before it is for nobody."""
        self.wait_for("> ")
        end = time.monotonic() + 20
        while termios.tcgetattr(self.terminal)[3] & termios.ICANON:  # the prompt comes before its own mode of the line
            self.assertLess(time.monotonic(), end)
            time.sleep(0.001)
        os.write(self.terminal, text.encode())

    def end(self):
        self.type("\x04")
        end = time.monotonic() + 20
        while not (ended := os.waitpid(self.process, os.WNOHANG))[0]:
            self.assertLess(time.monotonic(), end, self.seen)
            time.sleep(0.01)
        status = ended[1]
        os.close(self.terminal)
        self.assertEqual(status, 0)

    def test_a_session(self):
        self.start()
        self.type("dog ba\t\r")
        self.wait_for(r"\(root \(subj dog\) barks\)")
        self.type(":wh\t\r")
        self.wait_for("the words by themselves")
        self.type(":set for\tbra\t\r")
        self.wait_for(r"\(root \(subj dog\) barks\)")
        self.type("no such words\x03")
        self.wait_for(r"\^C\r?\n")
        self.type("cat barks\r")
        self.wait_for(r"\(root \(subj cat\) barks\)")
        self.end()
        self.start()  # the history is that of the last session
        self.type("\x1b[A\r")
        self.wait_for(r"\(root \(subj cat\) barks\)")
        self.end()
        self.assertIn("cat", (self.folder / ".local/state/torvane/history").read_text())

    def test_interrupt_in_a_parse(self):
        self.start()
        self.type("dog " * 190 + "barks\r")
        for _ in range(300):
            os.kill(self.process, signal.SIGINT)
            time.sleep(0.002)
        self.wait_for("stopped: this is what there was by then")
        self.type("cat barks\r")
        self.wait_for(r"\(root \(subj cat\) barks\)")
        self.end()


if __name__ == "__main__":
    PROGRAM, DATA = str(pathlib.Path(sys.argv[1]).resolve()), sys.argv[2]
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
