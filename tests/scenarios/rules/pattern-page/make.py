import pathlib
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import page

rules = "\n".join(f"(r{i} {lines[0]})" for i, lines in enumerate(page.examples()))
pathlib.Path("page.lsp").write_text(f"{page.lexicon()}\n(def-rules R\n{rules})\n(debug-rules R)\n")
