# Two small corpora: triples with counts, as sorted rows of relations and of details.
import collections

state = 12345


def below(n):
    global state
    state = (state * 1103515245 + 12345) % 2**31
    return state // 65536 % n


def corpus(name, size, words):
    triples = collections.Counter()
    for _ in range(size):
        head, relation, other = below(words), "subj obj mod of".split()[below(4)], below(words)
        if (head + other) % 3 == 0 or below(3) == 0:
            triples[f"w{head}", relation, f"w{other * other % words}"] += 1 + below(8) / 4
    # Keys are compared by upper-cased characters.
    rows = collections.Counter()
    details = []
    for (head, relation, other), n in triples.items():
        rows[head, " ", "freq"] += n
        rows[other, " ", "invFreq"] += n
        rows[relation, " ", "freq"] += n
        rows[head, relation, " "] += n
        rows[other, "-" + relation, " "] += n
        details += [(head, relation, other, n), (other, "-" + relation, head, n)]
    with open(name + ".rels", "w") as out:
        for key, n in sorted(rows.items(), key=lambda row: [field.upper() for field in row[0]]):
            print(*key, f"{n:g}", sep="\t", file=out)
    with open(name + ".deps", "w") as out:
        for *key, n in sorted(details, key=lambda row: [field.upper() for field in row[:3]]):
            print(*key, f"{n:g}", sep="\t", file=out)


corpus("main", 1500, 40)
corpus("back", 900, 35)
