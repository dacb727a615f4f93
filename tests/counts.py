#!/usr/bin/env python3
"""Counting, adding, building, learning: the tools give the same bytes however the work is cut.

usage: counts.py PROGRAM [TEST...]
"""
import bz2
import collections
import gzip
import os
import pathlib
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAM = None
SENTENCES = [line.split("\t")[0] for line in
             (pathlib.Path(__file__).resolve().parent / "english" / "sentences.tsv").read_text().splitlines()
             if line and not line.startswith("#")]
HEADER = "# torvane-counts 1\n# grammar english 0123456789abcdef\n# style counts\n# sentences {}\n# words {}\n"
HIGHEST = 2**64 - 1


def some_sentences(number, seed=1):
    return random.Random(seed).choices(SENTENCES, k=number)


def rows_of(text):
    """The sums of a file of counts, and its first five lines."""
    lines = text.split("\n")
    assert lines.pop() == ""
    keys = [line.rsplit("\t", 1)[0] for line in lines[5:]]
    ordered = [key.encode() + b"\t" for key in keys]
    assert ordered == sorted(set(ordered)), "not sorted, or a key twice"
    return {key: int(line.rsplit("\t", 1)[1]) for key, line in zip(keys, lines[5:])}, lines[:5]


def made(rows, sentences=1, words=1):
    """A file of counts."""
    lines = sorted(f"{key}\t{count}".encode() for key, count in rows.items())
    return HEADER.format(sentences, words).encode() + b"".join(line + b"\n" for line in lines)


class InFolder(unittest.TestCase):
    def setUp(self):
        self._folder = tempfile.TemporaryDirectory()
        self.folder = pathlib.Path(self._folder.name)

    def tearDown(self):
        self._folder.cleanup()

    def write(self, name, content):
        path = self.folder / name
        path.parent.mkdir(exist_ok=True)
        path.write_bytes(content if isinstance(content, bytes) else content.encode())
        return name

    def read(self, name):
        return (self.folder / name).read_bytes()

    def run_it(self, *arguments, status=0, given=b"", largest_file=None):
        def limit():
            if largest_file:
                signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
                resource.setrlimit(resource.RLIMIT_FSIZE, (largest_file, largest_file))
        done = subprocess.run([PROGRAM, *map(str, arguments)], input=given, capture_output=True, cwd=self.folder,
                              timeout=300, preexec_fn=limit, restore_signals=False)
        errors = done.stderr.decode("utf-8", "replace")
        self.assertEqual(done.returncode, status, errors)
        return done.stdout, errors

    def out(self, *arguments, **options):
        return self.run_it(*arguments, **options)[0]


