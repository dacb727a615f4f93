"""English sentences out of what packages of Debian bring along: books, documentation, dictionaries, manual pages."""
import gzip
import html.parser
import os
import re

FEWEST_WORDS, MOST_WORDS = 3, 60
# Between these a paragraph ends.
BLOCKS = {"p", "li", "dd", "dt", "td", "th", "div", "h1", "h2", "h3", "h4", "h5", "h6", "blockquote", "tr", "table", "ul", "ol",
          "br", "hr", "body", "title"}
UNREAD = {"script", "style", "pre", "code", "tt", "kbd", "samp", "var", "svg", "math"}
INLINE = {"code", "tt", "kbd", "samp", "var"}  # a name of something stands for them


class Paragraphs(html.parser.HTMLParser):
    """The paragraphs of a page, without what is no text."""

    def __init__(self):
        super().__init__(convert_charrefs=True)
        self.parts, self.unread = [], 0

    def handle_starttag(self, tag, attributes):
        if tag in UNREAD:
            self.unread += 1
            if tag in INLINE:
                self.parts.append(" X ")
        elif tag in BLOCKS:
            self.parts.append("\n\n")

    def handle_endtag(self, tag):
        if tag in UNREAD:
            self.unread = max(0, self.unread - 1)
        elif tag in BLOCKS:
            self.parts.append("\n\n")

    def handle_data(self, data):
        if not self.unread:
            self.parts.append(data)


def without_roff(text):
    text = re.sub(r"^[.'].*$", "", text, flags=re.MULTILINE)
    return re.sub(r"\\f[A-Z]|\\f\[\w*\]|\\[&|^/,%]", "", text).replace("\\-", "-")


def text_of(path):
    """A file's text, with blank lines between paragraphs; what it is, its name says."""
    with (gzip.open if path.endswith((".gz", ".dz")) else open)(path, "rb") as file:
        text = file.read().decode("utf-8", errors="replace")
    name = re.sub(r"\.[gd]z$", "", path)
    if re.search(r"\.x?html?$", name):
        page = Paragraphs()
        page.feed(text)
        return "".join(page.parts)
    if re.search(r"/man/.*\.[1-8]\w*$", name):
        return without_roff(text)
    return text


def sentences_of(path):
    """The sentences of a file that look like English prose: mostly letters, with a capital and a stop."""
    for paragraph in re.split(r"\n\s*\n", text_of(path)):
        for sentence in re.split(r"(?<=[.!?])\s+(?=[A-Z\"(])", " ".join(paragraph.split())):
            words = sentence.split()
            letters = sum(c.isalpha() or c == " " for c in sentence)
            if (FEWEST_WORDS <= len(words) <= MOST_WORDS and letters >= 0.85 * len(sentence)
                    and sentence[-1] in ".!?" and sentence[0].isupper() and sentence.isprintable()
                    and "\ufffd" not in sentence and not re.search(r"[^\x00-\x7f\u2010-\u2026]", sentence)):
                yield sentence


def sentences(paths):
    """Each sentence once, in the order of the files."""
    seen = set()
    for path in paths:
        if not os.path.isfile(path):
            continue
        for sentence in sentences_of(path):
            key = hash(sentence)
            if key not in seen:
                seen.add(key)
                yield sentence
