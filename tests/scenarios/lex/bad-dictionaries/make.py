import os
import struct

open("binary.hdr", "wb").write(bytes(range(256)) * 10)
open("old.dat", "w").write("(dog (g a))(cut (g b)")
for name, *words in (("far", 0xFFFFFFFF), ("list", 0x7FFFFFFC), ("loop", 4, 12, 12, 12), ("zeros", 0x80000000)):
    open(name + ".idx", "wb").write(struct.pack(">%dI" % len(words), *words))
os.utime("old.dat", (1e9, 1e9))
