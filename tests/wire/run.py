#!/usr/bin/env python3
"""Sends the requests in cases/ to a CIM server and compares its answers.

  run.py --server BIN/qrv-cimserver        starts that server with the array in array.json
  run.py --url http://host:5988 --user u:p  uses one that runs, serving the same array

A case is a message, NAME.xml, and the answer, NAME.expected: one line for each element below the
response, indented by depth, with its attributes in order and its text; or "HTTP status CIMError".
"""
import argparse
import difflib
import pathlib
import sys
import xml.etree.ElementTree as ElementTree

import wire

HERE = pathlib.Path(__file__).resolve().parent


def lines(element, depth=0):
    """An element and what is in it. The order of results is the server's own affair."""
    attributes = "".join(f' {k}="{v}"' for k, v in sorted(element.attrib.items()))
    text = (element.text or "").strip()
    blocks = [lines(child, depth + 1) for child in element]
    if element.tag == "IRETURNVALUE":
        blocks.sort()
    own = "  " * depth + element.tag + attributes + (" = " + text if text else "")
    return [own] + [line for block in blocks for line in block]


def normalised(response):
    if response.status != 200:
        return [f"HTTP {response.status} {response.getheader('CIMError', '')}".strip()]
    message = ElementTree.fromstring(response.text.encode()).find("MESSAGE")
    return lines(message.find("SIMPLERSP")[0])


def differences(server, case):
    expected = case.with_suffix(".expected").read_text().splitlines()
    actual = normalised(server.post(case.read_text()))
    return list(difflib.unified_diff(expected, actual, "expected", "answer", lineterm=""))


def run(server, cases):
    failed = 0
    for case in cases:
        found = differences(server, case)
        print("FAILED" if found else "ok", case.stem, *found, sep="\n" if found else " ")
        failed += bool(found)
    print(f"{len(cases)} cases, {failed} failed")
    return not failed and bool(cases)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    where = parser.add_mutually_exclusive_group(required=True)
    where.add_argument("--server", help="the program to start")
    where.add_argument("--url", help="where a server listens")
    parser.add_argument("--user", default="admin:admin", help="user:password")
    parser.add_argument("cases", nargs="*", help="names of cases; all without any")
    arguments = parser.parse_args()
    names = arguments.cases or sorted(path.stem for path in (HERE / "cases").glob("*.xml"))
    cases = [HERE / "cases" / (name + ".xml") for name in names]
    if arguments.url:
        return run(wire.Server(arguments.url, arguments.user), cases)
    server = wire.start([arguments.server, "--port", "0", "--listen", "127.0.0.1",
                         "--array", str(HERE / "array.json")], arguments.user)
    passed = run(server, cases)
    return server.stop() == 0 and passed


if __name__ == "__main__":
    sys.exit(0 if main() else 1)
