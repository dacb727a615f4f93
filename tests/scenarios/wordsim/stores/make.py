import shutil
import struct
import sys

sys.dont_write_bytecode = True
from layout import group, similar, store, table

WORDS = ["dog", "cat", "big cat", "fox"]
NONE = similar([])
GOOD = [("dog", similar([(2, 0.75), (3, 0.5), (4, 0.25)], [group(0b101), group(), group(0b100)], 0.5) + NONE
         + similar([], [group(1)])),
        ("fox", NONE + similar([(1, 8)]) + NONE)]
store("good", table(WORDS), GOOD)
whole = GOOD[0][1]
store("damaged", table(WORDS), [
    ("dog", struct.pack(">I", 0xFFFFFFFF) + whole[4:]),
    ("cat", similar([(5, 1)]) + NONE + NONE),
    ("big cat", whole[:-3]),
    ("fox", similar([(2, 1)], [struct.pack(">H", 60000)]) + NONE + NONE)])
store("nan", table(WORDS), [("dog", similar([(2, float("nan")), (3, 2)]) + NONE + NONE), ("cat", b"")])
store("other", b"\0\0\0\5these are words\0of another kind", GOOD)
store("many", struct.pack(">I", 1 << 30) + b"dog\0", GOOD)
store("add", table(WORDS), GOOD)
for name in ("good", "other", "many"):
    shutil.copy(name + ".db", name + ".before")
