"""Makes a folder of grammars whose English has a large lexicon: lexicon.py DATA WORDNET OUT

OUT gets links to what DATA holds, and in `english/` a disk dictionary made of WordNet's files and of the vocabulary
that DATA has written by hand, which takes precedence: where it knows a category of a word, its entry stays as it is.
What stays in memory (closed classes, irregular forms, phrases) is not in the dictionary; what else such words can be
goes to `kept.lex`. A reading that the counts of
senses tell to be unlikely has (freq f1) to (freq f8), see inflection.lsp.
"""
import collections
import math
import pathlib
import re
import shutil
import sys

OPEN = ("nouns", "names", "verbs", "adjectives", "adverbs")      # these go into the dictionary
KEPT = ("closed", "irregular", "phrases")                        # these stay in memory
PRIOR = {"n": 1.0, "v": 0.5, "a": 0.7, "r": 0.7}                 # of a sense that nobody counted
MASS = {"attribute", "feeling", "state", "substance", "phenomenon", "motive"}
PARTICLES = {"up", "down", "out", "off", "away", "back", "over", "together",
             "apart", "ahead", "aside"}
LEXNAMES = {"03": "top", "04": "act", "05": "animal", "06": "artifact", "07": "attribute", "08": "body",
            "09": "cognition", "10": "communication", "11": "event", "12": "feeling", "13": "food", "14": "group",
            "15": "location", "16": "motive", "17": "object", "18": "person", "19": "phenomenon", "20": "plant",
            "21": "possession", "22": "process", "23": "quantity", "24": "relation", "25": "shape", "26": "state",
            "27": "substance", "28": "time"}
# The frames of WordNet's verbs and what they say of a verb's arguments.
FRAMES = {1: "vi", 2: "vi", 3: "vi", 4: "vi", 5: "vna", 6: "va", 7: "va", 8: "vt", 9: "vt", 10: "vt", 11: "vt",
          12: "vi", 13: "vi", 14: "vd", 15: "vt", 16: "vt", 17: "vt", 18: "vt", 19: "vt", 20: "vt", 21: "vt",
          22: "vi", 24: "vnto", 25: "vnb", 26: "vc", 27: "vi", 28: "vto", 30: "vt", 31: "vt", 32: "vto", 33: "vt"}

Synset = collections.namedtuple("Synset", "file words frames")


def category(kind):
    return "a" if kind == "s" else kind


def read_synsets(folder):
    """By (category, offset): lexicographer's file, words as they are written, frames of all words and of each."""
    found = {}
    for name in ("noun", "verb", "adj", "adv"):
        for line in (folder / f"data.{name}").open(encoding="latin-1"):
            if line.startswith(" "):
                continue
            fields = line.split(" | ")[0].split()
            count = int(fields[3], 16)
            words = [re.sub(r"\(.*\)$", "", fields[4 + 2 * i]) for i in range(count)]
            frames = collections.defaultdict(set)
            if name == "verb":
                at = 4 + 2 * count
                at += 1 + 4 * int(fields[at])
                for i in range(int(fields[at])):
                    frames[int(fields[at + 3 + 3 * i], 16)].add(int(fields[at + 2 + 3 * i]))
            found[category(fields[2]), fields[0]] = Synset(LEXNAMES.get(fields[1], ""), words, frames)
    return found


def read_counts(folder):
    counts = collections.Counter()
    kinds = {"1": "n", "2": "v", "3": "a", "4": "r", "5": "a"}
    for line in (folder / "cntlist.rev").open(encoding="latin-1"):
        key, sense, count = line.split()
        lemma, rest = key.split("%")
        counts[lemma, kinds[rest[0]], int(sense)] += int(count)
    return counts


def senses_of(folder):
    """(lemma, category) -> the offsets of its senses, the most frequent first."""
    for name, kind in (("noun", "n"), ("verb", "v"), ("adj", "a"), ("adv", "r")):
        for line in (folder / f"index.{name}").open(encoding="latin-1"):
            if line.startswith(" "):
                continue
            fields = line.split()
            pointers = int(fields[3])
            yield fields[0], kind, fields[6 + pointers:]


def read_lex(path):
    """Key and readings of each entry of a lexicon that is written an entry a line."""
    for line in path.open(encoding="utf-8"):
        if match := re.match(r"\((.*?) (\(avm .*)\)\s*$", line):
            yield match[1].strip('"'), re.findall(r"\(avm (\((?:[^()]|\([^()]*\))*\))\)", match[2])


