"""A folder in which the program parses given sentences, one after the other, with the starter grammar."""
import os
import subprocess
import tempfile


def quoted(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


class RunFolder:
    """Usable as `with RunFolder(DATA_FOLDER, SENTENCES) as folder`. behind(i) is read after the ith sentence."""

    def __init__(self, data, sentences, behind=lambda i: ""):
        self._data, self._sentences, self._behind = os.path.abspath(data), sentences, behind

    def __enter__(self):
        self._folder = tempfile.TemporaryDirectory()
        os.symlink(self._data, os.path.join(self._folder.name, "data"))
        forms = ["(load data/torvane.lsp)", *(f"(p3 {quoted(s)}){self._behind(i)}" for i, s in enumerate(self._sentences)), "(exit)"]
        self._write("torvane.lsp", "".join(form + "\n" for form in forms))
        self._write("sentense.dat", "\n")
        return self

    def __exit__(self, *_):
        self._folder.cleanup()

    def _write(self, name, text):
        with open(os.path.join(self._folder.name, name), "w", encoding="utf-8") as file:
            file.write(text)

    def output(self, program):
        """All that the program writes, messages included."""
        return subprocess.run([program], cwd=self._folder.name, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT).stdout

    def usage(self, program):
        """Processor seconds and peak bytes of a run."""
        process = subprocess.Popen([program], cwd=self._folder.name, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        _, _, usage = os.wait4(process.pid, 0)
        return usage.ru_utime + usage.ru_stime, usage.ru_maxrss * 1024
