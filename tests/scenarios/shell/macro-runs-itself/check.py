import sys
lines = open(sys.argv[1] + "/stdout").read().split("\n")
errors = open(sys.argv[1] + "/stderr").read().split("\n")
once, twice = ("load: nested too deeply: " + m for m in ("once", "twice"))
assert errors == [once, "The expansion of a macro is too long", twice, twice, ""], errors
assert lines[-3:] == ["other", "good", ""] and set(lines[:-3]) == {"up"} and len(lines) > 400, lines
