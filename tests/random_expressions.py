#!/usr/bin/env python3
"""Runs the program on start-up files made at random, in which values of every kind flow through every form.

usage: random_expressions.py PROGRAM LANGUAGE_PAGE [--seconds N] [--seed S]

Commands that free or replace things run in the middle of expressions that still hold values of them. Which
forms there are, and what arguments they take, the page of the language tells; what kind of input each wants
and what it gives, the program is asked. A run that crashes, that a sanitizer stops or that does not end is a
fault. With a seed, only the start-up file of that seed is run, and left in the working folder.
"""
import argparse
import collections
import concurrent.futures
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile
import time

TIMEOUT = float(os.environ.get("SCENARIO_TIMEOUT", "60"))
SCENARIOS = pathlib.Path(__file__).resolve().parent / "scenarios"
# Leaks are not looked for: a list that a variable holds may come to hold itself.
ENVIRONMENT = {"ASAN_OPTIONS": "exitcode=99:detect_leaks=0", "UBSAN_OPTIONS": "exitcode=99:print_stacktrace=1", **os.environ}

# Forms that may run for ever by what they are, and those that need no arguments from the page.
LEFT_OUT = {"while", "let", "cond", "exec-commands", "sbnd"}
WORDS = ["boy", "the", "big boys", "see", "x", '"New York"', '""', "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"]
SENTENCES = ["the boy put the box in the box", "boys see big old boys", "boy and boys sleep", "New York", "."]
ATTS = ["cat", "num", "args", "move", "opt", "node", "lexitem", "cform", "v", "slash"]
ITEMS = ["(cat n)", "(num sg)", "~num", "+opt", "(node x)", "(args ((cat n)) ((cat v) +opt))", "(move ((cat n)))",
         "(v (cat n) (v (num pl)))", "(v (num sg))", "~v", "short", "(slash wh)"]
NAMES = ["syn", "words", "rules", "trees", "tp", "analyzer", "names", "db", "prop", "list", "ante", "obj", "det"]
VARS = ["v0", "v1", "v2", "v3", "tree", "item"]
TREE = "(:id t 1 (the ~ Det 2 det) 2 (boy ~ N 3 subj (prop x) (list (a b))) 3 (sleeps sleep V * (ante 2)))"


def read_forms(page):
    """The arguments of each form: a nested list of words, with "[" in front of what may be left out."""
    forms = {}
    for section in page.read_text().split("\n### "):
        if not section.split("\n")[0].endswith("forms"):
            continue
        for name, usage in re.findall(r"^- `([^`]+)`: `\((.*)", section, re.M):
            stack = [[]]
            for token in re.findall(r"[()\[\]]|[^\s()\[\]]+", usage):
                if token in "([":
                    stack.append([token])
                elif token in ")]" and len(stack) > 1:
                    stack[-2].append(stack.pop())
                elif token in ")]":
                    break
                else:
                    stack[-1].append(token.strip("<>`"))
            forms[name] = stack[0][1:]
    return {name: args for name, args in forms.items() if name not in LEFT_OUT}


def run(program, folder, text):
    (folder / "torvane.lsp").write_text(text)
    (folder / "sentense.dat").write_text("the boy sleep\n")
    for shared in ("syn.lsp", "results/base.lsp"):
        shutil.copy(SCENARIOS / shared, folder)
    (folder / "store.hdr").write_text("store.db 64 2 strcasecmp\n")
    (folder / "counts.txt").write_text("boy\t \tfreq\t3\nsee\t \tfreq\t4\n")
    try:
        return subprocess.run([program], cwd=folder, stdin=subprocess.DEVNULL, capture_output=True, timeout=TIMEOUT,
                              env=ENVIRONMENT)
    except subprocess.TimeoutExpired:
        return None


def ask_kinds(program, forms):
    """What kind of input each form wants and what it gives, by name; none where it does not say."""
    text = "(load base.lsp) (declare-var odd Odd*)\n"
    for name in forms:
        text += f"(in {name}) (eval (comp (get-val odd) ({name}))) (out {name}) (eval (comp ({name}) (surform)) (comp ({name}) (inverse)))\n"
    with tempfile.TemporaryDirectory() as folder:
        messages = run(program, pathlib.Path(folder), text + "(exit)").stderr.decode("utf-8", "replace")
    kinds = {"in": {}, "out": {}}
    for part in messages.split("unknown function ")[1:]:
        way, name = (part.split() + ["", ""])[:2]
        pattern = r"The expected type of argument is:'(.*?)'" if way == "in" else r"wrong type of argument:'(.*?)'"
        if way in kinds and (found := re.search(pattern, part)):
            kinds[way][name] = found.group(1)
    return kinds["in"], kinds["out"]


