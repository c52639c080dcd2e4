#!/usr/bin/env python3
"""Misbehaving clients. Usage: hostile.py [--tls] WIRE_SERVER [TEST...]

Every test ends with a good request: whatever a client does, the server goes on.
"""
import contextlib
import http.client
import os
import pathlib
import random
import re
import resource
import signal
import socket
import ssl
import sys
import tempfile
import threading
import time
import unittest

import wire

TIMEOUT = 0.5  # the server's own, for whole requests and for writes
PROGRAM = None
CERTIFICATE = []  # and its key, when the server is to encrypt
ENDS = (b"", b"[reset]")  # of a connection on which no answer is due; TLS ends without a good-bye there
CUT = (BrokenPipeError, ConnectionResetError, ssl.SSLError)


def start():
    return wire.start([PROGRAM, str(int(TIMEOUT * 1000)), *CERTIFICATE], "user:pass")


def raw(body, method="POST", version="1.1", **headers):
    """A request as bytes."""
    fields = {"Host": "h", "Content-Length": len(body.encode()), **wire.cim_headers(body),
              **wire.authorization("user:pass"), **{k.replace("_", "-"): v for k, v in headers.items()}}
    lines = [f"{method} /cimom HTTP/{version}"] + [f"{k}: {v}" for k, v in fields.items() if v is not None]
    return ("\r\n".join(lines) + "\r\n\r\n" + body).encode()


def in_chunks(body, trailer="", **headers):
    head = raw(body, Content_Length=None, Transfer_Encoding="chunked", **headers).split(b"\r\n\r\n")[0]
    return head + f"\r\n\r\n{len(body):x}\r\n{body}\r\n0\r\n{trailer}\r\n".encode()


def read_to_end(sock):
    """All bytes up to the end of the connection."""
    received = b""
    try:
        while chunk := sock.recv(1 << 16):
            received += chunk
    except CUT:
        received += b"[reset]"
    return received


class HostileTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.server = start()

    @classmethod
    def tearDownClass(cls):
        assert cls.server.stop() == 0

    def tearDown(self):
        self.good()

    def connection(self):
        return self.enterContext(contextlib.closing(self.server.connection()))

    def good(self, source=None):
        response = self.server.post(wire.enumeration("T_Many_1"), source=source)
        self.assertEqual(response.status, 200)
        self.assertIn("initiator-0", response.text)

    def exchange(self, request):
        """What comes back until the server closes the connection, and how long that takes."""
        begin = time.monotonic()
        with self.server.socket() as sock:
            sock.sendall(request)
            return read_to_end(sock), time.monotonic() - begin

    def memory(self, name):
        with open(f"/proc/{self.server.process.pid}/status") as status:
            return next(int(line.split()[1]) for line in status if line.startswith(name))

    def descriptors(self):
        try:
            return len(os.listdir(f"/proc/{self.server.process.pid}/fd"))
        except PermissionError:  # a server with a key hides them from all but root
            return 0

    def test_what_is_no_request_is_refused_and_ends_the_connection(self):
        good = wire.enumeration("T_Many_1")
        cases = {
            b"BLAH\r\n\r\n": b"501", b"\x16\x03\x01\x02\x00\x01\x00\x01\xfc\x03\x03" * 8: b"501",
            b"POST / HTTP/9.9\r\n\r\n": b"501",
            b"POST / HTTP/1.1\r\nno colon here\r\n\r\n": b"400",
            raw(good, Content_Length="12x"): b"400",
            raw(good, content_length=7): b"400",
            raw(good, Content_Length="-1"): b"400",
            raw(good + "\r\n", Content_Length=None, Transfer_Encoding="chunked"): b"400",
            raw(good, Transfer_Encoding="chunked"): b"400",
            raw(good, X_Long="x" * 70000): b"431",
            raw(good, Content_Length=10 ** 9): b"413",
            raw(good, Content_Length=2 ** 64 - 1): b"413",
            raw(good, Content_Length=2 ** 64): b"400",
            raw(good, Content_Length=10 ** 30): b"400",
            raw(good, **{f"X-{i}": i for i in range(5000)}): b"431",
            raw(good, Content_Length=None, Transfer_Encoding="identity"): b"400",
            in_chunks(good, version="1.0"): b"400",
            in_chunks(good, "CIMOperation: MethodCall\r\n", CIMOperation=None, Connection="close"): b"400",
        }
        for request, status in cases.items():
            with self.subTest(request[:60]):
                answer, _ = self.exchange(request)
                self.assertEqual((answer[:12], answer.count(b"HTTP/1.1 ")), (b"HTTP/1.1 " + status, 1))

    def test_an_endless_chunked_body_is_cut_off(self):
        head = raw(wire.enumeration("T"), Content_Length=None, Transfer_Encoding="chunked")
        with self.server.socket() as sock:
            sock.sendall(head[:head.index(b"\r\n\r\n") + 4])
            block = b"10000\r\n" + b"x" * 0x10000 + b"\r\n"
            with self.assertRaises(CUT):
                for _ in range(10000):
                    sock.sendall(block)

    def test_a_line_without_an_end_takes_no_memory(self):
        head = raw(wire.enumeration("T"), Content_Length=None, Transfer_Encoding="chunked")
        head = head[:head.index(b"\r\n\r\n") + 4]
        before = self.memory("VmHWM")
        for start_of_line in (b"POST /", b"POST / HTTP/1.1\r\nX: ", head + b"0", head + b"5;", head + b"0\r\nX: "):
            with self.subTest(start_of_line[-4:]), self.server.socket() as sock:
                with self.assertRaises(CUT):
                    for _ in range(1000):
                        sock.sendall(start_of_line + b"0" * 0x10000)
                        start_of_line = b""
        if not os.environ.get("SANITIZED"):
            self.assertLess(self.memory("VmHWM") - before, 4 * 1024)

    def test_bad_messages_leave_the_connection_open(self):
        connection = self.connection()
        headers = wire.cim_headers(wire.enumeration("T"))
        bomb = ('<?xml version="1.0"?><!DOCTYPE CIM [<!ENTITY a "aaaaaaaaaa">' +
                "".join(f'<!ENTITY {chr(98 + i)} "{f"&{chr(97 + i)};" * 10}">' for i in range(9)) +
                ']><CIM>&j;</CIM>')
        deep = '<?xml version="1.0"?>' + "<A>" * 100000
        for body, error in ((bomb, "request-not-valid"), (deep, "request-not-valid"), ("", "request-not-valid"),
                            ("<CIM", "request-not-well-formed"), ("\0", "request-not-valid")):
            with self.subTest(body[:30]):
                connection.request("POST", "/", body.encode(), {**headers, **wire.authorization("user:pass")})
                response = connection.getresponse()
                self.assertEqual((response.status, response.getheader("CIMError"), response.read()),
                                 (400, error, b""))
        self.assertEqual(self.server.post(wire.enumeration("T_Many_1"), connection=connection).status, 200)

    def test_a_slow_request_has_a_deadline_for_the_whole(self):
        request = raw(wire.enumeration("T_Many_1"))
        body = request.index(b"\r\n\r\n") + 4
        for at in (20, body - 5, len(request) - 20):  # in the header, in both, in the body
            with self.subTest(at), self.server.socket() as sock:
                sock.sendall(request[:at])
                begin = time.monotonic()
                try:
                    for byte in request[at:at + 9]:
                        time.sleep(TIMEOUT / 6)
                        sock.sendall(bytes([byte]))
                    sock.sendall(request[at + 9:])
                except CUT:
                    pass
                self.assertNotIn(b"200 OK", read_to_end(sock))
                self.assertLess(time.monotonic() - begin, 15 * TIMEOUT)

    def test_half_a_request_costs_nothing(self):
        request = raw(wire.enumeration("T_Many_1"))
        self.good()
        files, memory = self.descriptors(), self.memory("VmRSS")
        for at in range(1, len(request), 7):
            with self.server.socket() as sock:
                sock.sendall(request[:at])
        deadline = time.monotonic() + 5 * TIMEOUT
        while self.descriptors() > files and time.monotonic() < deadline:
            time.sleep(0.01)
        self.assertLessEqual(self.descriptors(), files)
        if not os.environ.get("SANITIZED"):
            self.assertLess(self.memory("VmRSS") - memory, 2 * 1024)

    def test_an_idle_connection_ends(self):
        answer, elapsed = self.exchange(b"")
        self.assertIn(answer, ENDS)
        self.assertLess(elapsed, 1.8 * TIMEOUT)
        answer, elapsed = self.exchange(raw(wire.enumeration("T_Many_1")))
        self.assertTrue(answer.startswith(b"HTTP/1.1 200 OK"))
        self.assertGreater(elapsed, 1.9 * TIMEOUT)
        self.assertLess(elapsed, 15 * TIMEOUT)

    def test_wrong_credentials(self):
        connection = self.connection()
        for user in ("user:wrong", "other:pass", "user", ":", "\u00fcser:p\u00e4ss"):
            with self.subTest(user):
                response = self.server.post(wire.enumeration("T_Many_1"), connection=connection, user=user)
                self.assertEqual((response.status, response.getheader("WWW-Authenticate"), response.text),
                                 (401, 'Basic realm="test"', ""))
        self.assertEqual(self.server.post(wire.enumeration("T_Many_1"), connection=connection).status, 200)

    def test_strangers_get_little_room(self):
        for request in (raw(wire.enumeration("T" * 80000), Authorization=None),
                        raw(wire.enumeration("T"), "POST", "1.0", Authorization=None, Connection="keep-alive")):
            answer, _ = self.exchange(request)
            self.assertTrue(answer.startswith(b"HTTP/1.1 401 "), answer[:100])
            self.assertIn(b"PGErrorDetail: User%20Unauthorized\r\n", answer)
            self.assertIn(b"Connection: close\r\n", answer)

    def test_a_client_that_hangs_up_frees_its_worker(self):
        for _ in range(12):  # three times as many as there are workers
            with self.server.socket() as sock:
                sock.sendall(raw(wire.enumeration("T_Many_1000000")))
                sock.recv(1000)

    def test_clients_that_do_not_read_free_their_workers(self):
        sockets = [self.server.socket() for _ in range(4)]
        for sock in sockets:
            sock.sendall(raw(wire.enumeration("T_Many_1000000")))
        time.sleep(TIMEOUT / 2)
        begin = time.monotonic()
        self.good()
        self.assertLess(time.monotonic() - begin, 15 * TIMEOUT)
        for sock in sockets:
            sock.close()

    def small_window(self):
        """A connection that takes in little at once."""
        plain = socket.socket()
        plain.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 8192)
        plain.settimeout(20)
        plain.connect((self.server.host, self.server.port))
        return self.server.tls.wrap_socket(plain, suppress_ragged_eofs=False) if self.server.tls else plain

    def test_a_client_that_reads_slowly_is_cut_off(self):
        with self.small_window() as sock:
            sock.sendall(raw(wire.enumeration("T_Many_1000000"), version="1.0"))
            begin = time.monotonic()
            with self.assertRaises(CUT):
                while sock.recv(0x4000):
                    time.sleep(TIMEOUT / 40)  # each part is taken long before its time
            self.assertLess(time.monotonic() - begin, 15 * TIMEOUT)

    def test_a_client_that_was_too_slow_sees_that_the_end_is_missing(self):
        with self.small_window() as sock:
            sock.sendall(raw(wire.enumeration("T_Many_1000000"), version="1.0"))
            time.sleep(2 * TIMEOUT)
            self.assertEqual(read_to_end(sock)[-7:], b"[reset]")

    def test_a_long_answer_takes_no_memory(self):
        idle = self.memory("VmRSS")
        response = self.server.post(wire.enumeration("T_Many_100000"))
        self.assertEqual(response.text.count("</VALUE.NAMEDINSTANCE>"), 100000)
        if not os.environ.get("SANITIZED"):  # sanitizers keep freed memory for a while
            self.assertLess(self.memory("VmHWM") - idle, 32 * 1024)

    def test_an_error_can_be_told_from_an_answer(self):
        self.assertIn('<ERROR CODE="6" DESCRIPTION="CIM_ERR_NOT_FOUND: late"/>',
                      self.server.post(wire.enumeration("T_Fail_100")).text)
        with self.assertRaises(http.client.IncompleteRead):
            self.server.post(wire.enumeration("T_Fail_10000"))
        answer, _ = self.exchange(raw(wire.enumeration("T_Fail_10000"), version="1.0"))
        self.assertTrue(answer.endswith(b"[reset]"))
        answer, _ = self.exchange(raw(wire.enumeration("T_Fail_10000"), TE="trailers", Connection="close"))
        self.assertEqual(answer.count(b"<INSTANCE "), 10000)
        self.assertTrue(answer.endswith(
            b"\r\n0\r\nCIMStatusCode: 6\r\nCIMStatusCodeDescription: late\r\n\r\n"), answer[-200:])

    def test_old_clients_get_everything_up_to_the_end(self):
        answer, _ = self.exchange(raw(wire.enumeration("T_Many_10000"), version="1.0", Expect="100-continue"))
        self.assertTrue(answer.startswith(b"HTTP/1.1 200 OK"))
        self.assertTrue(answer.endswith(b"</CIM>\n"))
        self.assertEqual(answer.count(b"<INSTANCE "), 10000)

    def test_requests_may_follow_each_other_at_once(self):
        one = raw(wire.enumeration("T_Many_1"))
        last = raw(wire.enumeration("T_Many_2"), Connection="close")
        answer, _ = self.exchange(b"\r\n" + one + one + b"\r\n" + last)
        self.assertEqual(answer.count(b"HTTP/1.1 200 OK"), 3)

    def test_a_client_may_ask_whether_to_go_on(self):
        request = raw(wire.enumeration("T_Many_1"), Expect="100-continue", Connection="close")
        head, body = request.split(b"\r\n\r\n")
        with self.server.socket() as sock:
            sock.sendall(head + b"\r\n\r\n")
            self.assertEqual(sock.recv(100), b"HTTP/1.1 100 Continue\r\n\r\n")
            sock.sendall(body)
            self.assertTrue(read_to_end(sock).startswith(b"HTTP/1.1 200 OK"))

    def test_too_many_connections_are_turned_away(self):
        sockets = [socket.create_connection((self.server.host, self.server.port), 0.3) for _ in range(60)]
        expected = b"" if self.server.tls else b"HTTP/1.1 503 "
        refused = 0
        for sock in sockets:
            try:
                refused += sock.recv(100)[:13] == expected
            except TimeoutError:
                pass
            sock.close()
        self.assertGreaterEqual(refused, 30)

    def test_a_flood_from_one_address_leaves_room_for_others(self):
        held = []
        begin = time.monotonic()
        for i in range(800):
            held.append(socket.create_connection((self.server.host, self.server.port), 10))
            if i % 100 == 99:
                self.good(source="127.0.0.2")
        self.assertLess(time.monotonic() - begin, 10 * TIMEOUT)
        for sock in held:
            sock.close()

    def test_who_guesses_is_slowed_and_nobody_else(self):
        self.good(source="127.0.0.3")
        begin = time.monotonic()
        for i in range(7):
            answer = self.server.post(wire.enumeration("T_Many_1"), user=f"user:guess{i}", source="127.0.0.3")
            self.assertEqual(answer.status, 401)
        self.assertGreater(time.monotonic() - begin, 0.1 + 0.2 + 0.4)
        guesses = [self.server.socket(source="127.0.0.3") for _ in range(20)]
        for i, sock in enumerate(guesses):
            sock.sendall(raw(wire.enumeration("T_Many_1"), **wire.authorization(f"root:{i}")))
        self.assertTrue(guesses[-1].recv(100).startswith(b"HTTP/1.1 503 "))
        begin = time.monotonic()
        self.good(source="127.0.0.3")
        self.assertLess(time.monotonic() - begin, TIMEOUT)
        for sock in guesses:
            sock.close()

    def test_noise(self):
        noise = random.Random(4711)
        good = raw(wire.enumeration("T_Many_1"), Connection="close")
        for _ in range(150):
            request = bytearray(good)
            for _ in range(noise.randrange(1, 8)):
                request[noise.randrange(len(request))] = noise.randrange(256)
            with self.server.socket() as sock:
                sock.sendall(request)
                sock.shutdown(socket.SHUT_WR)
                read_to_end(sock)


