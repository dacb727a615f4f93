import sys
text = open("report.txt").read()
if text != "a\nb\n> c\nd\n":
    sys.exit(f"the report holds {text!r} at the end of the run")
