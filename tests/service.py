#!/usr/bin/env python3
"""The service over HTTP: what it answers, what it refuses, and that it stays up under load.

usage: service.py PROGRAM [test]
"""
import concurrent.futures
import http.client
import json
import os
import pathlib
import re
import signal
import socket
import subprocess
import sys
import tempfile
import time
import unittest


class Service:
    def __init__(self, *options):
        self.process = subprocess.Popen([PROGRAM, "serve", "--port", "0", *options], stdout=subprocess.PIPE,
                                        stderr=subprocess.PIPE, text=True)
        address = self.process.stdout.readline()
        self.port = int(re.fullmatch(r"http://127\.0\.0\.1:(\d+)/\n", address).group(1))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.communicate()

    def ask(self, method, path, body=None, headers=()):
        connection = http.client.HTTPConnection("127.0.0.1", self.port, timeout=60)
        connection.request(method, path, body, dict(headers))
        answer = connection.getresponse()
        text = answer.read()
        connection.close()
        return answer.status, text

    def post(self, path, request):
        status, text = self.ask("POST", path, json.dumps(request))
        return status, json.loads(text)

    def memory(self):
        status = pathlib.Path(f"/proc/{self.process.pid}/status").read_text()
        return int(re.search(r"VmRSS:\s+(\d+)", status).group(1))


def heads(answer):
    return [[word["head"] for word in sentence["words"]] for sentence in answer["sentences"]]