def kind_of(reading):
    """The category of a reading written by hand."""
    first = re.match(r"\(\(?([a-z]+)", reading)[1]
    if first in ("noun", "mass", "plural", "tnoun", "tmass", "name", "person", "num", "pron"):
        return "name" if first in ("name", "person") else "n"
    if first.startswith("adj"):
        return "a"
    return "r" if first == "adv" else "v" if first.startswith("v") else first


def noun_readings(lemma, synsets, counts):
    """A noun and a name are told apart by how the word is written in each sense."""
    common, proper, mass, time, person = 0.0, 0.0, 0.0, 0.0, 0.0
    for rank, synset in enumerate(synsets):
        weight = counts.get((lemma, "n", rank + 1), 0) + 1.0 / (1 + rank)
        written = [word for word in synset.words if word.lower() == lemma]
        if written and written[0][0].isupper():
            proper += weight
            person += weight * (synset.file == "person")
        else:
            common += weight
            mass += weight * (synset.file in MASS)
            time += weight * (synset.file == "time")
    readings = {}
    if common:
        readings["n"] = ["(mass)" if 2 * mass > common else "(noun)"], common
    if proper:
        readings["name"] = ["(person)" if 2 * person > proper else "(name)"], proper
    return readings


def verb_readings(lemma, synsets, counts):
    weights = collections.Counter()
    for rank, synset in enumerate(synsets):
        weight = counts.get((lemma, "v", rank + 1), 0) + 1.0 / (1 + rank)
        number = [word.lower() for word in synset.words].index(lemma) + 1
        for frame in {FRAMES[f] for f in synset.frames[0] | synset.frames[number] if f in FRAMES}:
            weights[frame] += weight
    total = sum(counts.get((lemma, "v", rank + 1), 0) + 1.0 / (1 + rank) for rank in range(len(synsets)))
    frames = [frame for frame, weight in weights.items() if weight >= 0.06 * total]
    readings = []
    if "vt" in frames and "vi" in frames:
        readings.append("(vo)")
    elif "vt" in frames:
        readings.append("(vt)")
    elif "vi" in frames or not frames:
        readings.append("(vi)")
    return readings + [f"({frame})" for frame in ("vd", "vc", "vto", "vnto", "vnb", "va", "vna") if frame in frames]


def read_wordnet(folder):
    """word -> category -> (readings, weight)."""
    synsets, counts = read_synsets(folder), read_counts(folder)
    words = collections.defaultdict(dict)
    for lemma, kind, offsets in senses_of(folder):
        mine = [synsets[kind, offset] for offset in offsets]
        weight = PRIOR[kind] + sum(counts.get((lemma, kind, rank + 1), 0) for rank in range(len(mine)))
        if kind == "n":
            words[lemma].update({k: (readings, w + (k == "n") * (PRIOR["n"] - 1))
                                 for k, (readings, w) in noun_readings(lemma, mine, counts).items()})
        elif kind == "v":
            words[lemma]["v"] = verb_readings(lemma, mine, counts), weight
        elif kind == "a":
            written = [word for synset in mine for word in synset.words if word.lower() == lemma]
            words[lemma]["a"] = ["(adj +cap)" if written and written[0][0].isupper() else "(adj)"], weight
        else:
            words[lemma]["r"] = ["(adv)"], weight
    return words


def cost(weight, most):
    return min(8, round(2 * math.log(most / weight)))


def with_cost(reading, rank):
    if given := re.search(r" \(freq f(\d)\)", reading):
        reading, rank = reading.replace(given[0], ""), min(8, rank + int(given[1]))
    return reading if rank < 1 else f"{reading[:-1]} (freq f{rank}))"


def is_unit(lemma, kinds, words):
    """A row of words that is rather one item than a phrase: names, compounds of nouns, verbs with a particle."""
    parts = lemma.split("_")
    if len(parts) > 3 or not all(re.fullmatch(r"[a-z]+\.?", part) for part in parts):
        return False
    if "v" in kinds and len(parts) == 2 and parts[1] in PARTICLES and "v" in words.get(parts[0], {}):
        return True
    if "name" in kinds and "(name)" in kinds["name"][0] and not {"the", "of", "and"} & set(parts):
        return True
    def is_noun(part):
        kinds_of_part = words.get(part, {})
        return "n" in kinds_of_part and kinds_of_part["n"][1] >= max(w for _, w in kinds_of_part.values())
    return "n" in kinds and len(parts) == 2 and all(map(is_noun, parts))


