#!/usr/bin/env python3
"""torvane as it is installed: what is there, and that programs find it, from another folder and after a move.

usage: installed.py PREFIX PYTHON [TEST...]

PYTHON is the interpreter that the module is for, or empty if there is none.
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

import using_page

PREFIX = PYTHON = None
PROGRAM = """#include <torvane/torvane.h>
#include <cstdio>
int main(int, char** arguments) {
  torvane::Engine engine(arguments[1]);
  std::puts((engine ? engine.parse("Dogs bark.").to("brackets").value() : std::string(engine.error())).c_str());
}
"""


def run(*command, cwd, fails=False, **environment):
    done = subprocess.run(command, cwd=cwd, env={**os.environ, **using_page.installed(PREFIX), **environment}, text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=300)
    assert fails or done.returncode == 0, (command, done.stdout)
    return done.stdout


class Installed(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)

    def flags(self, *options):
        return run("pkg-config", *options, "torvane", cwd=self.folder).split()

    def test_everything_is_there(self):
        there = {str(path.relative_to(PREFIX)) for path in PREFIX.rglob("*") if path.is_file()}
        for name in ("bin/torvane", "include/torvane/torvane.h", "include/torvane/version.h", "share/torvane/torvane.lsp",
                     "share/torvane/english/english.lsp", "share/man/man1/torvane.1", "share/man/man1/torvane-cluster.1", "bin/torvane-cluster", "share/man/man7/torvane-language.7",
                     "share/doc/torvane/copyright", "share/bash-completion/completions/torvane"):
            self.assertIn(name, there)
        self.assertEqual({name for name in there if name.startswith("include/")},
                         {f"include/torvane/{name}.h" for name in ("torvane", "c", "version")})
        for name in ("libtorvane.a", "libtorvane.so", "pkgconfig/torvane.pc", "cmake/torvane/torvaneConfig.cmake"):
            self.assertTrue(list(PREFIX.glob(f"lib/**/{name}")), name)

    def test_headers_stand_alone(self):
        for compiler, kind in (("cc", "c99"), ("c++", "c++17"), ("c++", "c++20")):
            language = "c" if compiler == "cc" else "c++"
            run(compiler, f"-std={kind}", "-Wall", "-Wextra", "-Wpedantic", "-Wshadow", "-Werror", "-fsyntax-only", "-x", language,
                *self.flags("--cflags"), str(PREFIX / "include/torvane/torvane.h"), cwd=self.folder)

    def test_the_library_shows_its_face_alone(self):
        library = next(PREFIX.glob("lib/**/libtorvane.so"))
        shown = {line.split()[2].split("@")[0] for line in run("nm", "-D", "--defined-only", library, cwd=self.folder).splitlines()}
        declared = set(re.findall(r"\b(torvane_\w+)\(", (PREFIX / "include/torvane/c.h").read_text()))
        self.assertEqual(shown - {"TORVANE_0"}, declared)
        self.assertIn("libtorvane.so.0", run("readelf", "-d", library, cwd=self.folder))

    def test_a_program_by_find_package_and_a_static_one_after_a_move(self):
        moved = self.folder / "moved"
        shutil.copytree(PREFIX, moved, symlinks=True)
        (self.folder / "main.cc").write_text(PROGRAM)
        (self.folder / "CMakeLists.txt").write_text(
            "cmake_minimum_required(VERSION 3.18)\nproject(user LANGUAGES CXX)\nfind_package(torvane 0.9 REQUIRED)\n"
            "foreach(kind torvane static)\nadd_executable(by_${kind} main.cc)\n"
            "target_link_libraries(by_${kind} torvane::${kind})\nendforeach()\n")
        run("cmake", "-S", ".", "-B", "build", f"-DCMAKE_PREFIX_PATH={moved}", cwd=self.folder)
        run("cmake", "--build", "build", cwd=self.folder)
        tree = "(root (nsubj Dogs) bark (punct .))\n\n"
        self.assertEqual(run("build/by_torvane", "english", cwd=self.folder, LD_LIBRARY_PATH=""), tree)
        self.assertIn(f"in {moved}/share/torvane", run("build/by_torvane", "nosuch", cwd=self.folder, LD_LIBRARY_PATH=""))
        # A program that has the library in it looks beside itself.
        shutil.copy(self.folder / "build/by_static", moved / "bin/by_static")
        self.assertEqual(run(moved / "bin/by_static", "english", cwd="/", LD_LIBRARY_PATH=""), tree)
        self.assertIn(f"in {moved}/share/torvane",
                      run(moved / "bin/torvane", "parse", "--grammar", "nosuch", cwd="/", fails=True))
        self.assertNotIn("libtorvane", run("ldd", moved / "bin/by_static", cwd="/"))

    def test_the_python_module_after_a_move(self):
        if not PYTHON:
            self.skipTest("no Python module")
        moved = self.folder / "moved"
        shutil.copytree(PREFIX, moved, symlinks=True)
        (module,) = moved.glob("lib/**/torvane/__init__.py")
        script = "import torvane; print(torvane.__file__, torvane.load()('Dogs bark.').to('brackets'))"
        self.assertEqual(run(PYTHON, "-c", script, cwd="/", LD_LIBRARY_PATH="", PYTHONPATH=str(module.parent.parent)),
                         f"{module} (root (nsubj Dogs) bark (punct .))\n\n")

    def test_the_large_lexicon(self):
        english = PREFIX / "share/torvane/english"
        if not (english / "lexicon.txt").exists():
            self.skipTest("WordNet was not there")
        self.assertTrue((english / "lexicon.license").exists())
        before = (english / "lexicon.idx").stat().st_mtime_ns
        text = self.folder / "text.txt"
        text.write_text("The aardwolf sleeps.\n")
        tree = run(PREFIX / "bin/torvane", "parse", "--quiet", "--to", "brackets", text, cwd=self.folder)
        self.assertEqual(tree, "(root (nsubj (det The) aardwolf) sleeps (punct .))\n")
        self.assertEqual((english / "lexicon.idx").stat().st_mtime_ns, before)  # it is as new as the words

    def test_pages(self):
        for page in PREFIX.glob("share/man/*/*"):
            self.assertEqual(run("mandoc", "-Tlint", "-Wwarning", page, cwd=self.folder), "")
        page = (PREFIX / "share/man/man1/torvane.1").read_text()
        for command in ("parse", "convert"):
            options = run(PREFIX / "bin/torvane", command, "--help", cwd=self.folder)
            for option in re.findall(r"--([\w-]+)", options):
                self.assertIn(f"Fl -{option}", page)
        language = (PREFIX / "share/man/man7/torvane-language.7").read_text()
        self.assertGreater(language.count(".It Ic"), 400)

    def test_bash_completes(self):
        def complete(*words):
            return run("bash", "-c", f"source {PREFIX}/share/bash-completion/completions/torvane; COMP_WORDS=(\"$@\");"
                       "COMP_CWORD=$(($# - 1)); _torvane; echo ${COMPREPLY[@]}", "bash", "torvane", *words, cwd=self.folder).split()

        self.assertEqual(complete("pa"), ["parse"])
        self.assertEqual(complete("parse", "--to", "con"), ["conllu"])
        self.assertEqual(complete("parse", "--to", "=", "bra"), ["brackets"])
        self.assertEqual(complete("parse", "--gr"), ["--grammar"])
        self.assertIn("text", complete("parse", "--from", ""))
        self.assertEqual(complete("parse", "-o", "x"), [])
        self.assertNotIn("completion", complete(""))


if __name__ == "__main__":
    PREFIX, PYTHON = pathlib.Path(sys.argv[1]).resolve(), sys.argv[2]
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
