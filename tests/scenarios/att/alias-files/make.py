import os
import random
os.mkdir("folder.dat")
with open("damaged.dat", "wb") as f:
    f.write(b"\0\0\0\x06one\0\0\x03" + b"\0\0\0\x06two\0\xff\x03" + b"\xff\xff\xff\xf0three\0")
random.seed(7)
with open("noise.dat", "wb") as f:
    f.write(b"\0\0\0\x40" + bytes(random.randrange(256) for _ in range(5000)))