class Generator:
    def __init__(self, seed, forms, wants, gives):
        self.random = random.Random(seed)
        self.forms, self.gives = forms, gives
        self.functions = ["ident"]  # those that are defined; none calls itself
        self.by_input = collections.defaultdict(list)
        for name in sorted(forms):
            self.by_input[wants.get(name)].append(name)

    def one(self, things):
        return self.random.choice(things)

    def some(self, make, most=3):
        return " ".join(make() for _ in range(self.random.randint(0, most)))

    def items(self):
        return f"({self.some(lambda: self.one(ITEMS))})"

    def value(self, depth):
        """An expression that gives a value of its own, and the kind of it."""
        exp = lambda: self.exp(None, depth - 1)
        return self.one([
            lambda: (f"(str {self.one(WORDS)})", "char*"),
            lambda: (f"(int {self.random.randint(-2, 9)})", "int"),
            lambda: (f"(attvec {self.items()})", "AttVec*"),
            lambda: (f"(exec-commands (make-av {self.items()}))", "AttVec*"),
            lambda: (f"(exec-commands (alias {self.one(['a1', 'a2'])} {self.items()}))", "AttVec*"),
            lambda: (f"(avm avm {self.items()})", "Meaning*"),
            lambda: (f"(pred {exp()})", "LExp*"),
            lambda: (f"(list {exp()} {exp()})", "Slist*"),
            lambda: (f"(comp (str \"{TREE}\") (str2deps))", "Deps*"),
            lambda: ("(get-val tree)", "RSTree*"),
            lambda: ("(get-val item)", "LexItem*"),
            lambda: (f"(get-val {self.one(VARS)})", None)])()

    def argument(self, arg, kind, depth, nested=False):
        if isinstance(arg, list):
            if arg[0] == "[" and self.random.random() < 0.5:
                return ""
            inside = self.arguments(arg[1:], kind, depth, nested or arg[0] == "(")
            return inside if arg[0] == "[" else f"({inside})"
        if arg.startswith(":") or arg == "pred":
            return arg
        if arg in ("att", "from", "to", "atts"):
            return self.one(ATTS)
        if arg == "item" and nested:
            return self.one(ITEMS)
        if arg in ("type", "result-type", "role", "not"):
            return self.one(["syn", "AttVec*", "obj", ""])
        if "var" in arg:
            return self.one(VARS)
        if arg in ("n", "N", "NUMBER"):
            return str(self.random.randint(-1, 4))
        if arg == "FILE":
            return "file"
        if arg.isupper():
            return self.one(NAMES + WORDS)
        return self.exp(kind, depth - 1)

    def arguments(self, args, kind, depth, nested=False):
        out = []
        for i, arg in enumerate(args):
            if arg == "...":
                if i:
                    out += [self.argument(args[i - 1], kind, depth, nested) for _ in range(self.random.randint(0, 2))]
            else:
                out.append(self.argument(arg, kind, depth, nested))
        return " ".join(out)

    def form(self, kind, depth):
        """A form for an input of a kind, and the kind of what it gives."""
        name = self.one(self.by_input[kind if self.by_input[kind] and self.random.random() < 0.8 else None])
        return f"({name} {self.arguments(self.forms[name], kind, depth)})", self.gives.get(name)

    def chain(self, start, kind, depth):
        for _ in range(self.random.randint(1, 3)):
            step, kind = self.form(kind, depth)
            start += " " + step
        return f"(comp {start})"

    def exp(self, kind, depth):
        if depth <= 0:
            return self.one(["(ident)", self.value(0)[0] if depth == 0 else "(t)"])
        return self.one([
            lambda: self.chain(*self.value(depth - 1), depth - 1),
            lambda: self.chain("(ident)", kind, depth - 1),
            lambda: f"(prog1 {self.exp(kind, depth - 1)} (exec-commands {self.some(self.command)}) {self.exp(kind, depth - 1)})",
            lambda: f"(setq {self.one(VARS)} {self.exp(kind, depth - 1)})",
            lambda: f"(get-val {self.one(VARS)} {self.exp(None, depth - 1)})",
            lambda: f"({self.one(self.functions)} {self.exp(kind, depth - 1)} {self.exp(kind, depth - 1)})",
            lambda: f"(let (v0 l) (setq l {self.exp(kind, depth - 1)}) {self.exp(kind, depth - 1)})",
            lambda: self.form(kind, depth - 1)[0],
            lambda: self.form(kind, depth - 1)[0]])()

    def command(self):
        return self.one([
            lambda: f"(alias {self.one(['a1', 'a2', 'short'])} {self.items()})", lambda: "(clear-alias syn)",
            lambda: f"(make-av {self.items()})", lambda: "(clear-lexicon words)", lambda: "(reset-parser)",
            lambda: f"(lex words ({self.one(WORDS)} (avm {self.items()}) (freq {self.items()})))",
            lambda: f"(p3 \"{self.one(SENTENCES)}\")", lambda: f"(p {self.one(SENTENCES)})", lambda: "(li)",
            lambda: "(unlink-file db)", lambda: "(link-file db store.hdr rw)", lambda: "(sync db)",
            lambda: "(populate-tripledb db counts.txt)", lambda: f"(s db {self.one(WORDS)})", lambda: "(dump db)",
            lambda: f"(eval {self.exp(None, 2)})", lambda: f"(foreach (boy big) :eval {self.exp('char*', 2)})",
            lambda: "(clear-antecedent-list names)", lambda: "(clear-tree-rules trees)",
            lambda: f"(def-tree-rules trees {self.tree_rule(1)})", lambda: "(quote text)", lambda: "(p3)"])()

    def tree_rule(self, depth):
        return f"({self.one(['up', 'down', 'root'])} {self.exp('RSTree*', depth)} {self.exp('TreeMatch*', depth)})"

    def start_up(self):
        exp = self.exp
        lines = ["(load base.lsp)", "(def-att-list syn (defattribute v VecAtt))", "(alias short ((num pl) +opt))"]
        lines += [f"(declare-var {v}{' char*' if v == 'v1' else ''})" for v in VARS]
        lines += [f"(define-attribute {p} {t}Value)" for p, t in
                  (("prop", "Str"), ("list", "StrList"), ("ante", "DepTree"))]
        lines += ["(make-antecedent-list names)", "(make-tripledb db 11)", "(make-str-meaning-proto freq)",
                  f"(defun f1 (a b) {exp(None, 2)} (get-val a {exp(None, 2)}))"]
        self.functions = ["f1"]
        lines += [f"(defun f2 (a b) (f1 (get-val a) {exp(None, 2)}) {exp(None, 2)})"]
        self.functions = ["f1", "f2"]
        lines += [f"(def-rules rules (r0 (lexitem) (setq item (litem))) (r1 (lexitem {exp('LexItem*', 2)}) {exp('Match*', 3)})"
                  f" (r2 (seq (lexitem) (lexitem)) {exp('Match*', 3)}))",
                  f"(def-tree-rules trees (up (node) (setq tree (match))) {self.tree_rule(3)} {self.tree_rule(3)})",
                  "(set-deps-modifier tp trees)",
                  f"(def-modifiers V (? (N (dep-type subj) (modifier-cond {exp('PItem*', 2)}))) (:head)"
                  f" (* (P (dep-type adjunct) (modifiee-cond {exp('PItem*', 2)}))))",
                  f"(p3 \"{SENTENCES[0]}\")"]
        for _ in range(40):
            lines.append(self.one([lambda: self.command(), lambda: f"(eval {exp(None, 4)})",
                                   lambda: f"(eval {self.chain(*self.value(2), 4)})"])())
        return "\n".join(lines) + "\n(exit)\n"