def verb_of_form(key, words):
    """How often the verb is used of which the word may be a participle."""
    stem = re.sub(r"(ed|ing)$", "", key)
    if stem == key or len(stem) < 2:
        return 0.0
    doubled = stem[:-1] if stem[-1] == stem[-2:-1] else stem
    return max(words.get(verb, {}).get("v", ([], 0.0))[1] for verb in (stem, stem + "e", doubled, stem[:-1] + "y"))


def entry(key, kinds, words, known=0.0):
    most = max(max(weight for _, weight in kinds.values()), 0.3 * verb_of_form(key, words), known)
    readings = [with_cost(reading, cost(weight, most)) for texts, weight in kinds.values() for reading in texts]
    return "(" + key + "".join(f" (avm {reading})" for reading in readings)


def missing_frames(readings, others):
    """Of the frames that WordNet has for a verb, those which the hand-written entry lacks."""
    mine = {re.match(r"\((\w+)", reading)[1] for reading in readings}
    if not mine & {"vi", "vt", "vo", "vd", "vnp"}:
        return [other for other in others if other in ("(vi)", "(vt)", "(vo)")]
    has_object, has_none = mine & {"vt", "vd", "vnp"}, "vi" in mine
    added = []
    if "vo" not in mine and not (has_object and has_none):
        if has_object and any(other in ("(vi)", "(vo)") for other in others):
            added.append("(vi (freq f3))")
        elif has_none and any(other in ("(vt)", "(vo)") for other in others):
            added.append("(vt (freq f1))")
    return added + [f"{other[:-1]} (freq f1))" for other in others
                    if other in ("(vc)", "(vto)", "(vnto)", "(va)") and other[1:-1] not in mine]


def irregular_forms(folder, words, known):
    """Forms that no ending gives, of the words that the hand-written lists do not have."""
    forms = collections.defaultdict(list)
    for line in (folder / "noun.exc").open(encoding="latin-1"):
        form, lemma = line.split()[:2]
        if form != lemma and "_" not in form and form not in known and "n" in words.get(lemma, {}):
            forms[form].append((f"(plural (lemma {lemma}))", words[lemma]["n"][1]))
    verbs = collections.defaultdict(list)
    for line in (folder / "verb.exc").open(encoding="latin-1"):
        form, lemma = line.split()[:2]
        if "_" not in form and not re.search(r"(ing|s|ed)$", form):
            verbs[lemma].append(form)
    for lemma, mine in verbs.items():
        for form in mine:
            if form in known or form == lemma or "v" not in words.get(lemma, {}):
                continue
            shape = "ed" if len(mine) == 1 else "en" if form.endswith("n") else "past"
            for reading in words[lemma]["v"][0]:
                forms[form].append((f"{reading[:-1]} {shape} (lemma {lemma}))", words[lemma]["v"][1]))
    return forms


