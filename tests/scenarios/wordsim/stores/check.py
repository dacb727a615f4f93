import os
import struct
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from layout import group, similar, table


def bytes_of(name):
    with open(name, "rb") as file:
        return file.read()


def payload(file, pos):
    size, _, flags = struct.unpack_from(">IHH", file, pos)
    assert flags == 0x5555
    return file[pos + 8:pos + 8 + size]


def records(file):
    for bucket in range(struct.unpack_from(">I", file, 12)[0]):
        pos = struct.unpack_from(">I", file, 16 + 4 * bucket)[0]
        while pos:
            record = payload(file, pos)
            pos = struct.unpack_from(">I", record)[0]
            key, _, value = record[4:].partition(b"\0")
            yield key.decode(), value


NONE = similar([])
new = bytes_of("new.db")
assert payload(new, 16 + 4 * 3 + 4 + 10 + 2) == table(["dog", "cat", "big cat", "fox", "elk", "large"])
dog = similar([(2, 0.75), (3, 0.5), (4, 0.25)], [group(0b101), group(0)], 0.5)
assert dict(records(new)) == {"dog": dog + NONE + NONE, "elk": NONE + NONE + similar([(6, 1)], (), 2)}
assert sorted(key for key, _ in records(bytes_of("add.db"))) == ["dog", "fox", "wolf"]
for name in ("good", "other", "many"):
    assert bytes_of(name + ".db") == bytes_of(name + ".before"), name
