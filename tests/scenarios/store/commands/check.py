import os

first, second, third = (open(f"dump{n}.txt").read() for n in (1, 2, 3))
assert first == second == third, (first, second, third)
assert sorted(first.splitlines()) == ["cat\t4\t0", "dog\t3\t0", "emu\t5\t0", "yak\t6\t0"], first
assert not os.path.exists("a name.db"), "a header that is cut made a file"
