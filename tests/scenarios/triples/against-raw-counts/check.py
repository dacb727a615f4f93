import collections
import math
import sys

MARGIN = 1e-4
triples, rels, words = {}, collections.Counter(), collections.defaultdict(lambda: [0, 0])
for line in open("main.deps"):
    *triple, n = line.rstrip("\n").split("\t")
    triples[tuple(triple)] = float(n)
for (head, relation, _), n in triples.items():
    rels[head, relation] += n
    words[head][relation[0] == "-"] += n
    words[relation][0] += n
frequent = {word: n for word, n in words.items() if word[0] != "-"}
total = sum(n for (_, relation), n in rels.items() if relation[0] != "-")


def mi(f, f1, f2):
    c = min(f1, f2)
    return math.log(total * f / f1 / f2) * c / (c + 2) * f / (f + 2)


def rel_mi(head, relation):
    return mi(rels[head, relation], words[head][relation[0] == "-"], words[relation.lstrip("-")][0])


def word_mi(head, relation, other):
    inverse = relation[1:] if relation[0] == "-" else "-" + relation
    return mi(triples[head, relation, other], rels[head, relation], rels[other, inverse])


EVERY = [(*key, " ", n, rel_mi(*key)) for key, n in rels.items()]
DETAILS = [(*triple, n, word_mi(*triple)) for triple, n in triples.items()]


def search():
    for word in ("w1", "subj", "w7"):
        yield (word, *words[word])
        yield from ((row[1], *row[3:]) for row in EVERY if row[0] == word)
        yield from (("", "", *row[2:]) for row in DETAILS if row[0] == word)


def above(limit, rows):
    rows = list(rows)
    assert all(abs(row[-1] - limit) > MARGIN for row in rows), "too close to call"
    return [row for row in rows if row[-1] > limit]


sums = dict.fromkeys(frequent, 0)
for head, relation, _, _, value in DETAILS:
    sums[head] += abs(value) * (relation.lstrip("-") in ("mod", "subj"))
WANTED = {
    "search": search(),
    "high": above(0.4, [row for row in EVERY + DETAILS if row[3] >= 2 and (row[2] == " " or row[1][0] != "-")]),
    "inverse": above(0.1, [row for row in EVERY + DETAILS if row[1] in ("-obj", "of", "-of")]),
    "low": [row for row in EVERY if row[4] <= 0.02] + above(0.02, [r for r in DETAILS if rel_mi(*r[:2]) <= 0.02]),
    "total": sums.items(),
}


def parse(line):
    return [float(f) if f.lstrip("-")[:1].isdigit() else f for f in line.split("\t")]


def key(row):
    return [f for f in row if isinstance(f, str)], [f for f in row if not isinstance(f, str)]


def same(a, b):
    return len(a) == len(b) and all(
        x == y if isinstance(x, str) else abs(x - y) <= MARGIN * max(1, abs(x)) for x, y in zip(a, b))


for name in WANTED:
    WANTED[name] = sorted(WANTED[name], key=key)
sections = open(sys.argv[1] + "/stdout").read().split("== ")[1:]
assert [section.split("\n")[0] for section in sections] == 2 * list(WANTED)
for section in sections:
    name, *lines = section.rstrip("\n").split("\n")
    wanted, rows = WANTED[name], sorted(map(parse, lines), key=key)
    wrong = [pair for pair in zip(wanted, rows) if not same(*pair)]
    if wrong or not wanted or len(rows) != len(wanted):
        sys.exit(f"{name}: {len(rows)} rows, wanted {len(wanted)}; wanted and found: {wrong[:3]}")
