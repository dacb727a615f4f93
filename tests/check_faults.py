#!/usr/bin/env python3
"""What `torvane check` finds: faults put one by one into the small grammar of tests/check, and nothing in what is right.

usage: check_faults.py PROGRAM TEST_CLASS
"""
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

import tutorial

HERE = pathlib.Path(__file__).resolve().parent
DATA = HERE.parent / "data"

# A fault: the file, what stands there, what is put in its place, and the finding: line and text. The line stands behind
# a file's name where the finding is in another one.
FAULTS = [
    # Parentheses and strings.
    ("network.lsp", "(percolate (num))))\n  (:head)", "(percolate (num)))\n  (:head)", 9, "still open at the end"),
    ("network.lsp", "(percolate (num))))\n  (:head)", "(percolate (num)))\n  (:head)", 9, "column 0 of line 14"),
    ("words.lex", "(sleep (avm ((cat v))))", "(sleep (avm ((cat v)))", 9, "column 0 of line 10"),
    ("rules.lsp", "(init-attributes)", "(init-attributes))", 16, "a stray parenthesis"),
    ("words.lsp", '"..."', '"...', 2, "a string that is not closed before the form in column 0 of line 5"),
    ("own.lsp", "(load trees.lsp)", "(load trees.lsp", 5, "still open at the end of the file"),
    # Unknown names, with the nearest one.
    ("network.lsp", "(def-category P ", "(def-categry P ", 4, "do you mean def-category?"),
    ("network.lsp", "(pitem-add-weight 2)", "(pitem-add-wieght 2)", 26, "do you mean pitem-add-weight?"),
    ("rules.lsp", "(lexitem (ending bare))", "(lexitm (ending bare))", 7, "do you mean lexitem?"),
    ("words.lex", "(num pl)", "(nmu pl)", 3, "do you mean num?"),
    ("rules.lsp", "(unifiable ((num sg)))", "(unifiable ((num sgl)))", 7, "do you mean sg?"),
    ("network.lsp", "(percolate (num))))", "(percolate (nun))))", 10, "do you mean num?"),
    ("attributes.lsp", "ref StrAtt", "ref StringAtt", 21, "do you mean StrAtt?"),
    ("network.lsp", "(? (Det ", "(? (Dett ", 10, "do you mean Det?"),
    ("network.lsp", "(def-modifiers V", "(def-modifiers Vb", 17, "the category 'Vb' is not defined"),
    ("words.lsp", "(node Adv)", "(node Advb)", 8, "do you mean Adv?"),
    ("trees.lsp", "(str= subj)", "(str= sbj)", 3, "nothing gives the relation 'sbj'; do you mean subj?"),
    ("words.lsp", "(load-lex words ", "(load-lex wrods ", 5, "do you mean words?"),
    ("rules.lsp", ":lexicon words", ":lexicon word", 8, "The lexicon file word is not found"),
    ("rules.lsp", ":lexical-analyzer analyser", ":lexical-analyser analyser", 15, "do you mean :lexical-analyzer?"),
    ("trees.lsp", "(set-deps-modifier parser subjects)", "(set-deps-modifier parser subject)", 8, "do you mean subjects?"),
    ("words.lsp", "(load-lex words words.lex)", "(set-tokenizer words)", 5, "unknown function set-tokenizer"),
    ("rules.lsp", "(insert-lex-rules rules likes", "(insert-lex-rules rules like", 6, "do you mean likes?"),
    ("words.lsp", '"" long', '"" short', 4, "the condition 'short' of an ending is not defined"),
    # Wrong number or kind of arguments.
    ("network.lsp", "(dep-weight 1.5)", "(dep-weight high)", 20, "'high' is no number"),
    ("network.lsp", "(dep-type subj)", "(dep-type subj obj)", 23, "dep-type takes 1 argument, and has 2"),
    ("network.lsp", "(modifier-cond (no-gap))", "(modifier-cond no-gap)", 12, "'no-gap' stands where a list is expected"),
    ("trees.lsp", "(set-rel (match) (str nsubj))", "(set-rel (match))", 4, "set-rel takes 2 arguments, and has 1"),
    ("rules.lsp", "(add-weight (litem) (int 1))", "(litem) (add-weight (litem) (int 1))", 5, "a pattern and one action"),
    ("network.lsp", "  (* (P (dep-type mod) (mod", "  (% (P (dep-type mod) (mod", 12, "the mark '%' of a position is not known"),
    # The network.
    ("network.lsp", "(def-modifiers P\n  (:head))", "(def-modifiers P\n  (* (Adv (dep-type mod))))", 14, "has no :head"),
    ("network.lsp", "(:head (V))", "(:head)", 6, "no link leads to its head"),
    ("network.lsp", "  (* (Adv (dep-type mod)))\n", "", 2, "'Adv' is never reached from the roots"),
    ("network.lsp", "(S (no-gap))", "(SS (no-gap))", 29, "the root 'SS' is not a category"),
    ("network.lsp", "(roots\n  (S (no-gap))\n  (N (t) (int 5)))", "", "rules.lsp:9", "there are no roots"),
    ("rules.lsp", "(init-attributes)", "", 9, "there is no (init-attributes)"),
    ("own.lsp", "(load rules.lsp)", "", "own.lsp:1", "the grammar makes no parser"),
    ("attributes.lsp", "  (defattribute cm BinAtt)\n", "", "rules.lsp:16", '"cm" is not an attribute'),
    ("attributes.lsp", "(defattribute args ListAtt)", "(defattribute args StrAtt)", "rules.lsp:16", "args cannot be of the class StrAtt"),
    ("network.lsp", "(def-modifiers P\n", "(visible-atts (num))\n(def-modifiers P\n", 14, "does nothing here"),
    # Words and rules.
    ("words.lex", "(dog (avm (noun)))", "(dog (amv (noun)))", 5, "a meaning of the kind 'amv' is dropped"),
    ("words.lex", "(mat (avm (noun)))", "(mat (avm noun))", 7, "the meaning is empty"),
    ("words.lex", "(like (avm (verb)))", "(like (avm (verb)))\n(dog (avm (noun)))", 13, "Duplicate entry: dog"),
    ("rules.lsp", "(ending s)", "(ending es)", 2, "no ending has the name 'es'"),
    ("rules.lsp", "(str= like)", "(str= liek)", 4, "no entry has the root 'liek'; do you mean like?"),
    ("trees.lsp", "(down ", "(downwards ", 5, "a tree rule begins with up, down, flat or root"),
    ("network.lsp", "(defun no-gap", "(defun no-gap () (t))\n(defun no-gap", 8, "Duplicate definition of no-gap"),
    ("network.lsp", "(def-modifiers P\n", "(def-modifiers N (:head))\n(def-modifiers P\n", 14, "defined twice"),
    ("attributes.lsp", "(role obj) (case acc)", "(role obj) (case acc) (num sg)", 26, "'num' in an argument is never tested"),
    ("trees.lsp", "(def-tree-rules", "(load rules.lsp own.lsp)\n(def-tree-rules", 1, "the files load each other"),
]


