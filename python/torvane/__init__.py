"""Dependency trees of natural language.

    import torvane
    nlp = torvane.load("english")
    for sentence in nlp("The cat sat on the mat."):
        for word in sentence:
            print(word.form, word.head, word.relation)
"""
import os

from torvane import _torvane
from torvane._torvane import Document, Sentence, Word, __version__

__all__ = ["Document", "Language", "Sentence", "Word", "load", "read", "__version__"]


def load(grammar="english", *, data="", style="", max_words=0, counts="", explains=False):
    """A grammar by its name, or the path of a start-up file. ValueError tells why it does not load.

    data is the folder of the grammars, style the head style (content or grammar); a sentence of more than max_words
    is parsed piece by piece. counts is the folder of a database of counts. A language that explains keeps the forms of
    its grammar, to quote them. What is not given is as on the command line.
    """
    return Language(os.fspath(grammar), os.fspath(data), style, max_words, os.fspath(counts), explains)


def read(text, format="conllu"):
    """The document that a text in that format has, unparsed. Its error names the sentences that were left out."""
    document = _torvane.read(text, format)
    if document.error and len(document) == 0:
        raise ValueError(document.error)
    return document


class Language:
    """A loaded grammar. Threads may share one: it serves one call at a time, and the interpreter goes on meanwhile."""

    def __init__(self, *choice):
        self._choice = choice
        self._engine = _torvane.Engine(*choice)
        if self._engine.error:
            raise ValueError(self._engine.error)

    def __call__(self, text, kind="text"):
        """Parses a text: running text, or of another kind of `torvane parse --from`, such as lines."""
        document = self._engine.parse(text, kind)
        if document.error and len(document) == 0:
            raise ValueError(document.error)
        return document

    def sentence(self, text):
        """Parses a text as one sentence, and gives this."""
        return self._engine.parse_sentence(text)[0]

    def words(self, words):
        """Parses a list of words as one sentence, and gives this."""
        return self._engine.parse_words(list(words))[0]

    def why(self, text, modifier=0, head=0):
        """Why a word of a sentence is not under another one, by their numbers; head 0 is the root. Without them: why
        the tree is as it is. What `torvane why --json` writes."""
        import json

        told = json.loads(self._engine.why(text, modifier, head))
        if "fault" in told:
            raise ValueError(told["fault"])
        return told

    def pipe(self, texts, jobs=1, kind="text"):
        """A document for each text, in order, from several threads; a few texts are read in advance."""
        if jobs < 1:
            raise ValueError("jobs must be 1 or more")
        if jobs == 1:
            for text in texts:
                yield self(text, kind)
            return
        # Who does without need not wait for them: they take as long as a grammar.
        import collections
        import concurrent.futures
        import queue

        idle = queue.SimpleQueue()
        idle.put(self)
        for _ in range(jobs - 1):
            idle.put(None)

        def parse(text):
            language = idle.get()
            try:
                language = language or Language(*self._choice)
                return language(text, kind)
            finally:
                idle.put(language)

        waiting = collections.deque()
        with concurrent.futures.ThreadPoolExecutor(jobs) as threads:
            try:
                for text in texts:
                    waiting.append(threads.submit(parse, text))
                    if len(waiting) >= 16 * jobs:
                        yield waiting.popleft().result()
                while waiting:
                    yield waiting.popleft().result()
            finally:
                for future in waiting:
                    future.cancel()

    def messages(self):
        """What the grammar has printed since the last call."""
        return self._engine.messages()


def _to(self, format):
    """In a format of `torvane parse --to`; ValueError if there is none of that name."""
    text = self._write(format)
    if text is None:
        raise ValueError(f"there is no format {format}")
    return text


def _to_conllu(self):
    """In CoNLL-U."""
    return self._write("conllu")


def _repr_svg(self):
    """For notebooks."""
    return self._write("svg")


for _class in (Document, Sentence):
    _class.to = _to
    _class.to_conllu = _to_conllu
    _class._repr_svg_ = _repr_svg
