#!/usr/bin/env python3
"""What the formats write, and what is read back from them.

usage: formats.py PROGRAM [TEST...]
"""
import fcntl
import json
import os
import pathlib
import pty
import random
import re
import struct
import subprocess
import sys
import tempfile
import termios
import unicodedata
import unittest
import xml.etree.ElementTree as xml

import command_line
from command_line import run

SVG = "{http://www.w3.org/2000/svg}"


def block(rows, name="1"):
    """CoNLL-U of rows (form, head, relation[, note])."""
    lines = [f"# sent_id = {name}\n"]
    for number, (form, head, relation, *note) in enumerate(rows, 1):
        lines.append(f"{number}\t{form}\t_\tX\t_\t_\t{head}\t{relation}\t_\t{note[0] if note else '_'}\n")
    return "".join(lines) + "\n"


def converted(given, *options, to):
    status, out, errors = run("convert", "--to", to, *options, given=given)
    assert (status, errors) == (0, ""), errors
    return out.decode()


def columns(text):
    return sum(0 if unicodedata.combining(c) else 2 if unicodedata.east_asian_width(c) in "WF" else 1 for c in text)


def read_some(terminal):
    try:
        return terminal.read(4096)
    except OSError:  # whoever wrote has closed it
        return b""


def random_tree(number, length):
    """Heads without any order, so that arcs cross."""
    chance = random.Random(number)
    order = list(range(1, length + 1))
    chance.shuffle(order)
    heads = {order[0]: 0}
    for place, word in enumerate(order[1:], 1):
        heads[word] = order[chance.randrange(place)] if chance.random() < 0.5 else order[max(0, place - 3)]
    words = ["i", "dog", "understanding", "e\u0301te\u0301", "\u6f02\u4eae", "<&>", "\U0001f389", "x" * 150]
    names = ["root", "nsubj", "nmod:unmarked", "obl"]
    return [(chance.choice(words), heads[i], chance.choice(names[1:]) if heads[i] else "root") for i in range(1, length + 1)]


