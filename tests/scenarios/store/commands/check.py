import os
import sys

first, second, third = (open(f"dump{n}.txt").read() for n in (1, 2, 3))
if not first == second == third or sorted(first.splitlines()) != [
        "cat\t4\t0", "dog\t3\t0", "emu\t5\t0", "yak\t6\t0"]:
    sys.exit("the dump is " + first)
if os.path.exists("a name.db"):
    sys.exit("a header that is cut made a file")
