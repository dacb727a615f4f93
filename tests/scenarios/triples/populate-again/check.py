import sys

for kind in ("rels", "deps"):
    if open(kind + ".1").read() != open(kind + ".2").read():
        sys.exit(f"{kind} differ")