class StopTest(unittest.TestCase):
    def setUp(self):
        self.server = start()

    def later(self, class_name):
        """Sends a request now, and gives a function that waits for its response."""
        result = []

        def run():
            try:
                result.append(self.server.post(wire.enumeration(class_name)).status)
            except (OSError, http.client.HTTPException) as error:
                result.append(type(error).__name__)
        thread = threading.Thread(target=run)
        thread.start()
        time.sleep(TIMEOUT / 3)

        def wait():
            thread.join(20)
            return result[0]
        return wait

    def test_requests_in_flight_are_answered(self):
        idle = self.server.socket()
        outcome = self.later(f"T_Wait_{int(TIMEOUT * 800)}")
        self.assertEqual(self.server.stop(), 0)
        self.assertEqual(outcome(), 200)
        with idle:
            self.assertIn(read_to_end(idle), ENDS)

    def test_those_that_take_too_long_are_not(self):
        outcome = self.later(f"T_Wait_{int(TIMEOUT * 3000)}")
        self.assertEqual(self.server.stop(), 0)
        self.assertIn(outcome(), ("RemoteDisconnected", "ConnectionResetError"))

    def test_nobody_waits_for_a_provider_that_hangs(self):
        outcome = self.later("T_Wait_60000")
        begin = time.monotonic()
        while self.server.process.poll() is None and time.monotonic() - begin < 10:
            self.server.process.send_signal(signal.SIGTERM)
            time.sleep(TIMEOUT)
        self.assertLess(time.monotonic() - begin, 10)
        self.assertEqual(self.server.stop(), 1)
        self.assertIn(outcome(), ("RemoteDisconnected", "ConnectionResetError"))

    def test_an_answer_that_is_cut_can_be_told_from_a_whole_one(self):
        sockets = [self.server.socket() for _ in range(8)]
        for i, sock in enumerate(sockets):  # as many as there are workers, and more
            sock.sendall(raw(wire.enumeration("T_Many_30000"), version="1.0" if i % 2 else "1.1"))
        for sock in sockets[:4]:
            sock.recv(100)
        self.assertEqual(self.server.stop(), 0)
        for i, sock in enumerate(sockets):
            with self.subTest(i), sock:
                answer = read_to_end(sock)
                whole = answer.endswith(b"</CIM>\n" if i % 2 else b"</CIM>\n\r\n0\r\n\r\n")
                self.assertTrue(whole or answer == b"" or answer.endswith(b"[reset]"), answer[-80:])

    def test_a_second_signal_ends_the_grace(self):
        sockets = [self.server.socket() for _ in range(16)]  # all together they would take too long
        for sock in sockets:
            sock.sendall(raw(wire.enumeration("T_Wait_1000")))
        time.sleep(TIMEOUT / 3)
        self.server.process.send_signal(signal.SIGINT)
        time.sleep(0.1)
        self.assertEqual(self.server.stop(), 0)
        for sock in sockets:
            with sock:
                self.assertIn(read_to_end(sock), ENDS)

    @unittest.skipIf(os.environ.get("SANITIZED"), "sanitizers take memory as they like")
    def test_without_memory_only_connections_are_lost(self):
        status = pathlib.Path(f"/proc/{self.server.process.pid}/status").read_text()
        limit = (int(re.search(r"VmSize:\s*(\d+)", status)[1]) << 10) + (40 << 20)
        resource.prlimit(self.server.process.pid, resource.RLIMIT_AS, (limit, limit))
        half = raw(wire.enumeration("T"), Content_Length=4 << 20)
        with contextlib.ExitStack() as stack:
            for i in range(60):
                sock = stack.enter_context(self.server.socket(source=f"127.0.0.{2 + i % 2}"))
                with contextlib.suppress(*CUT):
                    sock.sendall(raw(wire.enumeration("T_Many_1000000")) if i < 4 else half)
            time.sleep(2 * TIMEOUT)
        self.assertEqual(self.server.post(wire.enumeration("T_Many_1")).status, 200)
        self.assertEqual(self.server.stop(), 0)


if __name__ == "__main__":
    with tempfile.TemporaryDirectory() as folder:
        if "--tls" in sys.argv:
            sys.argv.remove("--tls")
            CERTIFICATE = wire.certificate(pathlib.Path(folder))
        PROGRAM = sys.argv.pop(1)
        unittest.main()
