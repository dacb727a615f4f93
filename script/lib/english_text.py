"""Makes English sentences of wanted lengths out of the words of the starter grammar's lexicon.

A sentence begins as a subject and a verb, and grows at places drawn by lot (an adjective here, a phrase or a clause
there) until it has the length. The same numbers always give the same sentences.
"""
import os
import random
import re

TOKEN = re.compile(r"\w+|[^\w\s]")
PREPOSITIONS = "in on near with from for behind about without by under after of of of of to to in at".split()
SUBORDINATORS = "because when if while although before after since".split()
DETERMINERS = "the the the the a a this every his her our their some no".split()
SUBJECTS = "I you he she it we they someone".split()
OBJECTS = "me you him her it us them someone".split()
MODALS = ["will", "could", "must", "did not", "may"]


def length(sentence):
    """Words as the grammar counts them: with the punctuation."""
    return len(TOKEN.findall(sentence))


class Vocabulary:
    def __init__(self, folder):
        self._folder = folder
        self.nouns = self._of("nouns", "noun")
        self.masses = self._of("nouns", "mass")
        self.names = [name.capitalize() for name in self._of("names", "name")]
        self.adjectives = self._of("adjectives", "adj")
        self.adverbs = self._of("adverbs", "adv")
        self.transitive = self._of("verbs", "vt") + self._of("verbs", "vo")
        self.intransitive = self._of("verbs", "vi")
        self.with_clause = self._of("verbs", "vc")
        self.with_infinitive = self._of("verbs", "vto")
        self.irregular = set(re.findall(r"\(lemma ([a-z]+)\)", self._text("irregular")))

    def _text(self, name):
        with open(os.path.join(self._folder, name + ".lex"), encoding="utf-8") as file:
            return file.read()

    def _of(self, name, kind):
        """The single words of a dictionary whose first reading is of a kind."""
        return re.findall(rf"^\(([a-z]+) \(avm \({kind}\)\)", self._text(name), re.MULTILINE)


class Sentences:
    def __init__(self, folder, seed):
        self._words = Vocabulary(folder)
        self._lot = random.Random(seed)

    def of_length(self, low, high):
        """A sentence of so many words; all lengths are equally likely."""
        wanted = self._lot.randint(low, high)
        while True:
            clause = self._clause()
            text = self._written(clause)
            while length(text) < wanted:
                self._grow(clause)
                text = self._written(clause)
            if length(text) == wanted:
                return text

    # A clause is a list of parts, a part a text or a list of parts. What may grow is a list that has its kind in
    # front: a noun phrase ["np", ...] or a verb phrase ["vp", ...].

    def _one(self, words):
        return self._lot.choice(words)

    def _noun_phrase(self, pronouns=OBJECTS):
        kind = self._lot.random()
        if kind < 0.2:
            return [self._one(pronouns)]
        if kind < 0.35:
            return [self._one(self._words.names)]
        if kind < 0.45:
            return ["np", [], [], self._one(self._words.masses), []]
        return ["np", [self._one(DETERMINERS)], [], self._one(self._words.nouns), []]

    def _verb(self, words):
        verb = self._one(words)
        if self._lot.random() < 0.5 or verb in self._words.irregular or not re.search(r"e$|[^aeiou][^aeiouy]$", verb):
            return [self._one(MODALS), verb]
        return [verb + ("d" if verb.endswith("e") else "ed")]

    def _verb_phrase(self, infinitive=False):
        words = self._words
        kind = self._lot.random()

        def verb(choice):
            return ["to", self._one(choice)] if infinitive else self._verb(choice)

        if kind < 0.15:
            return ["vp", [verb(words.intransitive)], []]
        if kind < 0.3 and not infinitive:
            return ["vp", [self._one(MODALS), "be", self._one(words.adjectives)], []]
        if kind < 0.4:
            return ["vp", [verb(words.with_infinitive), self._verb_phrase(infinitive=True)], []]
        if kind < 0.55:
            return ["vp", [verb(words.with_clause), self._lot.choice([["that"], []]), self._clause()], []]
        return ["vp", [verb(words.transitive), self._noun_phrase()], []]

    def _clause(self):
        return ["s", [], self._noun_phrase(SUBJECTS), self._verb_phrase(), []]

    def _phrase(self):
        return [self._one(PREPOSITIONS), self._noun_phrase()]

    def _grow(self, sentence):
        places = []

        def collect(part):
            if isinstance(part, list):
                if part and part[0] in ("np", "vp", "s"):
                    places.append(part)
                for inner in part:
                    collect(inner)

        collect(sentence)
        place = self._one(places)
        draw = self._lot.random()
        if place[0] == "np":
            if draw < 0.45:
                place[2].append(self._one(self._words.adjectives))
            elif draw < 0.85:
                place[4].append(self._phrase())
            elif draw < 0.95:
                place[4].append([self._one(["who", "which", "that"]), self._verb_phrase()])
            else:
                place[4].append(["and", self._noun_phrase()])
        elif place[0] == "vp":
            if draw < 0.7:
                place[2].append(self._phrase())
            elif draw < 0.9:
                place[2].append([self._one(self._words.adverbs)])
            else:
                place[2].append(["and", self._verb_phrase()])
        elif place is sentence:
            if draw < 0.5:
                place[4].append([", " + self._one(["and", "but"]), self._clause()])
            elif draw < 0.8:
                place[4].append([self._one(SUBORDINATORS), self._clause()])
            else:
                place[1].append([self._phrase(), ","])

    def _written(self, sentence):
        words = []

        def collect(part):
            if isinstance(part, list):
                for inner in part[1:] if part and part[0] in ("np", "vp", "s") else part:
                    collect(inner)
            else:
                words.append(part)

        collect(sentence)
        text = " ".join(words).replace(" ,", ",")
        text = re.sub(r"\ba(?= [aeiou])", "an", text)
        return text[0].upper() + text[1:] + "."
