rels, deps = open("rels.out").read(), open("deps.out").read()
wanted_rels = [row for row in open("rels.txt").read().splitlines()
               if "\tverb\t" not in row and "subj\t \t0.5" not in row]
wanted_deps = [row for row in open("deps.txt").read().splitlines()
               if "stone" not in row and "unknown" not in row and not row.endswith("\t0.5")]
assert rels.splitlines() == wanted_rels, rels
assert deps.splitlines() == wanted_deps, deps
assert open("rels.2").read() == rels and open("deps.2").read() == deps, "a dump of a dump differs"
for name in ("rels", "deps"):
    assert open(name + ".3").read() == open(name + ".4").read(), "populated again the store differs"
