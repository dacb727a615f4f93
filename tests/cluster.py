#!/usr/bin/python3
"""Learning on a cluster: a scheduler and its workers on this machine.

usage: cluster.py PROGRAM CLUSTER_PROGRAM DATA_FOLDER [test]
"""
import contextlib
import filecmp
import os
import pathlib
import signal
import socket
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAM, CLUSTER, DATA = map(os.path.abspath, sys.argv[1:4])
SENTENCES = ["The dog chased a cat.", "She ate the fish with a fork.", "He saw the old house in the garden.",
             "Dogs and cats sleep.", "They said that the boy had found a key."]
SHARDS = 40  # more than one group of a merge


def free_port():
    with socket.socket() as there:
        there.bind(("127.0.0.1", 0))
        return there.getsockname()[1]


class Machines:
    """A scheduler, and workers with a process each."""

    def __init__(self, folder):
        self.folder, self.port, self.processes = folder, free_port(), []
        self.address = f"tcp://127.0.0.1:{self.port}"
        self.start_scheduler()

    def start(self, *command):
        log = open(self.folder / f"{len(self.processes)}.log", "wb")
        process = subprocess.Popen(command, stdout=log, stderr=log, cwd=self.folder, start_new_session=True)
        log.close()
        self.processes.append(process)
        return process

    def start_scheduler(self):
        self.scheduler = self.start("dask-scheduler", "--host", "127.0.0.1", "--port", str(self.port), "--no-dashboard")
        for _ in range(300):
            with contextlib.suppress(OSError), socket.create_connection(("127.0.0.1", self.port), 1):
                return
            time.sleep(0.1)
        raise AssertionError("the scheduler does not start")

    def start_worker(self):
        return self.start("dask-worker", self.address, "--nthreads", "1", "--no-dashboard", "--no-nanny",
                          "--local-directory", str(self.folder / f"worker-{len(self.processes)}"))

    @staticmethod
    def kill(process):
        with contextlib.suppress(ProcessLookupError):
            os.killpg(process.pid, signal.SIGKILL)
        process.wait()

    def close(self):
        for process in self.processes:
            self.kill(process)


class Cluster(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.corpus = self.folder / "corpus.txt"
        lines = [SENTENCES[i * i % len(SENTENCES)] for i in range(2000)]
        self.corpus.write_text("".join(line + "\n" for line in lines))
        self.options = ["--from", "lines", "--bytes", str(self.corpus.stat().st_size // SHARDS + 1), "--data", DATA]
        self.wanted = self.folder / "wanted"
        self.assertEqual(subprocess.run([PROGRAM, "learn", "--quiet", *self.options, self.corpus, self.wanted]).returncode, 0)
        self.machines = Machines(self.folder)
        self.addCleanup(self.machines.close)

    def started(self, result, *options, program=PROGRAM):
        return subprocess.Popen(["/usr/bin/python3", CLUSTER, "learn", "--scheduler", self.machines.address, "--program",
                                 program, *self.options, *options, self.corpus, self.folder / result],
                                stderr=subprocess.PIPE, text=True)

    def ended(self, run, seconds=120):
        _, told = run.communicate(timeout=seconds)
        return run.returncode, told

    def learned(self, result, *options, **more):
        return self.ended(self.started(result, *options, **more))

    def shards(self, result):
        return list((self.folder / result / "shards").glob("*.counts"))

    def wait_for_shards(self, result, count):
        for _ in range(600):
            if len(self.shards(result)) >= count:
                return
            time.sleep(0.02)
        raise AssertionError("nothing is counted")

    def assert_as_wanted(self, result):
        names = sorted(str(path.relative_to(self.wanted)) for path in self.wanted.rglob("*") if path.is_file())
        got = self.folder / result
        self.assertEqual(sorted(str(path.relative_to(got)) for path in got.rglob("*") if path.is_file()), names)
        self.assertEqual(filecmp.cmpfiles(self.wanted, got, names, shallow=False)[1:], ([], []))

    def slow(self, name, script):
        """The program with something before it."""
        path = self.folder / name
        path.write_text(f'#!/bin/sh\n{script}\nexec "{PROGRAM}" "$@"\n')
        path.chmod(0o755)
        return str(path)

    def test_the_same_bytes_as_on_one_machine(self):
        for _ in range(2):
            self.machines.start_worker()
        for result, options in (("shared", []), ("sent", ["--transfer"])):
            status, told = self.learned(result, *options)
            self.assertEqual(status, 0, told)
            self.assert_as_wanted(result)
        self.assertIn(f"{SHARDS} of {SHARDS} shards, 0 of them", self.learned("shared")[1])

    def test_workers_that_are_lost_and_that_come_late(self):
        lost = self.machines.start_worker()
        run = self.started("changing", program=self.slow("slow", "sleep 0.1"))
        self.wait_for_shards("changing", 3)
        self.machines.kill(lost)
        before = len(self.shards("changing"))
        self.assertIn(f"no workers at {self.machines.address}: waiting for one", run.stderr.readline())
        self.assertLess(before, SHARDS)
        for _ in range(2):
            self.machines.start_worker()
        status, told = self.ended(run)
        self.assertEqual(status, 0, told)
        self.assert_as_wanted("changing")

    def test_a_shard_that_always_fails(self):
        self.machines.start_worker()
        bad = self.slow("bad", 'case "$*" in *"--shard 5 "*) echo "no luck here" >&2; exit 4;; esac')
        status, told = self.learned("failing", program=bad)
        self.assertEqual(status, 1)
        self.assertIn("shard 5 failed: no luck here", told)
        self.assertIn(f"1 of {SHARDS} shards are missing", told)
        self.assertEqual(len(self.shards("failing")), SHARDS - 1)
        self.assertTrue((self.folder / "failing/triples.db").exists())
        self.assertEqual(self.learned("failing")[0], 0)
        self.assert_as_wanted("failing")

    def test_a_scheduler_that_goes_away(self):
        self.machines.start_worker()
        run = self.started("left", program=self.slow("slow", "sleep 0.1"))
        self.wait_for_shards("left", 3)
        self.machines.kill(self.machines.scheduler)
        status, told = self.ended(run)
        self.assertEqual(status, 1)
        self.assertRegex(told, rf"^torvane-cluster: the scheduler at {self.machines.address} went away; \d+ of {SHARDS} ")
        status, told = self.learned("left")
        self.assertEqual((status, told.count("\n")), (1, 1))
        self.assertIn("no scheduler answers", told)
        self.machines.start_scheduler()
        self.machines.start_worker()
        status, told = self.learned("left")
        self.assertEqual(status, 0, told)
        self.assertNotIn(f"{SHARDS} of them", told)
        self.assert_as_wanted("left")


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0]] + ["Cluster." + name for name in sys.argv[4:]])