class Answers(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.service = Service("-j", "2", "--max-bytes", "100000", "--max-text", "1000")

    @classmethod
    def tearDownClass(cls):
        cls.service.__exit__()

    def test_trees(self):
        status, answer = self.service.post("/parse", {"text": "The dogs bark. Mr. Brown sleeps."})
        self.assertEqual((status, heads(answer)), (200, [[2, 3, 0, 3], [2, 3, 0, 3]]))
        status, answer = self.service.post("/parse", {"text": "He saw the man with a dog.", "best": 2, "drawing": True})
        self.assertEqual([s["best"] for s in answer["sentences"]], [1, 2])
        self.assertTrue(all(s["svg"].startswith("<svg ") for s in answer["sentences"]))
        self.assertLessEqual(answer["sentences"][0]["cost"], answer["sentences"][1]["cost"])
        styles = [self.service.post("/parse", {"text": "The dogs bark.", "style": style, "to": "brackets"})[1]["output"]
                  for style in ("content", "grammar")]
        self.assertIn("(nsubj (det The) dogs)", styles[0])
        self.assertNotIn("nsubj", styles[1])
        for kind, text in (("lines", "Dogs bark\nCats sleep"), ("tokens", "Dogs bark .\nCats sleep .")):
            status, answer = self.service.post("/parse", {"text": text, "from": kind, "to": "brackets"})
            self.assertEqual((status, answer["output"].count("\n")), (200, 2), kind)
        self.assertEqual(self.service.post("/parse", {"text": ""}), (200, {"sentences": []}))

    def test_reasons(self):
        status, answer = self.service.post("/why", {"text": "The dogs bark.", "modifier": 1, "head": 3})
        self.assertEqual((status, answer["answer"]["kind"], answer["own"]), (200, "dearer", 2))
        self.assertGreater(answer["wanted"]["total"], answer["chosen"]["total"])
        status, answer = self.service.post("/why", {"text": "The dogs bark."})
        self.assertEqual((status, len(answer["words"])), (200, 4))
        for request, status in (({"text": "Dogs bark.", "modifier": 9, "head": 1}, 422), ({"text": "", "modifier": 1}, 400),
                                ({"text": "Dogs bark.", "head": 1}, 400), ({"text": "a " * 300, "modifier": 1}, 422),
                                ({"text": "Dogs bark.", "modifier": 1, "head": 1}, 422)):
            got, answer = self.service.post("/why", request)
            self.assertEqual(got, status, request)
            self.assertTrue(answer["error"], request)

    def test_text_is_never_code(self):
        for text in ('") (exit) ("', "(exit)", "\\\" (exit)", "\x00(exit)", "(load /etc/passwd)"):
            status, answer = self.service.post("/parse", {"text": text})
            self.assertEqual(status, 200, text)
        self.assertEqual(self.service.ask("GET", "/health")[0], 200)

    def test_refusals(self):
        for body, status in ((b"", 400), (b"{", 400), (b"[]", 400), (b"\xff\xfe", 400), (b'{"text":1}', 400),
                             (b'{"text":"a","best":1.5}', 400), (b'{"text":"a","best":1e99}', 400),
                             (b'{"text":"a","drawing":"yes"}', 400), (b'{"text":"a","nosuch":1}', 400),
                             (b'{"text":"a","to":"nosuch"}', 400), (b'{"text":"a","from":"trees"}', 400),
                             (b'{"text":"a","style":"../../x"}', 400), (b'{"text":"a","style":"nosuch"}', 400),
                             (b'{"text":"' + b"a " * 1001 + b'"}', 422), (b"a" * 200000, 413), (b"[" * 90000, 400)):
            got, text = self.service.ask("POST", "/parse", body)
            self.assertEqual(got, status, body[:40])
            self.assertTrue(json.loads(text)["error"], body[:40])
        for method, path, status in (("GET", "/parse", 405), ("GET", "/nosuch", 404), ("GET", "/../../etc/passwd", 404),
                                     ("GET", "/%2e%2e/%2e%2e/etc/passwd", 404), ("GET", "//etc/passwd", 404),
                                     ("POST", "/", 404), ("PUT", "/parse", 404), ("GET", "/" + "a" * 9000, 414)):
            got, text = self.service.ask(method, path)
            self.assertEqual(got, status, path[:40])
            self.assertNotIn(b"root:", text)

    def test_broken_clients(self):
        for sent in (b"", b"\r\n\r\n", b"GET", b"\x00" * 100, b"POST /parse HTTP/1.1\r\nContent-Length: 99\r\n\r\n{",
                     b"POST /parse HTTP/1.1\r\nContent-Length: -1\r\n\r\n", b"GET / HTTP/9.9\r\n\r\n",
                     b"POST /parse HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\nzz\r\n"):
            with socket.create_connection(("127.0.0.1", self.service.port), 10) as client:
                client.sendall(sent)
        slow = [socket.create_connection(("127.0.0.1", self.service.port), 10) for _ in range(100)]
        for client in slow:
            client.sendall(b"POST /parse HTTP/1.1\r\nContent-Length: 50\r\n\r\n{")
        self.assertEqual(self.service.post("/parse", {"text": "Dogs bark."})[0], 200)
        for client in slow:
            client.close()

    def test_page(self):
        status, page = self.service.ask("GET", "/")
        self.assertEqual(status, 200)
        self.assertNotRegex(page.decode(), r"(src|href)=(?!\"data:,\")|https?:(?!//www\.w3\.org/2000/svg)")


class Load(unittest.TestCase):
    TEXT = "The dogs that we saw yesterday barked at the tall man."

    def test_many(self):
        with Service("-j", "2") as service:
            wanted = service.post("/parse", {"text": self.TEXT})
            with concurrent.futures.ThreadPoolExecutor(200) as clients:
                answers = list(clients.map(lambda _: service.post("/parse", {"text": self.TEXT}), range(200)))
            self.assertTrue(all(answer == wanted for answer in answers))
            connection = http.client.HTTPConnection("127.0.0.1", service.port, timeout=60)
            body = json.dumps({"text": self.TEXT})
            for number in range(10000):
                connection.request("POST", "/parse", body)
                self.assertEqual(json.loads(connection.getresponse().read()), wanted[1])
                if number == 2000:
                    before = service.memory()
            self.assertLess(service.memory(), before + 2000)

    def test_a_long_text_holds_nobody_up(self):
        with Service("-j", "1") as service:
            with concurrent.futures.ThreadPoolExecutor(1) as client:
                long = client.submit(service.post, "/parse", {"text": (self.TEXT + "\n\n") * 1500})
                time.sleep(0.2)
                for _ in range(3):
                    self.assertEqual(service.post("/parse", {"text": "Dogs bark."})[0], 200)
                self.assertFalse(long.done())
                self.assertEqual(len(long.result()[1]["sentences"]), 1500)

    def test_limits(self):
        with Service("-j", "1", "--max-seconds", "1", "--max-requests", "1", "--max-text", "1000000") as service:
            with concurrent.futures.ThreadPoolExecutor(2) as clients:
                long = clients.submit(service.post, "/parse", {"text": (self.TEXT + "\n\n") * 9000})
                time.sleep(0.4)
                self.assertEqual(service.post("/parse", {"text": "Dogs bark."})[0], 503)
                self.assertEqual(long.result()[0], 504)
            self.assertEqual(service.post("/parse", {"text": "Dogs bark."})[0], 200)

    def test_the_end(self):
        for number in (signal.SIGTERM, signal.SIGINT):
            with Service() as service:
                service.post("/parse", {"text": "Dogs bark."})
                service.process.send_signal(number)
                self.assertEqual(service.process.wait(10), 0)

    def test_what_cannot_start(self):
        with Service() as service, tempfile.TemporaryDirectory() as folder:
            for options, status in ((["--port", str(service.port)], 1), (["--grammar", "nosuch"], 4), (["--port", "x"], 2),
                                    (["--host", "nosuch.invalid"], 1), (["--data", folder], 4)):
                done = subprocess.run([PROGRAM, "serve", *options], capture_output=True, text=True, timeout=60)
                self.assertEqual((done.returncode, done.stdout), (status, ""), options)
                self.assertRegex(done.stderr, "^torvane: ")


if __name__ == "__main__":
    PROGRAM = os.path.abspath(sys.argv.pop(1))
    unittest.main()
