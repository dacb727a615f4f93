#!/usr/bin/env python3
"""The command line, run as users run it: what it takes, what it gives, what it ends with.

usage: command_line.py PROGRAM [TEST...]
"""
import json
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import time
import unittest

import conllu_rules

PROGRAM = None
SENTENCES = pathlib.Path(__file__).resolve().parent / "english" / "sentences.tsv"


def run(*arguments, given="", cwd=None, env=None):
    if isinstance(given, str):
        given = given.encode()
    done = subprocess.run([PROGRAM, *arguments], input=given, capture_output=True, cwd=cwd, timeout=300)
    return done.returncode, done.stdout, done.stderr.decode("utf-8", "replace")


def trees(*arguments, given="", universal=True):
    """The blocks of words of a parse that goes well, as rows of columns; the file keeps the rules."""
    status, out, errors = run("parse", "--quiet", *arguments, given=given)
    assert status == 0 and not errors, (status, errors)
    text = out.decode("utf-8", "surrogateescape")
    found = conllu_rules.faults(text, universal)
    assert not found, found[:5]
    return [[line.split("\t") for line in block if not line.startswith("#")]
            for _, block in conllu_rules.split(text)]


def column(block, number):
    return [row[number] for row in block]


class Rules(unittest.TestCase):
    """The rules themselves see what is wrong."""

    def test_faults_are_seen(self):
        row = "{}\t{}\t_\tNOUN\t_\t_\t{}\t{}\t_\t_\n"
        head = "# sent_id = 1\n# text = a b\n"
        good = head + row.format(1, "a", 0, "root") + row.format(2, "b", 1, "dep") + "\n"
        self.assertEqual(conllu_rules.faults(good), [])
        for wrong, to in (("\t1\tdep", "\t0\troot"), ("\t0\troot", "\t2\tdep"), ("2\tb", "3\tb"), ("\t1\tdep", "\t7\tdep"),
                          ("NOUN", "N"), ("text = a b", "text = a"), ("\tdep", "\tsubj"), ("# sent_id = 1\n", ""),
                          ("\t_\t_\n\n", "\t_\n\n"), ("1\ta", "1-3\tab" + 8 * "\t_" + "\n1\ta")):
            self.assertNotEqual(conllu_rules.faults(good.replace(wrong, to, 1)), [], (wrong, to))


class Output(unittest.TestCase):
    def test_every_word_of_many_sentences(self):
        lines = [line.split("\t")[0] for line in SENTENCES.read_text().splitlines() if line.strip()]
        lines = [line for line in lines if line and not line.startswith("#")]
        blocks = trees("--from", "lines", given="\n".join(lines) + "\n")
        self.assertEqual(len(blocks), len(lines))
        for line, block in zip(lines, blocks):
            self.assertEqual("".join(row[1] for row in block if "-" not in row[0]), "".join(line.split()))

    def test_columns(self):
        (block,) = trees(given='He gave the dogs to her, and she said: "Good".\n')
        words = {row[1]: row for row in block}
        self.assertEqual(words["gave"][2:8], ["give", "VERB", "V_N", "Mood=Ind|Number=Sing|Person=3|Tense=Past|VerbForm=Fin",
                                               "0", "root"])
        self.assertEqual(words["dogs"][2:8], ["dog", "NOUN", "NN", "Number=Plur", "2", "obj"])
        self.assertEqual(words["and"][3:8], ["CCONJ", "_", "_", words["said"][0], "cc"])
        self.assertEqual((words["her"][9], words[","][7]), ("SpaceAfter=No", "punct"))

    def test_styles_and_table(self):
        status, out, _ = run("parse", "--to", "table", "--style", "grammar", given="The cat sat on the mat.\n")
        self.assertEqual((status, out), (0, b"(\n1\t(The\t Det\t2)\n2\t(cat\t NN\t3)\n3\t(sat\t V\t*)\n4\t(on\t P_N\t3)\n"
                                            b"5\t(the\t Det\t6)\n6\t(mat\t NN\t4)\n7\t(.\t U\t3)\n)\n"))
        (block,) = trees(given="The cat sat on the mat.\n")
        self.assertEqual(column(block, 6), ["2", "3", "0", "6", "6", "3", "3"])
        self.assertEqual(column(block, 7), ["det", "nsubj", "root", "case", "det", "obl", "punct"])

    def test_json_counts_characters(self):
        status, out, _ = run("parse", "--to", "json", given='The caf\u00e9 was "n\u00efce".\n')
        sentence = json.loads(out)
        self.assertEqual((status, sentence["parts"]), (0, 1))
        for word in sentence["words"]:
            self.assertEqual(sentence["text"][word["start"]:word["end"]], word["form"])
        status, out, _ = run("parse", "--to", "json", given=b'a \xff \x01 "\\ word\n')
        self.assertEqual([word["form"] for word in json.loads(out)["words"]][:3], ["a", "\ufffd", "\x01"])

    def test_parts_and_cuts_are_told(self):
        status, out, errors = run("parse", given="dogs the of the the bark cats.\n")
        self.assertIn(b"# parts = ", out)
        self.assertIn("1 sentence, 0 whole, 1 in parts, 0 cut; ", errors)
        self.assertEqual(run("parse", "--strict", "--quiet", given="dogs the of the the bark cats.\n")[0], 3)
        self.assertEqual(run("parse", "--strict", "--quiet", given="Dogs bark.\n")[0], 0)
        status, out, errors = run("parse", "--max-words", "3", given="The cat sat on the mat today.\n")
        self.assertIn(b"# cut = words\n", out)
        self.assertIn("1 cut", errors)
        self.assertEqual(conllu_rules.faults(out.decode()), [])

    def test_given_words_stay(self):
        words = "Well-known U.S. cars do n't cost $ 5,000.00 etc. -- said Mr. O'Neil :-)".split()
        (block,) = trees("--from", "tokens", given="  ".join(words) + "\n")
        self.assertEqual(column(block, 1), words)


