import sys

rels, deps = open("rels.out").read(), open("deps.out").read()
wanted_rels = [row for row in open("rels.txt").read().splitlines()
               if "\tverb\t" not in row and "subj\t \t0.5" not in row]
wanted_deps = [row for row in open("deps.txt").read().splitlines()
               if "stone" not in row and "unknown" not in row and not row.endswith("\t0.5")]
if rels.splitlines() != wanted_rels:
    sys.exit(f"the relation file is\n{rels}")
if deps.splitlines() != wanted_deps:
    sys.exit(f"the detail file is\n{deps}")
if open("rels.2").read() != rels or open("deps.2").read() != deps:
    sys.exit("a dump of a dump differs")
if open("rels.3").read() != open("rels.4").read() or open("deps.3").read() != open("deps.4").read():
    sys.exit("populated again the store differs")
