# A small corpus: triples with counts, as sorted rows of relations and of details.
import collections
import random

below = random.Random(1).randrange
triples = collections.Counter()
for _ in range(1500):
    head, relation, other = below(40), "subj obj mod of".split()[below(4)], below(40)
    if (head + other) % 3 == 0 or below(3) == 0:
        triples[f"w{head}", relation, f"w{other * other % 40}"] += 1 + below(8) / 4
rows, details = collections.Counter(), {}
for (head, relation, other), n in triples.items():
    for key in ((head, " ", "freq"), (other, " ", "invFreq"), (relation, " ", "freq"), (head, relation, " "),
                (other, "-" + relation, " ")):
        rows[key] += n
    details[head, relation, other] = details[other, "-" + relation, head] = n
for name, counts in (("main.rels", rows), ("main.deps", details)):
    with open(name, "w") as out:
        # Keys are compared by upper-cased characters.
        for key, n in sorted(counts.items(), key=lambda row: [field.upper() for field in row[0]]):
            print(*key, f"{n:g}", sep="\t", file=out)
