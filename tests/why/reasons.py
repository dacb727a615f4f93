#!/usr/bin/env python3
"""What `torvane why` says: one small grammar for each kind of reason, and sentences of English.

usage: reasons.py PROGRAM DATA [TEST...]
"""
import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

PROGRAM = DATA = None
TESTS = pathlib.Path(__file__).resolve().parent.parent

# A grammar is what stands here, with WORDS, RULES and the network of its case.
FRAME = """(load syn.lsp)
(make-lexicon words 101)
(lex words {words})
(def-rules rules {rules})
(make-lex-analyzer analyser :lexicon words :lexical-rules rules)
(def-torvane-parser parser :attribute-vector-type syn :lexical-attributes (lexitem)
  :show-attributes (cat num) :default-percolating-attributes ()
  :weights-of-words (int 5) :lexical-analyzer analyser)
(init-attributes)
(def-category N (visible-atts (lexitem num cm)))
(def-category V (visible-atts (lexitem num move govern)))
(def-category P (visible-atts (lexitem)))
{network}
"""
WORDS = """
(dog (avm ((cat n) (num sg)))) (dogs (avm ((cat n) (num pl)))) (cat (avm ((cat n) (num sg))))
(barks (avm ((cat v) (num sg)))) (bark (avm ((cat v) (num pl)))) (near (avm ((cat p)))) (and (avm ((cat j))))
(sheep (avm ((cat n) (num sg))) (avm ((cat n) (num pl))))
(asks (avm ((cat v) (args ((cat p) (role topic)) ((cat n) (role given))))))
(hour (avm ((cat n) -cm)))
(lacks (avm ((cat v) (move ((slash np) (num pl))))))
(bank (avm ((cat p))) (avm ((cat n) (num sg))))
"""
ROOTS = "(roots (V) (N (t) (int 4)) (P (t) (int 4)))"


def network(**positions):
    return "\n".join(f"(def-modifiers {node}\n  {text})" for node, text in positions.items()) + "\n" + ROOTS


BEFORE = network(N="(:head)", P="(:head)", V="(? (N (dep-type subj)))\n  (:head)")


def before(commands):
    return BEFORE.replace("(dep-type subj)", "(dep-type subj)\n    " + commands)


BEHIND = network(N="(:head)\n  (* (P (dep-type mod)))", P="(:head)",
                 V="(:head)\n  (* (N (dep-type obj))\n     (P (dep-type mod) (dep-weight 5)))")

JOINED = "(def-category N (conj-atts () (num)))\n" + network(N="(:head)", P="(:head)", V="(:head)")
JOINS = "(joins (lexitem (comp (root) (str= and))) (flag-last-conjunction (litem)))"

