"""What parsing of text costs by the length of its sentences: whole runs of one program, or of two in turn; and what
steps it takes."""
import contextlib
import os
import subprocess
import tempfile

import english_text
from run_folder import RunFolder

# The shortest and the longest sentence, and how many: a mixture like that of web text.
CLASSES = [(3, 10, 300), (11, 20, 170), (21, 30, 80), (31, 40, 35), (41, 60, 20)]
ROUNDS = 5
STEP_LENGTHS, STEP_SENTENCES = [10, 20, 30, 40], 50


def rows(programs, data):
    """(name, milliseconds a sentence of each program, note) by class, for all of the text, and for the start-up."""
    maker = english_text.Sentences(data + "/english", seed=1)
    texts = {f"text, {low} to {high} words": [maker.of_length(low, high) for _ in range(count)]
             for low, high, count in CLASSES}
    texts["text, all"] = [sentence for text in list(texts.values()) for sentence in text]
    lowest = {}
    with contextlib.ExitStack() as stack:
        folders = {name: stack.enter_context(RunFolder(data, text))
                   for name, text in [("start-up", []), *texts.items()]}
        for _ in range(ROUNDS):
            for name, folder in folders.items():
                for program in programs:
                    seconds, _ = folder.usage(program)
                    lowest[name, program] = min(seconds, lowest.get((name, program), seconds))
    for name, text in texts.items():
        times = [1e3 * (lowest[name, program] - lowest["start-up", program]) / len(text) for program in programs]
        yield name, times, f"{1e3 / times[-1]:.0f} sentences/s"
    yield "text, start-up", [1e3 * lowest["start-up", program] for program in programs], "of which it is free"


def counts_row(program, data):
    """Milliseconds a sentence with a database of counts, and how many times that without one is; starts taken off."""
    maker = english_text.Sentences(data + "/english", seed=1)
    text = [maker.of_length(low, high) for low, high, count in CLASSES for _ in range(count)]
    other = english_text.Sentences(data + "/english", seed=2)
    with tempfile.TemporaryDirectory() as folder:
        def path(name):
            return os.path.join(folder, name)

        def write(name, sentences):
            with open(path(name), "w", encoding="utf-8") as file:
                file.writelines(sentence + "\n" for sentence in sentences)

        write("text", text)
        write("start", text[:1])
        write("corpus", (other.of_length(low, high) for low, high, count in CLASSES for _ in range(5 * count)))
        for step in (["count", "--data", data, "--from", "lines", path("corpus"), "-o", path("counts")],
                     ["build-counts", path("counts"), path("db")]):
            subprocess.run([program, *step], stderr=subprocess.DEVNULL, check=True)
        lowest = {}
        for _ in range(ROUNDS):
            for options in ((), ("--counts", path("db"))):
                for name in ("text", "start"):
                    process = subprocess.Popen([program, "parse", "--data", data, "--quiet", "--from", "lines", *options,
                                                path(name)], stdout=subprocess.DEVNULL)
                    _, _, usage = os.wait4(process.pid, 0)
                    seconds = usage.ru_utime + usage.ru_stime
                    lowest[options, name] = min(seconds, lowest.get((options, name), seconds))
    without, with_counts = (lowest[options, "text"] - lowest[options, "start"] for options in sorted({o for o, _ in lowest}))
    return 1e3 * with_counts / (len(text) - 1), with_counts / without


def step_rows(counter, data):
    """(step, how often a sentence takes it by length), the lengths first."""
    table = {"steps, by words": [str(length) for length in STEP_LENGTHS]}
    for length in STEP_LENGTHS:
        maker = english_text.Sentences(data + "/english", seed=length)
        text = "".join(maker.of_length(length, length) + "\n" for _ in range(STEP_SENTENCES))
        output = subprocess.run([counter], input=text, stdout=subprocess.PIPE, encoding="utf-8", check=True).stdout
        for line in output.splitlines():
            step, count = line.split("\t")
            table.setdefault(step, []).append(count)
    return table.items()