class Count(InFolder):
    def test_what_depends_on_what(self):
        out = self.out("count", "--from", "lines", "--quiet", given=b"The dogs ate meat.\nDOGS walk with a fork.\n")
        rows, header = rows_of(out.decode())
        self.assertEqual([rows.get(key) for key in ("eat\tV:subj:N\tdog", "eat\tV:obj:N\tmeat", "walk\tV:with:N\twith",
                                                     "dog\tN:det:Det\tthe")], [1, 1, 1, 1])
        self.assertRegex("\n".join(header), "^# torvane-counts 1\n# grammar english [0-9a-f]{16}\n# style counts\n"
                                            "# sentences 2\n# words 11$")

    def test_same_bytes_with_threads_little_memory_and_in_pieces(self):
        lines = some_sentences(300)
        self.write("all.txt", "\n".join(lines) + "\n")
        whole = self.out("count", "--from", "lines", "all.txt")
        self.assertEqual(whole, self.out("count", "--from", "lines", "-j", "3", "all.txt"))
        for i in range(3):
            self.write(f"{i}.txt", "\n".join(lines[i::3]) + "\n")
            self.run_it("count", "--from", "lines", "-o", f"{i}.counts", f"{i}.txt")
        self.assertEqual(whole, self.out("merge-counts", "2.counts", "0.counts", "1.counts"))

    def test_given_trees(self):
        row = "{}\t{}\t{}\t{}\t_\t_\t{}\t{}\t_\t_\n"
        tree = row.format(1, "Tea", "_", "NOUN", 2, "obj") + row.format(2, "drank", "drink", "VERB", 0, "root") + "\n"
        # A sentence with a fault is told, and costs nothing else.
        given = (tree + tree.replace("\t2\tobj", "\t9\tobj") + tree).encode()
        out, errors = self.run_it("count", "--from", "conllu", "--trees", "--quiet", given=given, status=1)
        rows, header = rows_of(out.decode())
        self.assertEqual(rows, {"drink\tVERB:obj:NOUN\ttea": 2})
        self.assertEqual(header[1:4], ["# grammar conllu -", "# style trees", "# sentences 2"])
        self.assertIn(":4: the head 9", errors)

    def test_the_version_follows_the_files_of_the_grammar(self):
        def version():
            return self.out("count", "--quiet", "--grammar", "copy/g.lsp", given=b"x\n").splitlines()[1]
        data = pathlib.Path(PROGRAM).parent.parent / "share" / "torvane" / "english"
        self.write("copy/g.lsp", "(load english/english.lsp)\n")
        self.write("copy/style-counts.lsp", "(load english/style-counts.lsp)\n")
        os.symlink(data, self.folder / "copy" / "english")
        first = version()
        self.assertEqual(first, version())
        self.write("copy/style-counts.lsp", "(load english/style-counts.lsp)\n; otherwise\n")
        self.assertNotEqual(first, version())

    def test_an_end_on_the_way_leaves_nothing(self):
        self.write("g.lsp", "(load english/english.lsp)\n")
        self.write("style-counts.lsp", "(exit)\n")
        self.assertIn("ended the program", self.run_it("count", "--grammar", "g.lsp", "-o", "out", status=4)[1])
        for jobs in "12":
            process = subprocess.Popen([PROGRAM, "count", "-j", jobs, "-o", "out"], cwd=self.folder, stdin=subprocess.PIPE)
            process.stdin.write(b"Dogs eat meat.\n" * 100)
            process.stdin.flush()
            time.sleep(1)
            process.send_signal(signal.SIGINT)
            self.assertEqual(process.wait(60), -signal.SIGINT)
            process.stdin.close()
        self.assertEqual(sorted(os.listdir(self.folder)), ["g.lsp", "style-counts.lsp"])

    def test_what_cannot_be(self):
        self.run_it("count", "--grammar", "german", status=4)
        _, errors = self.run_it("count", "nothing.txt", "-o", "out.counts", status=1)
        self.assertIn("nothing.txt: No such file", errors)
        self.assertIn("No such file", self.run_it("count", "-o", "no/such.counts", status=1)[1])
        full, errors = self.run_it("count", "-o", "/dev/full", given=b"Dogs eat meat.\n", status=1)
        self.assertIn("No space left", errors)