# Kind, sentence, modifier, head, network, rules, and what the answer says: its text and details, and its line of the
# network (0: no place).
CASES = [
    ("chosen", "dog barks", "dog", "barks", BEFORE, "", ["'dog' is under 'barks' already"], None),
    ("chosen", "dog barks", "barks", "0", BEFORE, "", ["'barks' is the root"], None),
    ("dearer", "barks dog near", "near", "barks", BEHIND, "", ["dearer by 5.4"], None),
    ("no-result", "dogs barks", "barks", "dogs",
     network(N="(:head)\n  (? (V (dep-type rel)))", V="(:head)", P="(:head)").replace(ROOTS, "(roots (V))"), "",
     ["no tree of the sentence has it"], None),
    ("elsewhere", "near dog barks", "dog", "near", BEFORE.replace("P\n  (:head)", "P\n  (:head)\n  (? (N (dep-type comp)))"),
     "", ["it is in a tree over 'near dog'"], None),
    # Of the words.
    ("no-reading", "near barks", "near", "barks", BEFORE, "", ["no link of the grammar takes a reading of 'near'"], None),
    ("lost-reading", "bank barks", "bank", "barks", BEFORE,
     "(no-nouns bank\n  (keep-tags (pred (comp (att) (att-str-val cat) (str= p)))))",
     ["the reading N of 'bank' was dropped by the rule no-nouns"], None),
    ("wrong-side", "barks dog", "dog", "barks", BEFORE, "", ["takes what stands before the head"], 6),
    # Of the phrases.
    ("no-item", "dog barks", "dog", "barks",
     BEFORE.replace("(def-modifiers N\n  (:head))", "(def-modifiers N\n  ((P (dep-type case)))\n  (:head))"), "",
     ["'dog' never became the head of a complete N", "must have before it: P (case)"], None),
    ("no-item", "dogs barks", "dogs", "barks",
     "(def-category N (full-pitem-cond\n  (pitem-attvec (contain ((num sg))))))\n" + BEFORE, "",
     ["'dogs' never became the head of a complete N", "(contain ((num sg))): it has (num pl)"], None),
    ("no-item", "dogs barks", "dogs", "barks",
     "(def-category NP (visible-atts (lexitem num)))\n" +
     BEFORE.replace("(? (N (dep", "(? (NP (dep").replace(ROOTS, "") +
     "(def-modifiers NP (:head (N\n  (head-cond\n   (pitem-attvec (contain ((num sg))))))))\n" + ROOTS, "",
     ["'dogs' never became the head of a complete NP", "the condition for N 'dogs' to become NP is false"], 11),
    ("not-neighbours", "dog near barks", "dog", "barks", BEFORE, "",
     ["N 'dog' and V 'barks' do not meet", "'near' lies between"], 6),
    ("passed", "barks near dog", "dog", "barks",
     network(N="(:head)", P="(:head)", V="(:head)\n  (? (N (dep-type obj)))\n  (? (P (dep-type mod)))"), "",
     ["has gone past the position of the link"], 7),
    ("passed", "dog cat barks", "dog", "barks", BEFORE, "", ["has filled the position of the link already"], 6),
    ("required-empty", "dog barks", "dog", "barks",
     network(N="(:head)", P="(:head)", V="(? (N (dep-type subj)))\n  ((P (dep-type aux)))\n  (:head)"), "",
     ["must first have, nearer to it: P (aux)"], 6),
    ("required-empty", "dog barks", "dog", "barks",
     network(N="(:head)", P="(:head)", V="((P (dep-type aux)))\n  (? (N (dep-type subj)))\n  (:head)"), "",
     ["it was made, but V 'dog barks' must have before it: P (aux)"], 7),
    ("too-far", "dog cat barks", "dog", "barks",
     before("(max-dist 1)").replace("(? (N", "(* (N"), "", ["reaches over 2 words", "no more than 1"], 6),
    ("isolated", "dog cat barks", "cat", "barks", BEFORE.replace("(? (N", "(* (N"),
     "(alone dog (isolate (int 1) (int 2)))", ["a rule has isolated a stretch"], 6),
    # Of the tests.
    ("condition", "dogs barks", "dogs", "barks", before("(modifier-cond (and (t)\n      (pitem-attvec (contain ((num sg))))))"),
     "", ["the modifier-cond for 'dogs' is false: (and (t) (pitem-attvec (contain ((num sg)))))",
          "(contain ((num sg))): it has (num pl)"], 8),
    ("condition", "dogs barks", "dogs", "barks",
     "(defun no-plural () (pitem-attvec\n  (not (contain ((num pl))))))\n" + before("(modifier-cond (no-plural))"),
     "", ["(no-plural), which is (pitem-attvec (not (contain ((num pl)))))", "(contain ((num pl))): it holds"], 2),
    ("condition", "dogs barks", "dogs", "barks",
     before("(modifier-cond (or (pitem-attvec (contain ((num sg)))) (nil)))"), "", ["none of its parts holds"], 7),
    ("condition", "dogs barks", "dogs", "barks", before("(modifier-cond (pitem-head-word (str= cats)))"), "",
     ["(str= cats): it is 'dogs'"], 7),
    ("condition", "dogs barks", "dogs", "barks",
     before("(modifier-cond (cond ((nil) (t)) ((pitem-attvec (contain ((num pl)))) (nil)) ((t) (t))))"), "",
     ["(nil)"], 7),
    ("condition", "dogs barks", "dogs", "barks", before("(modifier-cond (int-gt (pitem-length) (int 0)))"), "",
     ["they are 0 and 0"], 7),
    ("condition", "dogs barks", "dogs", "barks", before("(modifiee-cond (pitem-attvec (contain ((num pl)))))"), "",
     ["the modifiee-cond for 'barks' is false", "it has (num sg)"], 7),
    ("condition", "dogs barks", "dogs", "barks", before("(merged-cond (pitem-modifier (pitem-attvec (contain ((num sg))))))"),
     "", ["the merged-cond for 'dogs barks' is false", "it has (num pl)"], 7),
    ("attribute", "dogs barks", "dogs", "barks", before("(percolate (num))"), "", ["do not unify: num: pl against sg"], 6),
    ("frame", "asks dog", "dog", "asks", network(N="(:head)", P="(:head)", V="(:head)"), "",
     ["the frame of 'asks' asks for another argument before this one"], None),
    ("no-item", "dog asks near", "asks", "dog",
     network(N="(:head)\n  (? (V (dep-type rel)))", P="(:head)", V="(:head)"), "",
     ["'asks' never became the head of a complete V", "V_P_N 'asks' has a frame that still asks for P (comp1)"], None),
    ("moved", "dog lacks", "dog", "lacks", before("(check-slash np)"), "", ["does not fill what is missing"], 6),
    ("case-mark", "hour barks", "hour", "barks", before("(percolate (cm))"), "", ["'barks' gives it none"], 6),
    ("not-neighbours", "dog cat", "cat", "dog", JOINED, JOINS, ["no conjunction stands before N 'cat'"], 1),
    ("chosen", "dog and cat", "cat", "dog", JOINED, JOINS, [], None),
    ("attribute", "dog and dogs", "dogs", "dog", JOINED, JOINS, ["do not unify: num: pl against sg"], 1),
    ("condition", "dog and cat", "cat", "dog",
     JOINED + "(def-conj-constraints N (merged-cond (int-eq (pitem-length) (int 0))))", JOINS,
     ["the merged-cond for 'dog and cat' is false", "they are 2 and 0"], 8),
    ("incomplete", "dogs barks", "dogs", "barks",
     "(def-category V (full-pitem-cond\n  (int-eq (pitem-length) (int 0))))\n" + BEFORE, "",
     ["it was made, but the condition on a whole V 'dogs barks' is false", "they are 1 and 0"], None),
    ("equal-item", "sheep bark", "sheep", "bark",
     "(def-category N (visible-atts (cm)))\n" + before("(percolate (num))"), "",
     ["an equal N 'sheep' was there before", "of that one: values of 'sheep' and 'bark' do not unify"], None),
]


