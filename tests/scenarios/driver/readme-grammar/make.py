# The grammar that the README shows is the one that runs here.
import pathlib

readme = (pathlib.Path("data").resolve().parent / "README.md").read_text().split("\n")
start = next(i for i, line in enumerate(readme) if line.startswith("    (load english/"))
end = next(i for i in range(start, len(readme)) if not readme[i])
pathlib.Path("torvane.lsp").write_text("\n".join(readme[start:end]) + "\n")
pathlib.Path("sentense.dat").write_text("the cat sleeps\n")