class Drawings(unittest.TestCase):
    def test_arcs(self):
        bark = block([("The", 2, "det"), ("dogs", 3, "nsubj"), ("bark", 0, "root"), (".", 3, "punct")])
        self.assertEqual(converted(bark, to="arcs"), "             root\n ┌det─┐┌nsubj─┐│┌punct─┐\n"
                                                     " ▼    │▼      │▼│      ▼\nThe  dogs    bark      .\n"
                                                     " X     X       X       X\n\n")
        self.assertTrue(converted(bark, "--ascii", to="arcs").isascii())
        self.assertTrue(converted(bark, "--ascii", to="tree").isascii())

    def test_lines_keep_to_the_page(self):
        for number in range(30):
            rows = random_tree(number, 1 + 3 * number)
            for to in ("arcs", "tree"):
                for width in (20, 60, 100):
                    drawing = converted(block(rows), "--width", str(width), to=to)
                    if to == "arcs" or width > 60:
                        self.assertLessEqual(max(map(columns, drawing.split("\n"))), width, (number, to))
                    for form in {form for form, *_ in rows if len(form) < 9}:
                        self.assertGreaterEqual(drawing.count(form), sum(form == row[0] for row in rows), (number, to))
                    if to == "arcs":
                        self.assertEqual(drawing.count("▼"), len(rows))

    def test_the_window_has_a_width(self):
        ours, theirs = pty.openpty()
        fcntl.ioctl(theirs, termios.TIOCSWINSZ, struct.pack("HHHH", 24, 33, 0, 0))
        given = block([("word", max(i - 1, 0), "dep" if i > 1 else "root") for i in range(1, 11)])
        done = subprocess.run([command_line.PROGRAM, "convert", "--to", "arcs"], input=given.encode(), stdout=theirs)
        os.close(theirs)
        drawing = b""
        with open(ours, "rb", buffering=0) as terminal:
            while part := read_some(terminal):
                drawing += part
        lines = drawing.decode().split("\r\n")
        self.assertEqual(done.returncode, 0)
        self.assertLessEqual(max(map(columns, lines)), 33)
        self.assertEqual(sum("word" in line for line in lines), 2)

    def test_columns_of_wide_and_combining_signs(self):
        given = block([("\u6211", 2, "nsubj"), ("\u559c\u6b22", 0, "root"), ("e\u0301te\u0301", 2, "obj"), ("ok", 2, "x")])
        rows = converted(given, to="tree").split("\n")[:4]
        self.assertEqual({columns(row[:row.rindex("X")]) for row in rows}, {columns(rows[0][:rows[0].rindex("X")])})

    def test_svg_has_every_word_and_no_two_arcs_in_one_place(self):
        for number in range(25):
            rows = random_tree(100 + number, 2 + 4 * number)
            picture = xml.fromstring(converted(block(rows), to="svg"))
            texts = {kind: [e.text for e in picture.iter(SVG + "text") if kind in e.get("class").split()]
                     for kind in ("form", "label")}
            self.assertEqual([text[:20] for text in texts["form"]], [row[0][:20] for row in rows])
            self.assertEqual(sorted(texts["label"]), sorted(row[2] for row in rows))
            taken = {}
            width = float(picture.get("width"))
            for path in picture.iter(SVG + "path"):
                if path.get("class") == "tip" or "H" not in path.get("d"):
                    continue
                numbers = [float(n) for n in re.findall(r"-?[0-9.]+", path.get("d"))]
                (stop,) = re.findall(r"H(-?\d+)", path.get("d"))
                top = re.search(r"Q-?\d+ (-?\d+)|M-?\d+ (-?\d+)H", path.get("d"))
                left, right = min(numbers[0], float(stop)), max(numbers[0], float(stop))
                self.assertTrue(0 <= left <= right <= width, path.get("d"))
                taken.setdefault(top[1] or top[2], []).append((left, right))
            for spans in taken.values():
                spans.sort()
                for (_, right), (left, _) in zip(spans, spans[1:]):
                    self.assertLessEqual(right, left, (number, spans))

    def test_lines_of_an_svg_follow_the_width(self):
        rows = [("word", 1 if i else 0, "dep" if i else "root") for i in range(40)]
        sizes = {}
        for width in (40, 100, 1000):
            picture = xml.fromstring(converted(block(rows), "--width", str(width), to="svg"))
            forms = [e for e in picture.iter(SVG + "text") if e.get("class") == "form"]
            sizes[width] = len({e.get("y") for e in forms})
            self.assertLessEqual(float(picture.get("width")), 9 * width + 40)
        self.assertTrue(sizes[40] > sizes[100] > sizes[1000] == 1, sizes)

    def test_right_to_left(self):
        rows = [("\u05d4\u05db\u05dc\u05d1", 2, "nsubj"), ("\u05e0\u05d1\u05d7", 0, "root"), (".", 2, "punct")]
        forms = [float(e.get("x")) for e in xml.fromstring(converted(block(rows), to="svg")).iter(SVG + "text")
                 if e.get("class") == "form"]
        self.assertEqual(forms, sorted(forms, reverse=True))

    def test_page(self):
        rows = [("dogs", 3, "dep", "Torvane=part"), ("</svg><script>", 3, "dep", "Torvane=outside"), ("bark", 0, "root")]
        page = converted(block(rows, 'a"<b>') + block([("Yes", 0, "root")], "2"), to="html")
        self.assertEqual((page.count("<svg"), page.count("<figure"), page.count("<script"), page.count("http")), (2, 2, 0, 2))
        self.assertTrue(page.startswith("<!DOCTYPE html>") and page.endswith("</html>\n"))
        self.assertEqual((page.count('"arc loose"'), page.count('"word loose"')), (2, 1))
        body = xml.fromstring(page[page.index("<body>"):page.index("</html>")])
        self.assertEqual([figure.get("id") for figure in body.iter("figure")], ['sa"<b>', "s2"])
        self.assertEqual(run("convert", "--to", "html", given="")[1].count(b"<figure"), 0)

    def test_hostile_signs_make_no_broken_picture(self):
        form = "\x01\x7f\ufffe\"'&]]>".encode() + b"\xff\xc0\xaf"
        given = block([("A", 0, "root")]).encode().replace(b"\tA\t", b"\t" + form + b"\t")
        for to in ("svg", "html", "arcs", "tree"):
            status, out, _ = run("convert", "--to", to, given=given)
            self.assertEqual(status, 0)
            if to == "svg":
                xml.fromstring(out)


