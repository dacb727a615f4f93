import pathlib

lengths = [len(line) for line in pathlib.Path("words.txt").read_text().splitlines()]
assert len(lengths) == 12 and max(lengths) == 1023, lengths
written = pathlib.Path("out.txt").read_text()
assert written.count("(:id") == 12 and written.count("x" * 100000) >= 5, "not every tree was written"
