"""The Python module, as a program uses it."""
import inspect
import pathlib
import re
import threading
import time

import pytest
import torvane

SENTENCES = ["The cat sat on the mat.", "Dogs bark.", "She said that he had seen it."]


@pytest.fixture(scope="module")
def nlp():
    return torvane.load("english")


def test_words_of_a_text(nlp):
    text = "Él isn’t here.\n\nThe dogs\nbark."
    document = nlp(text)
    assert [sentence.text for sentence in document] == ["Él isn’t here.", "The dogs bark."]
    assert len(document) == len(document.sentences) == 2
    assert all(text[word.begin:word.end] == word.form for sentence in document for word in sentence)
    sentence = document[-1]
    assert [word.form for word in sentence.words] == ["The", "dogs", "bark", "."]
    dogs = sentence[1]
    assert (dogs.lemma, dogs.upos, dogs.xpos, dogs.features) == ("dog", "NOUN", "NN", "Number=Plur")
    assert (dogs.number, dogs.head, dogs.relation, dogs.outside) == (2, 3, "nsubj", False)
    assert (sentence.parts, sentence.cut, sentence.id, sentence.starts_paragraph) == (1, "", "2", True)
    assert repr(dogs) == "<Word dogs 3 nsubj>"
    with pytest.raises(IndexError):
        sentence[4]


def test_words_outlive_their_document(nlp):
    words = [word for sentence in nlp(" ".join(SENTENCES)) for word in sentence]
    assert [word.form for word in words if word.relation == "root"] == ["sat", "bark", "said"]


def test_formats(nlp):
    document = nlp("Dogs bark.")
    conllu = document.to_conllu()
    assert conllu == document.to("conllu") == torvane.read(conllu).to_conllu() == nlp(conllu, "conllu").to_conllu()
    assert document[0].to("brackets") == "(root (nsubj Dogs) bark (punct .))\n"
    assert document._repr_svg_() is None or "<svg" in document._repr_svg_()
    with pytest.raises(ValueError, match="no format nosuch"):
        document.to("nosuch")
    half = torvane.read("1\tx\n\n" + conllu)
    assert half.error == "1: 2 columns, not 10" and len(half) == 1
    with pytest.raises(ValueError, match="1: 2 columns"):
        torvane.read("1\tx\n\n")


def test_a_sentence_and_words(nlp):
    assert nlp.sentence("Dogs bark. Cats sleep.").text == "Dogs bark. Cats sleep."
    assert [word.form for word in nlp.words(["do", "n't", "sleep"])] == ["do", "n't", "sleep"]
    with pytest.raises(TypeError):
        nlp.words([1])


def test_reasons(nlp):
    told = nlp.why("The dogs bark.", 1, 3)
    assert (told["answer"]["kind"], told["own"], len(nlp.why("The dogs bark.")["words"])) == ("dearer", 2, 4)
    assert "file" not in told["links"][0]
    quoted = torvane.load("english", explains=True).why("The dogs bark.", 1, 3)["links"][0]
    assert quoted["file"] == "english/nouns.lsp" and quoted["line"] > 0
    for modifier, head in ((9, 1), (1, 1), (1, 9), (-1, 0)):
        with pytest.raises(ValueError):
            nlp.why("Dogs bark.", modifier, head)


def test_faults_are_value_errors(tmp_path):
    with pytest.raises(ValueError, match="no grammar nosuch in "):
        torvane.load("nosuch")
    (tmp_path / "small.lsp").write_text("(nosuch)")
    with pytest.raises(ValueError, match="unknown function nosuch"):
        torvane.load(tmp_path / "small.lsp")
    with pytest.raises(ValueError, match="no style nosuch"):
        torvane.load("english", style="nosuch")
    with pytest.raises(ValueError, match="has no counts that can be read"):
        torvane.load("english", counts=tmp_path)


def test_bytes_that_are_no_utf8(nlp):
    text = b"caf\xe9 dogs bark".decode("utf-8", "surrogateescape")
    assert "".join(word.form for word in nlp(text)[0]) == text.replace(" ", "")


def test_pipe_keeps_the_order_and_reads_little_ahead(nlp):
    taken = []

    def texts():
        for i in range(200):
            taken.append(i)
            yield f"Dogs bark. {SENTENCES[i % 3]}"

    for jobs in (1, 2):
        taken.clear()
        found = []
        for document in nlp.pipe(texts(), jobs=jobs):
            assert len(taken) - len(found) <= 16 * jobs
            found.append(document[1].text)
        assert found == [SENTENCES[i % 3] for i in range(200)]
    with pytest.raises(ValueError):
        list(nlp.pipe([], jobs=0))
    with pytest.raises(TypeError):
        list(nlp.pipe(["Dogs bark.", 5], jobs=2))


def test_the_interpreter_goes_on_meanwhile(nlp):
    text = " ".join(SENTENCES) * 300
    turns = 0
    thread = threading.Thread(target=nlp, args=(text,))
    thread.start()
    while thread.is_alive():
        time.sleep(0.001)
        turns += 1
    assert turns > 20


def test_the_stubs_name_what_is_there():
    stubs = pathlib.Path(inspect.getfile(torvane)).with_suffix(".pyi").read_text()
    for name, body in re.findall(r"^class (\w+):\n((?: .*\n)+)", stubs, re.M):
        there = {each for each in vars(getattr(torvane, name)) if not each.startswith("__")}
        assert set(re.findall(r"def ((?!__)\w+)", body)) == there - {"_write", "_choice", "_engine"}
    assert set(re.findall(r"^(?:class|def) (\w+)", stubs, re.M)) == set(torvane.__all__) - {"__version__"}