class TreeText(unittest.TestCase):
    """Tree text in."""

    TREE = """(:id 7
1\t(The\tthe Det\t2\tdet)
2\t(dogs\tdog NN\t3\tsubj)
3\t(bark\t~ V\t*) :nogap
4\t(.)
)
"""
    TEXT = "The old dog that barked slept, didn't it? \"Dogs (all of them) bark\", he said. dogs the of bark. New York is old.\n"

    def test_there_and_back(self):
        parse = ["parse", "--quiet", "--style", "grammar", "--to", "deps"]
        given = run(*parse, given=self.TEXT)[1]
        self.assertEqual(run(*parse, "--from", "trees", given=given), (0, given, ""))
        self.assertEqual(run("convert", "--from", "trees", "--to", "deps", given=given), (0, given, ""))
        # Through CoNLL-U, which has all that the tree text has.
        conllu = run("convert", "--from", "trees", "--to", "conllu", given=given)[1]
        self.assertEqual(run("convert", "--to", "deps", given=conllu)[1], given)
        self.assertEqual(run("convert", "--to", "conllu", given=conllu)[1], conllu)

    def test_tree_rules_run(self):
        (block,) = command_line.trees("--from", "trees", given=self.TREE)
        self.assertEqual([row[1:4] + row[6:8] for row in block],
                         [["The", "the", "DET", "2", "det"], ["dogs", "dog", "NOUN", "3", "nsubj"],
                          ["bark", "bark", "VERB", "0", "root"], [".", ".", "PUNCT", "3", "punct"]])
        text = run("parse", "--quiet", "--from", "trees", given=self.TREE)[1].decode()
        self.assertTrue(text.startswith("# sent_id = 7\n# text = The dogs bark.\n"), text)
        two = self.TREE * 2 + self.TREE.replace("\n", " ")
        self.assertEqual(run("parse", "--from", "trees", "-j", "2", given=two)[1].count(b"sent_id"), 3)

    def test_heads_by_label_direction_and_place(self):
        for head in ("x", "- x", "< dogs", "<< dogs"):
            tree = f"((a ~ U {head} r) b (dogs ~ N *) x (dogs dog N *) ; (\n E0 (() ~ C b r) (in ~ P E0 s))"
            words = converted(tree, "--from", "trees", to="table")
            place = "2" if head == "< dogs" else "3"
            self.assertIn(f"(a\t U\t{place})", words)
            self.assertIn("(in\t P\t2)", words)

    def test_a_bare_word_may_be_a_head(self):
        words = converted("(1 (a ~ N 2 x) 2 (b) 3 (c))", "--from", "trees", to="table")
        self.assertEqual(words, "(\n1\t(a\t N\t2)\n2\t(b\t U\t*)\n3\t(c\t U\t2)\n)\n")

    def test_wrong_trees_are_told_and_left_out(self):
        for wrong, line, what in (("(:id 8\n1 (a ~ N 2 x)\n2 (b ~ N 9 x)\n)\n", 3, "no head 9"),
                                  ("(\n1 (a ~ N 2 x)\n2 (b ~ N 1 x)\n)\n", 2, "a circle"),
                                  ("(\n1 (a ~ N 1 x)\n)\n", 2, "a circle"),
                                  ("(\n1 (a ~ N *)\n1 (b ~ N *)\n)\n", 3, "label 1"),
                                  ("(:id 9\n1 (a ~ N *)\n", 1, "not closed"), ('(\n1 ("a ~ N *)\n)\n', 1, "not closed"),
                                  (")\n", 1, "closes nothing"), ("dogs bark\n1\t(a)", 1, "outside"),
                                  ("(\n)\n", 1, "without words"), ("(E0 (() ~ C *))\n", 1, "without words")):
            for command in (["parse", "--quiet"], ["convert"]):
                status, out, errors = run(*command, "--from", "trees", "--to", "conllu", given=self.TREE + wrong + self.TREE)
                self.assertEqual((status, out.count(b"\tbark\t")), (1, 2), (wrong, errors))
                self.assertIn(f"standard input:{line + 6}: ", errors)
                self.assertIn(what, errors)

    def test_a_tree_ends_with_its_file(self):
        with tempfile.TemporaryDirectory() as folder:
            for name, text in (("a", self.TREE[:-2]), ("b", self.TREE), ("c", "1\tDogs\n"),
                               ("d", block([("Dogs", 0, "root")]).rstrip()), ("e", block([("Cats", 0, "root")]))):
                pathlib.Path(folder, name).write_text(text)
            status, out, errors = run("convert", "--from", "trees", "a", "b", cwd=folder)
            self.assertEqual((status, out.count(b"bark"), errors.startswith("torvane: a:1: ")), (1, 1, True), errors)
            status, out, errors = run("convert", "--to", "brackets", "d", "c", "e", cwd=folder)
            self.assertEqual((status, out, errors.startswith("torvane: c:1: ")), (1, b"(root Dogs)\n(root Cats)\n", True), errors)


