import struct

two = open("two.idx", "rb").read()
assert two == struct.pack(">7I", 4, 1, 17, 51, 73, 89, 0), struct.unpack(">%dI" % (len(two) // 4), two)
one = open("sub/one.idx", "rb").read()
assert len(one) == 5 * 4 + (12 if one.count(b"\x80") == 1 else 0), one
