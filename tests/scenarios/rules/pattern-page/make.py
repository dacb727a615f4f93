"""The examples of docs/patterns.md, and the pictures of the matches that a run reports."""
import pathlib
import re

PAGE = pathlib.Path(__file__).resolve().parents[4] / "docs" / "patterns.md"
WORDS = "the old man saw Fido in New York".split()
ROW = ["^", *WORDS, "$"]
STARTS = [1 + sum(len(word) + 2 for word in ROW[:i]) for i in range(len(ROW))]
ENDS = [start + len(word) - 1 for start, word in zip(STARTS, ROW)]
SENTENCE = " " + "  ".join(ROW)


def lexicon():
    return re.search(r"^```lisp\n(.*?)^```", PAGE.read_text(), re.M | re.S).group(1)


def examples():
    """The lines of each block: the pattern, the sentence, the matches."""
    blocks = re.findall(r"^```pattern\n(.*?)^```", PAGE.read_text(), re.M | re.S)
    return [lines.splitlines() for lines in blocks]


def spans(match):
    """The span of a match and those of its components, from "[1,2] ([1,1] [2,2])"."""
    depth, parts = 0, []
    for text in re.findall(r"\[-?\d+,-?\d+\]|[()]", match):
        depth += {"(": 1, ")": -1}.get(text, 0)
        if text[0] == "[" and depth <= 1:
            parts.append(tuple(map(int, text[1:-1].split(","))))
    return parts[0], parts[1:]


def picture(match):
    (low, high), parts = spans(match)
    line = [" "] * (ENDS[-1] + 1)
    bars = []
    for start, _ in parts[1:]:
        bars.append(STARTS[start] - 2 + (STARTS[start] - 2 in bars))
    if low <= high:
        covered = [column for start, end in parts or [(low, high)] if start <= end
                   for column in range(STARTS[start] - 1, ENDS[end] + 1)]
        for column in range(STARTS[low], ENDS[high] + 1):
            line[column] = "-" if column in covered else "."
        line[STARTS[low]], line[ENDS[high]] = ("[", "]") if STARTS[low] < ENDS[high] else "||"
    else:
        bars.append(STARTS[low] - 2)
    for column in bars:
        line[column] = "|"
    return "".join(line) + "  " + match


def block(pattern, matches):
    return [pattern, SENTENCE] + [picture(match) for match in matches]


def reported(errors):
    """The matches of each rule, from what debugging writes."""
    found = {}
    for line in errors.splitlines():
        if line.startswith("Lexical Rule: "):
            found[line.split(": ")[1]] = []
        elif line:
            found[list(found)[-1]].append(line)
    return found


if __name__ == "__main__":
    rules = "\n".join(f"(r{i} {lines[0]})" for i, lines in enumerate(examples()))
    pathlib.Path("page.lsp").write_text(f"{lexicon()}\n(def-rules R\n{rules})\n(debug-rules R)\n")
