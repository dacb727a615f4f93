import sys
lines = open(sys.argv[1] + "/stdout").read().split("\n")
errors = open(sys.argv[1] + "/stderr").read().split("\n")
assert errors == ["load: nested too deeply: " + m for m in ("once", "twice", "twice")] + [""], errors
assert lines[-3:] == ["other", "good", ""] and set(lines[:-3]) == {"up"} and len(lines) > 400, lines