class Merge(InFolder):
    def random_files(self, number):
        draw = random.Random(5)
        words = ["a", "b", "tea", "téa", "#", "# x", "", "z\x01"]
        names, total = [], collections.Counter()
        for i in range(number):
            rows = collections.Counter()
            for _ in range(draw.randrange(40)):
                rows["\t".join((draw.choice(words), draw.choice(("r", "s", "V:obj:N")), draw.choice(words)))] += draw.randrange(1, 10**9)
            total += rows
            names.append(self.write(f"{i}.counts", b"".join([made({}, i, 2 * i), *sorted(
                f"{key}\t{count}\n".encode() for key, count in rows.items())])))
        return names, total

    def test_any_order_and_grouping(self):
        names, total = self.random_files(100)
        whole = self.out("merge-counts", *names)
        rows, header = rows_of(whole.decode())
        self.assertEqual(rows, dict(total))
        self.assertEqual(header[3:], [f"# sentences {99 * 50}", f"# words {99 * 100}"])
        random.Random(2).shuffle(names)
        self.assertEqual(whole, self.out("merge-counts", *names))
        for i, group in enumerate((names[:1], names[1:40], names[40:])):
            self.run_it("merge-counts", *group, "-o", f"part{i}")
        self.assertEqual(whole, self.out("merge-counts", "part2", "part0", "part1"))

    def test_sums_end_at_the_highest_number(self):
        for name, count in (("a", HIGHEST - 1), ("b", 1), ("c", 7)):
            self.write(name, made({"x\tr\ty": count}))
        self.assertEqual(rows_of(self.out("merge-counts", "a", "b").decode())[0], {"x\tr\ty": HIGHEST})
        out, errors = self.run_it("merge-counts", "a", "b", "c")
        self.assertEqual(rows_of(out.decode())[0], {"x\tr\ty": HIGHEST})
        self.assertIn("highest number", errors)

    def test_other_counts_are_refused(self):
        self.write("a", made({"x\tr\ty": 1}))
        for old, new in ((b"0123", b"4567"), (b"style counts", b"style other"), (b"english", b"german")):
            self.write("b", made({"x\tr\ty": 1}).replace(old, new))
            out, errors = self.run_it("merge-counts", "a", "b", status=1)
            self.assertEqual(out, b"")
            self.assertIn("cannot be added", errors)
        self.write("b", "x\tr\ty\t1\n")
        self.assertIn("b: no file of counts", self.run_it("merge-counts", "a", "b", status=1)[1])

    def test_wrong_rows_are_told(self):
        wrong = ["a\tr\t1", "a\tr\tb\tc\t1", "a\tr\tb\tx", "a\tr\tb\t0", f"a\tr\tb\t{HIGHEST + 1}", "Z\tr\tb\t1"]
        self.write("a", HEADER.format(1, 1) + "b\tr\tc\t2\n" + "".join(row + "\n" for row in wrong) + "d\tr\te\t3\nf\tr\tg\t4")
        out, errors = self.run_it("merge-counts", "a", status=1)
        self.assertEqual(rows_of(out.decode())[0], {"b\tr\tc": 2, "d\tr\te": 3})
        self.assertEqual(re.findall(r"a:(\d+): ", errors), [str(line) for line in (7, 8, 9, 10, 11, 12, 14)])


class Build(InFolder):
    def test_a_database_that_a_parse_can_use(self):
        corpus = "She painted with a brush.\n" * 60 + "He saw the wall.\nDogs sleep.\n" * 200
        self.run_it("count", "--from", "lines", "-o", "counts", given=corpus.encode())
        self.run_it("build-counts", "counts", "db")
        self.assertEqual(self.read("db/counts.txt"), b"".join(self.read("counts").splitlines(True)[:5]))
        plain, learned = (self.out("parse", "--quiet", "--to", "brackets", *counts, given=b"He painted the wall with a brush.\n")
                          for counts in ((), ("--counts", "db")))
        self.assertNotEqual(plain, learned)

    def test_a_full_disk_leaves_what_was_there(self):
        self.write("old", made({"x\tr\ty": 1}))
        self.write("new", made({f"{i}\tr\ty": 1 for i in range(900)}))
        self.run_it("build-counts", "old", "db")
        before = {path.name: path.read_bytes() for path in (self.folder / "db").iterdir()}
        for largest in (10_000, 100_000):  # the text of the counts; the store
            errors = self.run_it("build-counts", "new", "db", largest_file=largest, status=1)[1]
            self.assertTrue(errors.startswith("torvane: db/building/"), errors)
            self.assertEqual(before, {path.name: path.read_bytes() for path in (self.folder / "db").iterdir()})

    def test_several_stores_are_as_one(self):
        corpus = "She painted with a brush.\n" * 60 + "He saw the wall.\nDogs sleep.\n" * 200
        self.run_it("count", "--from", "lines", "-o", "counts", given=corpus.encode())
        answers = []
        for stores in (1, 4, 2):
            self.run_it("build-counts", "--stores", stores, "counts", "db")
            self.assertEqual(sum(name.startswith("triples.db") for name in os.listdir(self.folder / "db")), stores)
            answers.append((sorted(self.out("similar", "db").splitlines()), self.out("parse", "--quiet", "--counts", "db",
                                                                 given=b"He painted the wall with a brush.\n")))
        self.assertEqual(answers[0], answers[1])
        self.assertEqual(answers[0], answers[2])

    def test_little_memory_and_rare_triples(self):
        draw = random.Random(3)
        rows = {f"{draw.randrange(10**9)}\tV:obj:N\t{draw.randrange(10**9)}": draw.randrange(1, 4) for _ in range(20000)}
        self.write("counts", made(rows))
        self.run_it("build-counts", "counts", "large")
        self.run_it("build-counts", "--memory", 1, "counts", "small")
        for name in ("rels.txt", "deps.txt", "triples.hdr", "triples.db"):
            self.assertEqual(self.read(f"large/{name}"), self.read(f"small/{name}"), name)
        self.assertEqual(sorted(os.listdir(self.folder / "small")), ["counts.txt", "deps.txt", "rels.txt", "triples.db", "triples.hdr"])
        self.run_it("build-counts", "--min-count", 3, "counts", "small")
        self.assertEqual(self.read("small/deps.txt").count(b"\n"), 2 * sum(count == 3 for count in rows.values()))