class Text(unittest.TestCase):
    """Running text: its sentences, its signs."""

    def sentences(self, given):
        status, out, errors = run("parse", "--quiet", given=given)
        self.assertEqual((status, errors), (0, ""))
        self.assertEqual(conllu_rules.faults(out.decode()), [])
        return [line.removeprefix("# text = ") for line in out.decode().splitlines()
                if line.startswith("# text") or line == "# newpar"]

    def test_sentences(self):
        for text, *rest in (("Mr. J. Smith paid $3.50. ", "It was old! ", '"Is it good?" he asked. ', "Dr. Brown left."),
                            ("She lives in the U.S. ", "They visited Acme Inc. in May. ", "Why? ", "I know.\nYes.\n"),
                            ("One line\ngoes on here. ", "A. Smith, e.g. Anna,  slept."),
                            ("It works!!! :-) ", "Really? ", "yes. ", "(See no. 5.) ", "Ask A. Brown at www.Here.Example.org, or node.js.")):
            whole = text + "".join(rest)
            want = [" ".join(one.replace("\n", " ").split("  ")).strip() for one in (text, *rest)]
            got = [" ".join(line.split("  ")) for line in self.sentences(whole) if line != "# newpar"]
            if want[-1].endswith("I know. Yes."):
                want[-1:] = ["I know.", "Yes."]
            self.assertEqual(got, want)

    def test_what_is_no_prose(self):
        given = ("Kind regards, Anna Brown 03/28/2001 05:09 PM It is here. It was good.She left...\nWhy?no -- see - Plan.doc "
                 "- Map.pdf Write to: anna@example.org Bye.\n")
        self.assertEqual(self.sentences(given)[1:],
                         ["Kind regards,", "Anna Brown", "03/28/2001 05:09 PM", "It is here.", "It was good.", "She left...",
                          "Why?", "no -- see - Plan.doc", "- Map.pdf Write to: anna@example.org", "Bye."])
        (first, second) = trees(given="It was good.She left.\n")
        self.assertEqual((column(first, 9)[-1], "".join(column(second, 1))), ("SpaceAfter=No", "Sheleft."))

    def test_paragraphs(self):
        self.assertEqual(self.sentences("A heading\n\n \r\nDogs bark. Cats sleep\n\nShe left.\n"),
                         ["# newpar", "A heading", "# newpar", "Dogs bark.", "Cats sleep", "# newpar", "She left."])

    def test_signs_stay_and_are_understood(self):
        plain = trees(given="He said: \"It isn't Anna's\" - and left ... at 5.\n")
        curly = trees(given="\ufeffHe said: \u201cIt isn\u2019t Anna\u2019s\u201d\u2014and\u00a0left\u2026at 5.\r\n")
        self.assertEqual(len(plain), 1)
        self.assertEqual([row[2:8] for row in plain[0] if row[3] != "PUNCT"],
                         [row[2:8] for row in curly[0] if row[3] != "PUNCT"])
        self.assertEqual([form for form in column(curly[0], 1) if ord(max(form)) > 127],
                         ["\u201c", "isn\u2019t", "n\u2019t", "Anna\u2019s", "\u2019s", "\u201d", "\u2014", "\u2026"])

    def test_text_is_never_a_form(self):
        text = '(exit) (system "touch hit") \\") (exit) ; (load x) "#. `(echo hit)`'
        with tempfile.TemporaryDirectory() as folder:
            status, out, errors = run("parse", "--from", "lines", given=text + "\n", cwd=folder)
            self.assertEqual((status, os.listdir(folder)), (0, []))
            self.assertIn(text.encode(), out)

    def test_bytes_that_are_no_utf8(self):
        status, out, errors = run("parse", "--quiet", given=b"Dogs \xff bark.\n\nCats \xc0\xaf sleep.\n")
        self.assertEqual((status, errors.count("\n")), (0, 1), errors)
        self.assertIn("standard input:1: ", errors)
        self.assertIn(b"2\t\xff\t", out)
        self.assertIn(b"2\t\xc0\xaf\t", out)


