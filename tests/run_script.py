#!/usr/bin/env python3
"""script/run without a rebuild: in a checkout that moved, and for who may not write to it.

usage: run_script.py PROGRAM
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent
PROGRAM = None


class RunScript(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        self.folder.chmod(0o755)
        self.checkout = self.folder / "checkout"
        build = self.checkout / "build/release"
        (build / "bin").mkdir(parents=True)
        for name in ("script", "data"):
            shutil.copytree(ROOT / name, self.checkout / name)
        shutil.copy(PROGRAM, build / "bin/torvane")
        cache = (PROGRAM.parent.parent / "CMakeCache.txt").read_text()
        self.cache = build / "CMakeCache.txt"
        self.cache.write_text(cache)
        self.user = "nobody" if os.getuid() == 0 else None
        (self.folder / "text.txt").write_text("Dogs bark.\n")

    def draw(self, *arguments, given="", user=None):
        done = subprocess.run([self.checkout / "script/run", *arguments], input=given, text=True, cwd=self.folder, user=user,
                              capture_output=True, timeout=60)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return done.stdout

    def check(self, **options):
        tree = self.draw("Dogs bark.", **options)
        self.assertIn("nsubj", tree)
        self.assertEqual(self.draw("text.txt", **options), tree)
        self.assertEqual(self.draw(given="Dogs bark.\n", **options), tree)

    def test_a_checkout_that_moved(self):
        self.check()

    def test_who_may_not_write(self):
        # As if it had been built there.
        home = f"CMAKE_HOME_DIRECTORY:INTERNAL={self.checkout}"
        self.cache.write_text(re.sub("CMAKE_HOME_DIRECTORY:INTERNAL=.*", home, self.cache.read_text()))
        self.lock()
        self.check(user=self.user)

    def test_nothing_was_built(self):
        shutil.rmtree(self.checkout / "build")
        self.lock()
        done = subprocess.run([self.checkout / "script/run", "Dogs bark."], text=True, capture_output=True, timeout=60,
                              user=self.user)
        self.assertEqual(done.returncode, 1)
        self.assertIn("is not built", done.stderr)

    def lock(self):
        for path in [self.checkout, *self.checkout.rglob("*")]:
            self.addCleanup(path.chmod, path.stat().st_mode)
            path.chmod(path.stat().st_mode & ~0o222)


if __name__ == "__main__":
    PROGRAM = pathlib.Path(sys.argv[1]).resolve()
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