def check(folder, *arguments):
    done = subprocess.run([PROGRAM, "check", *arguments], cwd=folder, capture_output=True, text=True, timeout=60)
    assert done.returncode in (0, 1) and not done.stderr, done
    return done.returncode, done.stdout


class Faults(unittest.TestCase):
    def grammar(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        return pathlib.Path(shutil.copytree(HERE / "check", pathlib.Path(scratch.name, "own")))

    def test_each_is_found_with_its_line(self):
        for name, there, fault, line, text in FAULTS:
            folder = self.grammar()
            before = (folder / name).read_text()
            self.assertEqual(before.count(there), 1, there)
            (folder / name).write_text(before.replace(there, fault))
            status, out = check(folder, "own.lsp")
            place = line if isinstance(line, str) else f"{name}:{line}"
            with self.subTest(fault=fault):
                found = [row for row in out.splitlines() if row.startswith(f"./{place}: ") or row.startswith(f"{place}: ")]
                self.assertTrue(any(text in row for row in found), out)
                self.assertEqual(status, 1 if ": error: " in out else 0)

    def test_a_parenthesis_out_of_place_is_told_alone(self):
        for name, there, fault, _, text in FAULTS[:5]:
            folder = self.grammar()
            (folder / name).write_text((folder / name).read_text().replace(there, fault))
            own = [row for row in check(folder, "own.lsp")[1].splitlines() if f"{name}:" in row.split(": ")[0]]
            self.assertEqual(len(own), 1, own)

    def test_json(self):
        folder = self.grammar()
        (folder / "words.lex").write_text('("a\\"b" (amv ((cat n))))\n')
        rows = [json.loads(row) for row in check(folder, "--json", "own.lsp")[1].splitlines()]
        found = [row for row in rows if row["file"].endswith("words.lex")]
        self.assertEqual([(row["line"], row["severity"]) for row in found], [(1, "error")])
        self.assertIn('\'a"b\': a meaning of the kind \'amv\' is dropped', found[0]["text"])

    def test_no_such_grammar(self):
        done = subprocess.run([PROGRAM, "check", "nosuch"], capture_output=True, text=True)
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertIn("no grammar nosuch", done.stderr)

    def test_files_that_are_no_grammars(self):
        for text in ("", "(", ")", '"', "\x00\xff" * 1000, "(load own.lsp)", "(nosuch)", "(def-category N)", "(" * 100000):
            with tempfile.TemporaryDirectory() as folder:
                pathlib.Path(folder, "own.lsp").write_text(text, "latin-1")
                self.assertIn("own.lsp:", check(folder, "./own.lsp")[1])


class Clean(unittest.TestCase):
    """What is right has no findings."""

    def test_the_small_grammar_and_english(self):
        self.assertEqual(check(HERE / "check", "own.lsp"), (0, ""))
        for style in ("grammar", "content"):
            self.assertEqual(check(HERE, "--data", DATA, "--style", style, "english"), (0, ""))
        self.assertEqual(check(HERE, str(DATA / "torvane.lsp")), (0, ""))

    def test_english_with_the_large_lexicon(self):
        large = HERE.parent / "build" / "grammars"
        if not pathlib.Path("/usr/share/wordnet/index.noun").exists():
            self.skipTest("no WordNet to make it of")
        subprocess.run([HERE.parent / "script" / "lexicon"], check=True, stdout=subprocess.DEVNULL)
        self.assertEqual(check(HERE, "--data", large, "english"), (0, ""))

    def test_the_examples_of_the_page(self):
        page = (HERE.parent / "docs" / "grammar.md").read_text()
        no_grammars = {"nothing.lsp", "attributes.lsp", "words.lsp", "endings.lsp", "cut.lsp", "show.lsp"}
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            (folder / "data").symlink_to(DATA)
            steps = [(head, body) for kind, head, body in tutorial.BLOCK.findall(page) if kind == "lisp"]
            for head, body in steps:
                (folder / head).write_text(body)
            for head, _ in steps:
                if head not in no_grammars:
                    self.assertEqual(check(folder, "--data", DATA, "./" + head), (0, ""), head)


if __name__ == "__main__":
    PROGRAM = os.path.abspath(sys.argv.pop(1))
    unittest.main()