class Input(unittest.TestCase):
    def test_files_and_streams(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder)
            (path / "a").write_text("Dogs bark.\r\n\r\nCats sleep.")
            (path / "b").write_text("\ufeffShe sleeps.\n")
            status, out, errors = run("parse", "a", "missing", ".", "b", "-o", "out", "--quiet", cwd=folder, given="No.\n")
            self.assertEqual((status, out), (1, b""))
            self.assertEqual(errors.count("\n"), 2, errors)
            self.assertIn("missing: No such file", errors)
            texts = [line[9:] for line in (path / "out").read_text().splitlines() if line.startswith("# text = ")]
            self.assertEqual(texts, ["Dogs bark.", "Cats sleep.", "She sleeps."])

    def test_odd_bytes(self):
        for given in (b"\n" * 1000, b"", b"\x00\x01\x02\n", bytes(range(256)) * 20, b"a\x00b c\n", b"\xff\xfe\n" * 3,
                      b"(exit)\n\"); (exit)\n", b"x" * 100000 + b"\n", b"-" * 50000 + b"\n", b"a-" * 20000 + b"\n"):
            status, out, errors = run("parse", "--quiet", "--from", "lines", given=given)
            self.assertEqual(status, 0, (given[:20], errors))
            found = conllu_rules.faults(out.decode("latin-1").replace("\x85", "?").replace("\xa0", "?"))
            self.assertEqual([fault for fault in found if "blanks" not in fault[1] and "text" not in fault[1]], [])

    def test_a_long_sentence(self):
        (block,) = trees("--from", "lines", given="The old man who sleeps saw a dog " * 600 + ".\n")
        self.assertEqual(len(block), 4801)

    def test_a_line_is_answered_at_once(self):
        with subprocess.Popen([PROGRAM, "parse", "--quiet", "--from", "lines"], stdin=subprocess.PIPE,
                              stdout=subprocess.PIPE) as child:
            for word in ("Dogs bark.", "Cats sleep."):
                child.stdin.write(word.encode() + b"\n")
                child.stdin.flush()
                lines = []
                while not lines or lines[-1] != b"\n":
                    lines.append(child.stdout.readline())
                self.assertIn(b"# text = " + word.encode() + b"\n", lines)
            child.stdin.close()


