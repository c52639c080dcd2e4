#!/usr/bin/env python3
"""Sends the requests in cases/ to a CIM server and compares its answers.

  run.py --server BIN/qrv-cimserver        starts that server with the array in array.json
  run.py --url http://host:5988 --user u:p  uses one that runs, serving the same array

A case is a message, NAME.xml, or a file of requests, NAME.requests, with one in each line. NAME.expected
holds the answers: for each element below the response one line, indented by depth, with its attributes
and its text; paths are one text, and an element that stands alone shares its parent's line. Refusals by
HTTP are "HTTP status CIMError".
"""
import difflib
import sys
import xml.etree.ElementTree as ElementTree

import request_lines
import wire

PATHS = ("INSTANCENAME", "LOCALINSTANCEPATH", "INSTANCEPATH", "LOCALCLASSPATH", "CLASSPATH")


# In what follows servers may differ and still answer alike.

def any_order_of_results(element, blocks):
    return sorted(blocks) if element.tag == "IRETURNVALUE" else blocks


def any_order_of_attributes(element):
    return "".join(f' {k}="{v}"' for k, v in sorted(element.attrib.items()))


def any_blanks_between_elements(element):
    text = element.text or ""
    return "" if text.isspace() else text.replace("\n", "\\n")


def no_results_or_no_element_for_them(response):
    """Where there is nothing to return, IRETURNVALUE is empty or absent."""
    return [child for child in response if child.tag != "IRETURNVALUE" or len(child)]


def any_name_of_the_server(line, server):
    """It stands in paths that no provider has given a host."""
    return line.replace(f"//{server.realm}/", "//SERVER/")


def lines(element, children=None):
    """An element and what is in it."""
    if element.tag in PATHS:
        return [f"{element.tag} = {wire.path_text(element)}"]
    text = any_blanks_between_elements(element)
    own = element.tag + any_order_of_attributes(element) + (" = " + text if text else "")
    blocks = any_order_of_results(
        element, [lines(child) for child in (element if children is None else children)])
    if len(blocks) == 1:
        return [f"{own} > {blocks[0][0]}", *blocks[0][1:]]
    return [own] + ["  " + line for block in blocks for line in block]


def normalised(server, response):
    if response.status != 200:
        return [f"HTTP {response.status} {response.getheader('CIMError', '')}".strip()]
    answer = ElementTree.fromstring(response.text.encode()).find("MESSAGE/SIMPLERSP")[0]
    return [any_name_of_the_server(line, server)
            for line in lines(answer, no_results_or_no_element_for_them(answer))]


def answers(server, case):
    if case.suffix == ".xml":
        return normalised(server, server.post(case.read_text()))
    found = []
    for line, user, message in request_lines.requests(case.read_text()):
        answer = normalised(server, server.post(message, user=user and f"{user}:{user}"))
        found += ["", "> " + line, *answer]
    return found[1:]


def differences(server, case, record):
    actual = answers(server, case)
    if record:
        case.with_suffix(".expected").write_text("\n".join(actual) + "\n")
    expected = case.with_suffix(".expected").read_text().splitlines()
    return list(difflib.unified_diff(expected, actual, "expected", "answer", lineterm=""))


def run(server, cases, record):
    failed = 0
    for case in cases:
        found = differences(server, case, record)
        print("FAILED" if found else "ok", case.stem, *found, sep="\n" if found else " ")
        failed += bool(found)
    print(f"{len(cases)} cases, {failed} failed")
    return not failed and bool(cases)


def main():
    parser = wire.options(__doc__)
    parser.add_argument("--record", action="store_true", help="write what is answered as expected")
    parser.add_argument("cases", nargs="*", help="names of cases; all without any")
    arguments = parser.parse_args()
    cases = [path for path in sorted((wire.HERE / "cases").iterdir())
             if path.suffix != ".expected" and (not arguments.cases or path.stem in arguments.cases)]
    server = wire.chosen(arguments)
    passed = run(server, cases, arguments.record)
    return server.stop() == 0 and passed


if __name__ == "__main__":
    sys.exit(0 if main() else 1)
