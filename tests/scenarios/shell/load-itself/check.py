import sys
lines = open(sys.argv[1] + "/stdout").read().split("\n")
errors = open(sys.argv[1] + "/stderr").read().split("\n")
assert errors == ["load: nested too deeply: " + f for f in ("again.lsp", "other.lsp")] * 2 + [""], errors
# Each run that was entered goes on to its end.
assert lines.count("back") == 1 and set(lines) == {"other", "back", ""}
back = lines.index("back")
assert back > 400 and len(lines) == 2 * back + 3, (back, len(lines))
