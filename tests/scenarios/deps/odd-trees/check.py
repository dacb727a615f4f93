import pathlib
import sys

lengths = [len(line) for line in pathlib.Path("words.txt").read_text().splitlines()]
assert len(lengths) == 12 and max(lengths) == 1023, lengths
written = pathlib.Path("out.txt").read_text()
assert written.count("(:id") == 12 and written.count("x" * 100000) >= 5, "not every tree was written"
errors = (pathlib.Path(sys.argv[1]) / "stderr").read_text().splitlines()
for message in ("the parent of `c' is already its descendent: - 1", "the parent of `d' is already its descendent: - 4",
                "the parent of `b' is not found, specified as: >>> a", "Deps::read: only the first 32767 words are read",
                "the parent of `e' is not found, specified as: - nobody",
                "The named object 'no-rules' (type=TreeModifier) is not found"):
    assert message in errors, message