def fault_of(program, folder, text):
    result = run(program, folder, text)
    if result is None:
        return f"did not end within {TIMEOUT} s"
    if result.returncode in (0, 1):
        return None
    report = result.stderr.decode("utf-8", "replace")
    found = re.search(r"(==\d+==ERROR|\S*runtime error).*", report, re.S)
    return f"status {result.returncode}\n{found.group(0)[:3000] if found else report[-1000:]}"


def main():
    options = argparse.ArgumentParser(usage=__doc__)
    options.add_argument("program", type=pathlib.Path)
    options.add_argument("page", type=pathlib.Path)
    options.add_argument("--seconds", type=float, default=60)
    options.add_argument("--seed", type=int)
    given = options.parse_args()
    program, forms = given.program.resolve(), read_forms(given.page)
    wants, gives = ask_kinds(program, forms)

    def try_seed(seed):
        text = Generator(seed, forms, wants, gives).start_up()
        if given.seed is not None:
            return seed, fault_of(program, pathlib.Path(), text)
        with tempfile.TemporaryDirectory(prefix="expressions-", ignore_cleanup_errors=True) as folder:
            return seed, fault_of(program, pathlib.Path(folder), text)

    first = random.SystemRandom().randrange(10**9) if given.seed is None else given.seed
    print(f"from seed {first}", flush=True)
    end = time.monotonic() + given.seconds
    tried, faults = 0, 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        while tried == 0 or (given.seed is None and time.monotonic() < end):
            many = 1 if given.seed is not None else 4 * os.cpu_count()
            for seed, fault in pool.map(try_seed, range(first + tried, first + tried + many)):
                if fault:
                    faults += 1
                    print(f"seed {seed}: {fault}\n", flush=True)
            tried += many
    print(f"{tried - faults} of {tried} start-up files run")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