class Trees(unittest.TestCase):
    """CoNLL-U in, drawings out."""

    ROW = "{}\t{}\t_\tX\t_\t_\t{}\t{}\t_\t{}\n"

    def block(self, *rows, head=""):
        return head + "".join(self.ROW.format(*(row + ("_",))[:5]) for row in rows) + "\n"

    def test_words_ranges_and_comments_stay(self):
        given = ("# sent_id = one\n# text = Don't  sleep!\n# source = here\n1-2\tDon't\t" + "\t".join("_" * 8) + "\n" +
                 self.block((1, "Do", 0, "root"), (2, "n't", 1, "x"), (3, "sleep", 1, "x", "Note=7|SpaceAfter=No"),
                            (4, "!", 1, "x")))
        (block,) = trees("--from", "conllu", given=given)
        self.assertEqual(column(block, 1), ["Don't", "Do", "n't", "sleep", "!"])
        self.assertEqual(column(block, 0)[0], "1-2")
        self.assertEqual((block[3][7], block[3][9]), ("root", "Note=7|SpaceAfter=No"))
        out = run("parse", "--from", "conllu", given=given)[1].decode()
        self.assertIn("# source = here\n", out)
        self.assertIn("# text = Don't  sleep!\n", out)

    def test_a_parse_reads_back(self):
        out = run("parse", "--quiet", "--max-words", "9", given="dogs the of bark. He said (on Monday) that it's so. "
                  "The cat that she saw sat on the mat and slept there all day.\n")[1]
        self.assertEqual(run("convert", "--to", "conllu", given=out), (0, out, ""))

    def test_words_without_heads(self):
        given = "# sent_id = 1\n# text = Dogs bark\n" + self.block((1, "Dogs", "_", "_"), (2, "bark", "_", "_"))
        self.assertEqual(run("convert", "--to", "conllu", given=given), (0, given.encode(), ""))
        self.assertNotIn("head", json.loads(run("convert", "--to", "json", given=given)[1])["words"][0])
        for drawing in ("tree", "brackets", "dot", "table", "deps"):
            self.assertEqual(run("convert", "--to", drawing, given=given)[0], 0)

    def test_wrong_sentences_are_told_and_left_out(self):
        good = self.block((1, "Dogs", 2, "x"), (2, "bark", 0, "root"))
        for wrong, line, what in ((good.replace("\tX", "", 1), 1, "columns"), (good.replace("2\tbark", "3\tbark"), 2, "id"),
                                  (good.replace("\t2\t", "\t9\t"), 1, "head 9"), (good.replace("\t0\t", "\t1\t"), 1, "circle"),
                                  (good.replace("\t2\t", "\ttwo\t"), 1, "head two"), (good.replace("Dogs", ""), 1, "column"),
                                  ("1-9\tx" + 8 * "\t_" + "\n" + good, 4, "range"), ("2-1\tx" + 8 * "\t_" + "\n" + good, 1, "range"),
                                  ("# text = x\n\n", 2, "words"), (good.replace("2\tbark", "# x\n2\tbark"), 2, "comment")):
            for command in (["parse", "--quiet", "--from", "conllu"], ["convert", "--to", "conllu"]):
                status, out, errors = run(*command, given=good + wrong + good)
                self.assertEqual((status, errors.count("\n"), out.count(b"\tbark\t")), (1, 1, 2), (what, errors))
                self.assertIn(f"standard input:{line + 3}: ", errors)
                self.assertIn(what, errors)

    def test_drawings(self):
        given = "The dogs bark (loudly).\n"
        status, out, _ = run("parse", "--to", "tree", given=given)
        self.assertEqual((status, out.decode()), (0, " ┌─┬── The     det     DET\n".replace("┌─┬──", "  ┌──") +
                                                  " ┌─┴── dogs    nsubj   NOUN\n─┼──── bark    root    VERB\n"
                                                  " │ ┌── (       punct   PUNCT\n ├─┼── loudly  advmod  ADV\n"
                                                  " │ └── )       punct   PUNCT\n └──── .       punct   PUNCT\n\n"))
        self.assertEqual(run("parse", "--to", "brackets", given=given)[1],
                         b"(root (nsubj (det The) dogs) bark (advmod (punct -LRB-) loudly (punct -RRB-)) (punct .))\n")
        dot = run("parse", "--to", "dot", given='Say "no".\n')[1].decode()
        self.assertIn('  1 -> 3 [label="', dot)
        self.assertIn('label="Say \\"no\\"."', dot)

    def test_threads_keep_the_order(self):
        given = "".join(f"The {number} dogs bark.\nCats sleep.\n" for number in range(300))
        one = run("parse", "--quiet", "--from", "lines", given=given)
        self.assertEqual(run("parse", "--quiet", "--from", "lines", "-j", "3", given=given), one)
        self.assertEqual(run("parse", "-j", "2", "--grammar", "nosuch", given=given)[0], 4)


