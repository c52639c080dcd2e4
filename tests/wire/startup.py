#!/usr/bin/env python3
"""How the server program starts, or says why it doesn't. Usage: startup.py BIN/qrv-cimserver [TEST...]"""
import os
import pathlib
import re
import shutil
import socket
import subprocess
import sys
import tempfile
import unittest


HERE = pathlib.Path(__file__).resolve().parent
PROGRAM = None


def run(*arguments):
    return subprocess.run([PROGRAM, *map(str, arguments)], capture_output=True, text=True, timeout=30)


class StartupTest(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))

    def fails(self, code, message, *arguments):
        usual = {"--array": HERE / "array.json", "--port": 0}
        rest = [part for name, value in usual.items() if name not in arguments for part in (name, value)]
        result = run(*rest, *arguments)
        self.assertEqual((result.returncode, result.stdout), (code, ""))
        self.assertRegex(result.stderr, message)

    def schema(self):
        """A copy of the schema that may be spoilt."""
        original = re.search(r"--schema TEXT=(\S+)", run("--help").stdout).group(1)
        return pathlib.Path(shutil.copytree(original, self.folder / "schema"))

    def test_it_explains_itself(self):
        self.assertRegex(run("--version").stdout, r"^qrv-cimserver \d+\.\d+\.\d+\n$")
        help_text = run("--help").stdout
        for option in ("--port", "--listen", "--array", "--schema", "--providers", "--threads",
                       "--tls-certificate", "--tls-key", "--user", "--insecure"):
            self.assertIn(option, help_text)

    def test_wrong_usage(self):
        for arguments in (["--bogus"], ["--port", "65536"], ["--threads", "0"], ["stray"]):
            with self.subTest(arguments):
                self.fails(2, "--help", *arguments)

    def test_a_port_that_is_taken(self):
        with socket.create_server(("127.0.0.1", 0)) as taken:
            port = taken.getsockname()[1]
            self.fails(1, rf"cannot listen on 127\.0\.0\.1:{port}: Address already in use",
                       "--listen", "127.0.0.1", "--port", port)

    def test_an_address_of_another_machine(self):
        self.fails(1, r"cannot listen on 192\.0\.2\.1: Cannot assign", "--listen", "192.0.2.1", "--insecure")

    def test_a_broken_scenario(self):
        array = self.folder / "array.json"
        array.write_text('{\n"system": }')
        self.fails(1, r"array\.json: .*line 2, column 11", "--array", array)
        self.fails(1, "none.json", "--array", self.folder / "none.json")

    def test_a_broken_schema(self):
        schema = self.schema()
        (schema / "host.mof").write_text("class A {\n  uint8 x\n};")
        self.fails(1, r"host\.mof:3:1: ", "--schema", schema)
        self.fails(1, r"nowhere/interop\.mof", "--schema", self.folder / "nowhere")

    def test_a_missing_library(self):
        self.fails(1, r'libQRV_\w+\.so" was not found for provider module(?s:.*)\nqrv-cimserver: no provider module',
                   "--providers", self.folder)

    def test_a_library_that_is_none(self):
        for name in ("QRV_HostProvider", "QRV_StorageVolumeProvider"):
            (self.folder / f"lib{name}.so").write_text("no library")
        self.fails(1, r"Cannot load library", "--providers", self.folder)

    def test_both_addresses_of_this_machine_have_one_port(self):
        with socket.create_server(("127.0.0.1", 0)) as free:
            port = str(free.getsockname()[1])
        for arguments in (["--port", "0"], ["--port", port, "--listen", "localhost", "--listen", "127.0.0.1"]):
            process = subprocess.Popen([PROGRAM, "--array", str(HERE / "array.json"), *arguments],
                                       stdout=subprocess.PIPE, text=True)
            urls = []
            while (line := process.stdout.readline()) not in ("Ready.\n", ""):
                urls.append(line.split()[-1])
            process.terminate()
            self.assertEqual(process.wait(20), 0)
            process.stdout.close()
            self.assertEqual(len({url.rsplit(":", 1)[1] for url in urls}), 1, urls)
            self.assertEqual(len(set(urls)), len(urls))
            self.assertTrue(all(re.match(r"http://(127\.0\.0\.1|\[::1\]):\d+/$", url) for url in urls), urls)


if __name__ == "__main__":
    PROGRAM = os.path.abspath(sys.argv.pop(1))
    unittest.main()