def main():
    data, wordnet, out = map(pathlib.Path, sys.argv[1:])
    hand = data / "english"
    kept = {key for name in KEPT for key, _ in read_lex(hand / f"{name}.lex")}
    closed = {key for key, _ in read_lex(hand / "closed.lex")}
    words = read_wordnet(wordnet)
    forms = irregular_forms(wordnet, words, kept)

    for key in [key for key in words if not re.fullmatch(r"[a-z][a-z_.-]*", key)]:
        del words[key]
    by_hand = collections.defaultdict(lambda: collections.defaultdict(list))
    for name in OPEN:
        for key, readings in read_lex(hand / f"{name}.lex"):
            for reading in readings:
                by_hand[key][kind_of(reading)].append(reading)
    for key, kinds in by_hand.items():
        most = max((weight for _, weight in words[key].values()), default=2.0)
        for kind, readings in kinds.items():
            weight = words[key][kind][1] if kind in words[key] else most
            if kind == "a" and "(adj +cap)" in words[key].get("a", ([],))[0]:
                readings = [reading if "+cap" in reading else reading.replace("(adj", "(adj +cap", 1)
                            for reading in readings]
            if kind == "v" and "v" in words[key]:
                readings = readings + missing_frames(readings, words[key]["v"][0])
            rare = [reading for reading in readings if "+rare" in reading]
            words[key][kind] = readings, max(weight, most / 3) if not rare else most
        for kind in set(words[key]) - set(kinds):
            words[key][kind] = words[key][kind][0], 0.4 * words[key][kind][1]
    # Who knows a word does without what it hardly ever is: `see` as a noun.
    for key, kinds in by_hand.items():
        most = max(weight for _, weight in words[key].values())
        for kind in set(words[key]) - set(kinds):
            if cost(words[key][kind][1], most) >= 7:
                del words[key][kind]
    # A participle is rather a form of its verb than an adjective: located, attached.
    for key, kinds in words.items():
        if "a" in kinds and key not in by_hand and verb_of_form(key, words):
            kinds["a"] = kinds["a"][0], min(kinds["a"][1], 0.08 * verb_of_form(key, words))
    for form, readings in forms.items():
        for text, weight in readings:
            kind = "v" if text.startswith("(v") else "n"
            texts, other = words[form].get(kind, ([], 0))
            words[form][kind] = texts + [text], max(weight, other)

    # Israeli: a people's name and adjective are counted apart, and before a noun it is the adjective.
    for kinds in words.values():
        if "(adj +cap)" in kinds.get("a", ([],))[0]:
            kinds["a"] = kinds["a"][0], max(weight for _, weight in kinds.values())
    verb_of_irregular = {}
    for key, readings in read_lex(hand / "irregular.lex"):
        for lemma in re.findall(r"\(lemma (\w+)\)", " ".join(readings)):
            verb_of_irregular[key] = words.get(lemma, {}).get("v", ([], 0.0))[1]
    phrases = collections.defaultdict(list)
    lines, memory = {}, []
    for key, kinds in words.items():
        if "_" in key:
            words_of_key, first = key.replace("_", " "), key.split("_")[0]
            if words_of_key in kept:
                continue
            if first not in closed and is_unit(key, kinds, words):
                text = entry(words_of_key, kinds, {})
            else:
                text = f"({words_of_key} (avm {with_cost(next(iter(kinds.values()))[0][0], 8)})"
            phrases[first].append(words_of_key)
            lines[words_of_key] = text + ")"
        elif key in closed:
            mine = {kind: kinds[kind] for kind in by_hand.get(key, ())}
            memory += [entry(key, mine, {}) + ")"] if mine else []
        elif key in kept:
            memory.append(entry(key, kinds, words, 0.5 * verb_of_irregular.get(key, 0.0)) + ")")
        else:
            lines[key] = entry(key, kinds, words)
    for first, rows in phrases.items():
        text = lines.get(first, "(" + first)
        if first in kept:
            memory += [f"({first} (phrases" + "".join(f" ({row})" for row in sorted(rows)) + "))"]
            continue
        lines[first] = text + " (phrases" + "".join(f" ({row})" for row in sorted(rows)) + ")"
    for key in lines:
        if " " not in key:
            lines[key] += ")"

    if out.exists():
        shutil.rmtree(out)
    (out / "english").mkdir(parents=True)
    for path in data.iterdir():
        if path.name != "english":
            (out / path.name).symlink_to(path.resolve())
    for path in hand.iterdir():
        if path.name != "vocabulary.lsp":
            (out / "english" / path.name).symlink_to(path.resolve())
    with (out / "english" / "lexicon.txt").open("w", encoding="utf-8") as dictionary:
        for key in sorted(lines):
            dictionary.write(lines[key] + "\n")
    (out / "english" / "kept.lex").write_text("\n".join(sorted(memory)) + "\n")
    (out / "english" / "lexicon.hdr").write_text(f"lexicon.txt {2 * len(lines) + 1} lexicon.idx ( )\n")
    (out / "english" / "vocabulary.lsp").write_text(
        "; The vocabulary: closed classes, irregular forms and phrases in memory, all else in a disk dictionary.\n"
        + "".join(f"(load-lex english english/{name}.lex :no-dup 0)\n" for name in KEPT + ("kept",))
        + "(link-lex-file english english/lexicon.hdr)\n")
    for notice in (wordnet / "LICENSE", pathlib.Path("/usr/share/doc/wordnet-base/copyright")):
        if notice.exists():
            shutil.copyfile(notice, out / "english" / "lexicon.license")
    print(f"{len(lines)} entries in {out / 'english' / 'lexicon.txt'}")


if __name__ == "__main__":
    main()