class Shards(InFolder):
    def text_of_all(self, *plan):
        self.run_it("shards", *plan, "-o", "plan")
        shards = int(self.read("plan").split(b"\n")[-2].split(b"\t")[0])
        return [self.out("shards", "--plan", "plan", "--text", i + 1) for i in range(shards)]

    def test_ranges_have_each_sentence_once(self):
        draw = random.Random(4)
        names = []
        for i in range(4):
            text = "".join(draw.choice(["\n", " \t\n", "x\n", "\r\n", "yy zz\r\n", f"w{draw.randrange(999)}\n"]) for _ in range(30))
            names.append(self.write(f"d/{i}.txt", text + draw.choice(["", "end", " "])))
        self.write("d/e.txt.gz", gzip.compress(b"one\n\ntwo\nthree\n" * 9))
        self.write("d/f.txt.bz2", bz2.compress(b"\n \none\nx\n\ntwo" * 9))
        contents = [self.read(name) for name in names] + [b"one\n\ntwo\nthree\n" * 9, b"\n \none\nx\n\ntwo" * 9]
        lines = [line.rstrip(b"\r") for text in contents for line in text.removesuffix(b"\n").split(b"\n")]
        paragraphs = []
        for text in contents:
            for block in re.split(rb"(?:^|\n)[ \t\r]*(?=\n|$)", text):
                if block := [line.rstrip(b"\r") for line in block.split(b"\n") if line.strip()]:
                    paragraphs.append(block)
        for size in (2, 7, 50, 10**6):
            got = [line for text in self.text_of_all("--from", "lines", "--bytes", size, "d") for line in text.split(b"\n")[:-1]]
            self.assertEqual(got, lines)
            got = [[line for line in block.split(b"\n") if line] for text in self.text_of_all("--bytes", size, "d")
                   for block in re.split(rb"\n[ \t]*\n", text) if block.strip()]
            self.assertEqual(got, paragraphs)

    def test_shards_are_counted_by_their_plan(self):
        self.write("a.txt", "\n".join(some_sentences(30)) + "\n")
        self.run_it("shards", "--from", "lines", "--bytes", 200, "a.txt", "-o", "plan")
        names = []
        for i in range(int(self.read("plan").split(b"\n")[-2].split(b"\t")[0])):
            names.append(f"{i}.counts")
            self.run_it("count", "--plan", "plan", "--shard", i + 1, "-o", names[-1])
        self.assertGreater(len(names), 2)
        self.assertEqual(self.out("merge-counts", *names), self.out("count", "--from", "lines", "a.txt"))
        self.assertIn("no shard 99", self.run_it("count", "--plan", "plan", "--shard", 99, status=1)[1])