def explain(*arguments):
    done = subprocess.run([PROGRAM, "why", *arguments], capture_output=True, text=True, timeout=300)
    return done.returncode, done.stdout, done.stderr


class Kinds(unittest.TestCase):
    """Each kind of reason where it is the one."""

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.path = pathlib.Path(self.folder.name)
        (self.path / "syn.lsp").write_text((TESTS / "scenarios/syn.lsp").read_text())

    def ask(self, network_text, rules, *words):
        (self.path / "own.lsp").write_text(network_text)
        before_it, _, behind_it = FRAME.format(words=WORDS, rules=rules, network="\0").partition("\0")
        (self.path / "main.lsp").write_text(before_it + "(load own.lsp)\n" + behind_it)
        status, out, errors = explain("--json", "--grammar", str(self.path / "main.lsp"), *words)
        self.assertEqual((status, errors), (0, ""))
        return json.loads(out)

    def test_reasons(self):
        for kind, sentence, modifier, head, net, rules, says, line in CASES:
            with self.subTest(number=CASES.index((kind, sentence, modifier, head, net, rules, says, line)), kind=kind):
                told = self.ask(net, rules, sentence, modifier, head)
                answer = told["answer"]
                text = "\n".join([answer["text"], *answer.get("details", [])])
                self.assertEqual(answer["kind"], kind, json.dumps(told, indent=1))
                for part in says:
                    self.assertIn(part, text)
                if line is not None:
                    self.assertEqual((pathlib.Path(answer["file"]).name, answer["line"]), ("own.lsp", line), text)


    def test_a_sentence_that_has_too_many_phrases(self):
        net = network(N="(* (N (dep-type nn)))\n  (:head)\n  (* (N (dep-type post) (percolate (num))))", P="(:head)", V="(:head)")
        told = self.ask(net.replace("(N (dep-type nn))", "(N (dep-type nn)) (N (dep-type mm))"), "",
                        " ".join(["dog"] * 60), "60", "1")
        self.assertEqual(told["answer"]["kind"], "cut", told["answer"])


