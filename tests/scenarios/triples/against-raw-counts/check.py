import collections
import math
import sys

MARGIN = 1e-4


class Corpus:
    def __init__(self, name):
        self.triples = {}
        for line in open(name + ".deps"):
            head, relation, other, n = line.rstrip("\n").split("\t")
            self.triples[head, relation, other] = float(n)
        self.rels = collections.Counter()
        self.words = collections.defaultdict(lambda: [0, 0])
        for (head, relation, other), n in self.triples.items():
            self.rels[head, relation] += n
            self.words[head][relation[0] == "-"] += n
        for (head, relation), n in list(self.rels.items()):
            if relation[0] != "-":
                self.words[relation][0] += n
        self.total = sum(n for (_, relation), n in self.rels.items() if relation[0] != "-")

    def mi(self, f, f1, f2):
        c = min(f1, f2)
        return math.log(self.total * f / f1 / f2) * c / (c + 2) * f / (f + 2)

    def rel_mi(self, head, relation):
        return self.mi(self.rels[head, relation], self.words[head][relation[0] == "-"],
                       self.words[relation.lstrip("-")][0])

    def word_mi(self, head, relation, other):
        inverse = relation[1:] if relation[0] == "-" else "-" + relation
        return self.mi(self.triples[head, relation, other], self.rels[head, relation],
                       self.rels[other, inverse])


main, back = Corpus("main"), Corpus("back")


def search():
    for word in ("w1", "subj", "w7"):
        yield (word, *main.words[word])
        for head, relation in main.rels:
            if head == word:
                yield relation, main.rels[head, relation], main.rel_mi(head, relation)
        for triple, n in main.triples.items():
            if triple[0] == word:
                yield "", "", triple[2], n, main.word_mi(*triple)


def every():
    for (head, relation), n in main.rels.items():
        yield head, relation, " ", n, main.rel_mi(head, relation)
    for triple, n in main.triples.items():
        yield *triple, n, main.word_mi(*triple)


def high(min_mi, min_count, wanted):
    return ((*row, min_mi) for row in every() if row[3] >= min_count and wanted(row[1]))


def background(min_score):
    def smooth(n, b):
        return math.log((n + 1) / (main.total + 1000) / ((b + 1) / (back.total + 1000)) + 1)
    for word, (freq, inverse) in main.words.items():
        b = sum(back.words.get(word, (0, 0)))
        yield word, " ", " ", freq + inverse, b, smooth(freq + inverse, b), min_score
    for (head, relation), n in main.rels.items():
        b = back.rels.get((head, relation), 1)
        score = math.log(n / main.total / (b / back.total) + 1)
        if main.rel_mi(head, relation) >= -1:
            yield head, relation, " ", n, b, main.rel_mi(head, relation), score, min_score
    for triple, n in main.triples.items():
        b = back.triples.get(triple, 0)
        if triple[1][0] != "-" and main.word_mi(*triple) >= -1:
            yield *triple, n, b, main.word_mi(*triple), smooth(n, b), min_score


def low(most):
    rows = [row for row in every() if main.rel_mi(*row[:2]) <= most]
    details = at_least((*row, most) for row in rows if row[2] != " ")
    return [row for row in rows if row[2] == " "] + list(details)


def total(*wanted):
    sums = dict.fromkeys(main.words, 0)
    for triple in main.triples:
        if triple[1].lstrip("-") in wanted:
            sums[triple[0]] += abs(main.word_mi(*triple))
    return sums.items()


def at_least(rows):
    """Of rows that end in a value and its threshold those that reach it."""
    for *row, limit in rows:
        assert abs(row[-1] - limit) > MARGIN, "too close to call"
        if row[-1] > limit:
            yield row


def parse(line):
    return [float(f) if f.lstrip("-")[:1].isdigit() else f for f in line.split("\t")]


def key(row):
    return [f for f in row if isinstance(f, str)], [f for f in row if not isinstance(f, str)]


def same(a, b):
    return len(a) == len(b) and all(
        x == y if isinstance(x, str) else abs(x - y) <= MARGIN * max(1, abs(x)) for x, y in zip(a, b))


WANTED = {
    "search": list(search()),
    "high": list(at_least(row for row in high(0.4, 2, lambda r: True)
                          if row[2] == " " or row[1][0] != "-")),
    "inverse": list(at_least(high(0.1, 0, lambda r: r in ("-obj", "of", "-of")))),
    "words": [(w, " ", " ", sum(n)) for w, n in main.words.items() if sum(n) >= 50],
    "background": list(at_least(background(0.6))),
    "low": low(0.02),
    "total": list(total("subj", "obj", "mod", "of")),
    "some": list(total("mod", "subj")),
    "features": [("Words:", len(main.words)), ("Features:", len(main.triples)),
                 ("Unique features:", len({triple[1:] for triple in main.triples}))],
}

sections = open(sys.argv[1] + "/stdout").read().split("== ")[1:]
assert len(sections) == 2 * (len(WANTED) + 1)
for section in sections:
    name, *lines = section.rstrip("\n").split("\n")
    wanted, rows = sorted(WANTED[name], key=key), sorted(map(parse, lines), key=key)
    wrong = [pair for pair in zip(wanted, rows) if not same(*pair)]
    if wrong or not wanted or len(rows) != len(wanted):
        sys.exit(f"{name}: {len(rows)} rows, wanted {len(wanted)}; wanted and found: {wrong[:3]}")
