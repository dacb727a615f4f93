import os
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from make import group, similar, table

NONE = similar([])
dog = similar([(2, 0.75), (3, 0.5), (4, 0.25)], [group(0b101), group(0)], 0.5)
new = open("new.db", "rb").read()
for part in (table(["dog", "cat", "big cat", "fox", "elk", "large"]), b"dog\0" + dog + NONE + NONE,
             b"elk\0" + NONE + NONE + similar([(6, 1)], (), 2)):
    assert part in new, part
for name in ("good", "other", "many"):
    assert open(name + ".db", "rb").read() == open(name + ".before", "rb").read(), name
