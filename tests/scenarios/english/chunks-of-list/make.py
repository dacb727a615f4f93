"""The forms that parse the sentences."""
import pathlib

table = pathlib.Path("data").resolve().parent / "tests" / "english" / "sentences.tsv"
sentences = [line.split("\t")[0] for line in table.read_text().splitlines() if not line.startswith("#")]
pathlib.Path("sentences.lsp").write_text("".join(f'(p3 "{sentence}")\n' for sentence in sentences[:40]))
