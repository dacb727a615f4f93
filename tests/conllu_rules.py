"""The rules that a file of CoNLL-U trees has to keep, whatever made it: each fault with its line."""
import re

WORD = re.compile(r"[1-9][0-9]*")
RANGE = re.compile(r"([1-9][0-9]*)-([1-9][0-9]*)")
CATEGORIES = set("ADJ ADP ADV AUX CCONJ DET INTJ NOUN NUM PART PRON PROPN PUNCT SCONJ SYM VERB X".split())
RELATIONS = set("""acl advcl advmod amod appos aux case cc ccomp clf compound conj cop csubj dep det discourse
    dislocated expl fixed flat goeswith iobj list mark nmod nsubj nummod obj obl orphan parataxis punct reparandum
    root vocative xcomp""".split())


def split(data):
    """The blocks of a file, with the number of their first line; what does not end in an empty line is one too."""
    block, first = [], 1
    for number, line in enumerate(data.split("\n"), 1):
        if line:
            if not block:
                first = number
            block.append(line)
        elif block:
            yield first, block
            block = []
    if block:
        yield first, block


def surface(words, ranges):
    """The text that words and ranges spell out by their spaces."""
    text, inside = "", 0
    for number, row in words.items():
        if number in ranges:
            end, token = ranges[number]
            inside = end
        elif number <= inside:
            continue
        else:
            token = row
        text += token[1] + ("" if "SpaceAfter=No" in token[9].split("|") else " ")
    return text.rstrip()


def faults_of_block(first, block, universal):
    text, seen_id, words, ranges = None, None, {}, {}
    for number, line in enumerate(block, first):
        if line.startswith("#"):
            if words:
                yield number, "a comment between words"
            if line.startswith("# text = "):
                text = line[9:]
            if line.startswith("# sent_id = "):
                seen_id = line[12:]
            continue
        row = line.split("\t")
        if len(row) != 10:
            yield number, f"{len(row)} columns"
            continue
        if any(not column or column != column.strip() for column in row):
            yield number, "an empty column, or one with blanks around it"
        if any(" " in row[i] for i in (0, 3, 4, 5, 6, 7, 8)):
            yield number, "a blank in a column that has none"
        if span := RANGE.fullmatch(row[0]):
            low, high = int(span[1]), int(span[2])
            if low != len(words) + 1 or high < low:
                yield number, f"the range {row[0]} stands behind {len(words)} words"
            ranges[low] = (high, row)
            continue
        if not WORD.fullmatch(row[0]) or int(row[0]) != len(words) + 1:
            yield number, f"the id {row[0]} behind {len(words)} words"
            return
        if not row[6].isdigit():
            yield number, f"the head {row[6]}"
            return
        if universal and row[3] not in CATEGORIES:
            yield number, f"the category {row[3]}"
        if universal and row[7].split(":")[0] not in RELATIONS:
            yield number, f"the relation {row[7]}"
        features = [] if row[5] == "_" else row[5].split("|")
        if features != sorted(features, key=str.lower) or not all(re.fullmatch(r"\w+=[\w,]+", f) for f in features):
            yield number, f"the features {row[5]}"
        if (row[6] == "0") != (row[7] == "root"):
            yield number, f"the relation {row[7]} of the head {row[6]}"
        words[len(words) + 1] = row
    heads = {number: int(row[6]) for number, row in words.items()}
    if list(heads.values()).count(0) != 1:
        yield first, f"{list(heads.values()).count(0)} roots"
    for number in heads:
        at, steps = number, 0
        while at and steps <= len(heads):
            at, steps = heads.get(at, -1), steps + 1
            if at < 0:
                yield first, f"a head above word {number} is no word"
                break
        if at > 0:
            yield first, f"a circle above word {number}"
    if any(high > len(words) for high, _ in ranges.values()):
        yield first, "a range ends behind the last word"
    if seen_id is None:
        yield first, "no sent_id"
    if text is None or text.split() != surface(words, ranges).split():
        yield first, f"the text {text!r} against the words {surface(words, ranges)!r}"


def faults(data, universal=True):
    """Rows (line, what is wrong). `universal`: categories and relations are those of Universal Dependencies."""
    found, ids = [], set()
    if data and not data.endswith("\n\n"):
        found.append((data.count("\n"), "no empty line at the end"))
    for first, block in split(data):
        found.extend(faults_of_block(first, block, universal))
        for line in block:
            if line.startswith("# sent_id = "):
                if line in ids:
                    found.append((first, f"once more {line}"))
                ids.add(line)
    return found