class Learn(InFolder):
    KEPT = ("all.counts", "rels.txt", "deps.txt", "triples.hdr", "triples.db", "counts.txt", "similar/words.src")

    def learn(self, folder, *options, **more):
        return self.run_it("learn", "--from", "lines", "--bytes", 1500, "--similar", *options, "corpus", folder, **more)[1]

    def same(self, a, b):
        for name in self.KEPT:
            self.assertEqual(self.read(f"{a}/{name}"), self.read(f"{b}/{name}"), name)
        self.assertEqual(sorted(p.name for p in (self.folder / a).rglob("*")),
                         sorted(p.name for p in (self.folder / b).rglob("*")))

    def test_killed_at_any_moment_and_started_again(self):
        for i in range(3):
            self.write(f"corpus/{i}.txt", "\n".join(some_sentences(250, i)))
        self.learn("whole")
        command = [PROGRAM, "learn", "--from", "lines", "--bytes", "1500", "--similar", "-j", "2", "corpus", "killed"]
        start = time.monotonic()
        self.learn("timed", "-j", "2")
        whole = time.monotonic() - start
        draw = random.Random(6)
        kills = 0
        for _ in range(12):
            process = subprocess.Popen(command, cwd=self.folder, stderr=subprocess.DEVNULL)
            time.sleep(draw.uniform(0.2, 0.9) * whole)
            process.kill()
            if process.wait() == -signal.SIGKILL:
                kills += 1
            else:  # it was done: from the start
                shutil.rmtree(self.folder / "killed")
        self.assertGreater(kills, 2)
        self.learn("killed")
        self.same("whole", "killed")

    def test_only_what_changed_is_counted_again(self):
        self.write("corpus/a.txt", "\n".join(some_sentences(100, 1)) + "\n")
        self.learn("db")
        self.assertIn("counted 0 sentences", self.learn("db"))
        self.write("corpus/b.txt", "\n".join(some_sentences(20, 2)) + "\n")
        errors = self.learn("db")
        self.assertRegex(errors, r"\d+ of \d+ shards were counted before")
        self.assertNotIn("counted 0 sentences", errors)
        self.assertIn("is not used", self.learn("db", "--max-words", "50"))
        self.learn("db")
        self.learn("new")
        self.same("db", "new")

    def test_a_corrupt_file_costs_its_rest(self):
        self.write("corpus/a.txt", "Dogs eat meat.\n" * 5)
        packed = gzip.compress("\n".join(some_sentences(400)).encode())
        self.write("corpus/b.txt.gz", packed[:len(packed) // 2])
        self.write("corpus/c.txt", "Cats eat fish.\n" * 5)
        for _ in range(2):  # told again by a run that finds all counted
            errors = self.learn("db", status=1)
            self.assertIn("corpus/b.txt.gz: gzip cannot read it to its end", errors)
            rows, _ = rows_of(self.read("db/all.counts").decode())
            self.assertGreaterEqual(min(rows["eat\tV:obj:N\tmeat"], rows["eat\tV:obj:N\tfish"]), 5)

    def test_what_cannot_be(self):
        self.assertIn("wanted", self.run_it("learn", "db", status=2)[1])
        self.write("corpus/empty.txt", "")
        self.assertIn("holds nothing", self.learn("db", status=1))
        self.assertFalse((self.folder / "db").exists())
        self.write("corpus/a.txt", "Dogs eat meat.\n")
        self.write("file", "")
        self.learn("file", status=1)


class Similar(InFolder):
    def test_the_same_in_rows_of_words(self):
        draw = random.Random(7)
        words = [f"w{i}" for i in range(2500)]
        rows = collections.Counter()
        for _ in range(60000):
            rows[f"v{int(250 ** draw.random())}\tV:obj:N\t{draw.choice(words)}"] += 1
        self.write("counts", made(rows))
        self.run_it("build-counts", "counts", "db")
        whole, told = self.run_it("similar", "db", "--least", "0.001")
        features = int(re.search(r"([\d,]+) features", told)[1].replace(",", ""))
        self.assertGreater(features * 40, 2 << 20)  # more than two rows of a megabyte
        self.assertEqual(whole, self.out("similar", "db", "--least", "0.001", "--memory", "1", "-j", "3"))
        self.assertGreater(whole.count(b"\n"), 2500)
        short = self.out("similar", "db", "--least", "0.001", "--most", "2", "--memory", "1")
        self.assertEqual([re.findall(rb"\(N \S+ \((\S+ \S+ \S+ \S+)", line) for line in whole.splitlines()],
                         [re.findall(rb"\(N \S+ \((\S+ \S+ \S+ [^)]+)\)\)", line) for line in short.splitlines()])
        self.assertIn("no counts", self.run_it("similar", "nowhere", status=1)[1])


if __name__ == "__main__":
    PROGRAM = os.path.abspath(sys.argv.pop(1))
    unittest.main()