class Json(unittest.TestCase):
    def test_hostile_texts(self):
        """Whatever stands in a column comes out as a JSON parser reads it."""
        chance = random.Random(5)
        signs = [bytes([b]) for b in range(1, 256) if b not in b"\t\n\r "] + [s.encode() for s in "\u2028\ufeff\U0010ffff\u0301\u00e9"]
        forms = [bytes([b]) for b in range(1, 256) if b not in b"\t\n\r _"]
        forms += [b"".join(chance.choice(signs) for _ in range(chance.randrange(1, 12))) for _ in range(500)]
        forms = [form for form in forms if form != b"_"]
        given = b"# sent_id = \"\\\x01\n" + b"".join(b"%d\t%s\t_\tX\t_\t_\t%d\tdep\t_\t_\n" % (i + 1, form, i)
                                                  for i, form in enumerate(forms)) + b"\n"
        status, out, _ = run("convert", "--to", "json", given=given)
        sentence = json.loads(out)
        self.assertEqual((status, sentence["id"], out.count(b"\n")), (0, '"\\\x01', 1))
        for word, form in zip(sentence["words"], forms):
            try:
                self.assertEqual(word["form"], form.decode())
            except UnicodeDecodeError:
                self.assertIn("\ufffd", word["form"])
            self.assertEqual(sentence["text"][word["start"]:word["end"]], word["form"])

    def test_members(self):
        out = run("parse", "--quiet", "--to", "json", given="It isn't caf\u00e9 of the the bark.\n")[1]
        sentence = json.loads(out)
        self.assertGreater(sentence.pop("cost"), 0)  # CoNLL-U has none
        self.assertEqual(sorted(sentence), ["id", "parts", "ranges", "text", "words"])
        self.assertEqual(sentence["ranges"], [{"first": 2, "last": 3, "form": "isn't"}])
        for word in sentence["words"]:
            self.assertEqual(sentence["text"][word["start"]:word["end"]], word["form"])
        self.assertEqual([word["id"] for word in sentence["words"]], list(range(1, len(sentence["words"]) + 1)))
        self.assertEqual([word["head"] for word in sentence["words"]].count(0), 1)
        # All of it comes from CoNLL-U, and goes there.
        conllu = run("parse", "--quiet", given="It isn't caf\u00e9 of the the bark.\n")[1]
        self.assertEqual(json.loads(run("convert", "--to", "json", given=conllu)[1]), sentence)


class Ranges(unittest.TestCase):
    """Words that are written as one."""

    TEXT = "He isn't here; it's the children's. Don't go, she said, I'd've slept.\n"

    def test_of_a_parse(self):
        blocks = command_line.trees(given=self.TEXT)
        ranges = [row[:2] + [row[9]] for block in blocks for row in block if "-" in row[0]]
        self.assertEqual([form for _, form, _ in ranges], ["isn't", "it's", "children's", "Don't", "I'd've"])
        self.assertEqual([misc for *_, misc in ranges], ["_", "_", "SpaceAfter=No", "_", "_"])
        words = [row[1:3] for block in blocks for row in block if "-" not in row[0]]
        for pair in (["is", "be"], ["n't", "not"], ["Do", "do"], ["children", "child"], ["'d", "'d"], ["'ve", "have"]):
            self.assertIn(pair, words)
        # Pieces of a long sentence keep theirs.
        (block,) = command_line.trees("--max-words", "3", "--from", "lines", given="The old cat isn't the old dog's cat.\n")
        self.assertEqual([row[:2] for row in block if "-" in row[0]], [["4-5", "isn't"], ["8-9", "dog's"]])

    def test_other_signs_of_the_text(self):
        (block,) = command_line.trees(given="\u201cIt isn\u2019t\u201d, he said\u2014DIDN\u2019T.\n")
        self.assertEqual([row[1] for row in block if "-" in row[0]], ["isn\u2019t", "DIDN\u2019T"])
        self.assertIn("n\u2019t", [row[1] for row in block])

    def test_given_words_have_none(self):
        (block,) = command_line.trees("--from", "tokens", given="He is n't here , isn't it 's\n")
        self.assertEqual([row[1] for row in block], "He is n't here , isn't it 's".split())

    def test_there_and_back(self):
        given = run("parse", "--quiet", given=self.TEXT)[1]
        self.assertEqual(run("convert", "--to", "conllu", given=given), (0, given, ""))


if __name__ == "__main__":
    command_line.PROGRAM = os.path.abspath(sys.argv.pop(1))
    unittest.main()