class English(unittest.TestCase):
    """What is told of sentences agrees with how they are parsed."""

    SENTENCES = ["The dogs bark at the cat.", "She saw the man with a telescope.", "Time flies like an arrow.",
                 "I know that the man who lives in the old house will not buy the books that she wrote last year.",
                 "The dogs and the cat that he bought sleep.", "What did she read?", "dogs the of bark"]

    def test_trees(self):
        for sentence in self.SENTENCES:
            with self.subTest(sentence):
                _, out, _ = explain("--json", "--data", DATA, sentence)
                why = json.loads(out)
                parsed = json.loads(subprocess.run(
                    [PROGRAM, "parse", "--quiet", "--data", DATA, "--from", "lines", "--to", "json", "--style", "grammar",
                     "--best", "2"], input=sentence, capture_output=True, text=True, timeout=60).stdout.splitlines()[0])
                costs = why["costs"]
                self.assertAlmostEqual(costs["total"], parsed["cost"], delta=0.02)
                self.assertAlmostEqual(sum(row["cost"] for row in costs["rows"]), costs["total"], delta=0.1)
                for told, word in zip(why["heads"], parsed["words"]):
                    if told["head"] > 0:
                        self.assertEqual(told["head"], word["head"], word)
                    if "dearer" in told:
                        self.assertGreaterEqual(told["dearer"], 0)
                        self.assertNotEqual(told["other-head"], told["head"])

    def test_every_pair_has_an_answer(self):
        sentence = self.SENTENCES[1]
        for modifier in range(1, 9):
            for head in range(9):
                if modifier == head:
                    continue
                status, out, errors = explain("--json", "--data", DATA, sentence, str(modifier), str(head))
                self.assertEqual((status, errors), (0, ""))
                told = json.loads(out)
                self.assertTrue(told["answer"]["text"])
                self.assertEqual(told["answer"]["kind"] == "chosen", told["own"] == head)
                for link in told["links"]:
                    self.assertTrue(link["reason"]["text"], link)

    def test_text(self):
        status, out, errors = explain("--data", DATA, "She saw the man with a telescope.", "with", "saw")
        self.assertEqual((status, errors), (0, ""))
        self.assertTrue(out.startswith("Why is 5 with not under 2 saw?\n  the best tree with it is dearer by 0.12\n"), out)
        self.assertRegex(out, r"\*  5 with <- 4 man +mod +1.1 +-\n +\*  5 with <- 2 saw +mod +- +1.22\n")
        self.assertRegex(out, r"  and \d+ more \(--all\)\n")
        _, out, _ = explain("--data", DATA, "She saw the man with a telescope.")
        self.assertRegex(out, r"  5 with +4 man +mod +1.1 +2 saw \(mod\) +0.12\n")

    def test_words_and_faults(self):
        for words, says in ((("The dog saw the cat.", "the", "cat"), None), (("The dog saw the cat.", "THE", "2"), None),
                            (("A cat saw a cat.", "cat", "saw"), "the word cat stands at 2 and 5: say which"),
                            (("Dogs bark.", "cow", "bark"), "the sentence has no word cow"),
                            (("Dogs bark.", "9", "bark"), "the sentence has 3 words"),
                            (("Dogs bark.", "1", "1"), "a word cannot be under itself"),
                            (("Dogs bark.", "1"), "why takes a sentence, or a sentence and two words"),
                            (("",), "there is nothing to explain"), (("dog " * 300,), "too long")):
            status, _, errors = explain("--data", DATA, *words)
            self.assertEqual((status, says or ""), (2 if says else 0, says if says and says in errors else errors), words)


if __name__ == "__main__":
    PROGRAM, DATA = sys.argv[1:3]
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
