import os
import stat
import sys
assert open("t.dat", "rb").read() == b""
assert stat.S_IMODE(os.stat("i.dat").st_mode) & ~0o644 == 0
assert open("i.dat", "rb").read() == b"\0\0\0\x08other\0\0\x03"
