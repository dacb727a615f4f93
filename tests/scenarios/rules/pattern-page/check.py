import pathlib
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import make as page

found = page.reported((pathlib.Path(sys.argv[1]) / "stderr").read_text())
examples = page.examples()
if len(found) != len(examples) or not examples:
    sys.exit(f"{len(found)} of {len(examples)} patterns ran")
for i, lines in enumerate(examples):
    wanted = page.block(lines[0], found[f"r{i}"])
    if lines != wanted:
        sys.exit("\n".join(["the page has", *lines, "and not", *wanted]))