class Ends(unittest.TestCase):
    def test_usage(self):
        for wrong in (["parse", "--no"], ["nosuch"], ["parse", "--to", "nosuch"], ["parse", "--from", "nosuch"],
                      ["parse", "--max-words", "0"], ["parse", "--max-words", "x"], ["parse", "-o"], ["--nosuch"]):
            status, out, errors = run(*wrong)
            self.assertEqual((status, out), (2, b""), wrong)
            self.assertIn("torvane: ", errors)
            self.assertIn("--help", errors)
        for good in (["--help"], ["parse", "--help"], ["--version"]):
            status, out, errors = run(*good)
            self.assertEqual((status, errors), (0, ""))
            self.assertTrue(out)

    def test_grammars(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder)
            (path / "none.lsp").write_text("(echo nothing)")
            (path / "exit.lsp").write_text("(exit)")
            (path / "torvane.lsp").write_text("(echo wrong) (exit)")
            for wrong in (["--grammar", "nosuch"], ["--grammar", "none.lsp"], ["--grammar", "./exit.lsp"],
                          ["--style", "nosuch"], ["--data", folder], ["--grammar", folder]):
                status, out, errors = run("parse", *wrong, cwd=folder, given="Dogs bark.\n")
                self.assertEqual((status, out), (4, b""), (wrong, errors))
                self.assertIn("torvane: ", errors)
            # The folder that one happens to be in does not matter.
            status, out, errors = run("parse", "--quiet", cwd=folder, given="Dogs bark.\n")
            self.assertEqual((status, errors), (0, ""))
            (path / "loud.lsp").write_text('(load torvane-own.lsp) (echo "printed by the grammar")')
            (path / "torvane-own.lsp").write_text(SMALL)
            status, out, errors = run("parse", "--quiet", "--grammar", "loud.lsp", "--to", "table", cwd=folder,
                                      given="the cat sleeps\n")
            self.assertEqual((status, errors), (0, "printed by the grammar\n"))
            self.assertEqual(out, b"(\n1\t(the\t Det\t2)\n2\t(cat\t N\t3)\n3\t(sleeps\t V\t*)\n)\n")

    def test_closed_pipe_and_full_disk(self):
        with subprocess.Popen([PROGRAM, "parse", "--quiet"], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE) as child:
            child.stdout.close()
            child.stdin.write(b"Dogs bark.\n" * 2000)
            child.stdin.close()
            self.assertEqual((child.stderr.read(), child.wait(60)), (b"", 0))
        status, _, errors = run("parse", "--quiet", "-o", "/dev/full", given="Dogs bark.\n")
        self.assertEqual((status, errors.count("\n")), (1, 1), errors)
        status, _, errors = run("parse", "--quiet", "-o", "/nosuch/file", given="Dogs bark.\n")
        self.assertEqual((status, errors.count("\n")), (1, 1), errors)

    def test_a_signal_leaves_whole_sentences(self):
        with tempfile.TemporaryDirectory() as folder:
            out = pathlib.Path(folder) / "out"
            with subprocess.Popen([PROGRAM, "parse", "--quiet", "-o", out], stdin=subprocess.PIPE) as child:
                child.stdin.write(b"The cat sat on the mat.\n" * 300)
                child.stdin.flush()
                for _ in range(600):
                    if out.exists() and out.stat().st_size:
                        break
                    time.sleep(0.05)
                child.send_signal(signal.SIGTERM)
                self.assertEqual(child.wait(60), -signal.SIGTERM)
                child.stdin.close()
            self.assertEqual(conllu_rules.faults(out.read_text()), [])
            self.assertIn("# sent_id = 1\n", out.read_text())


SMALL = """(load english/attributes.lsp)
(make-lexicon words 101)
(lex words (the (avm ((cat d)))) (cat (avm ((cat n)))) (sleeps (avm ((cat v)))))
(make-lex-analyzer analyser :lexicon words)
(def-torvane-parser parser :attribute-vector-type syn :lexical-analyzer analyser :lexical-attributes ()
  :show-attributes (cat) :default-percolating-attributes () :weights-of-words (int 10))
(init-attributes)
(def-category Det) (def-category N) (def-category V)
(def-modifiers N (? (Det (dep-type det))) (:head))
(def-modifiers V (? (N (dep-type subj))) (:head))
(roots (V))
"""

if __name__ == "__main__":
    PROGRAM = os.path.abspath(sys.argv.pop(1))
    unittest.main()
