#!/usr/bin/env python3
"""Reads what `trrule test --format junit` writes with a parser of XML, and adds its counts up.

    junit_check.py TRRULE FOLDER

FOLDER gets the grammars. Ends with 1, and says why, where the report is not well-formed, a suite's
counts or time are not those of its cases, or an example is not there.
"""

import os
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

ODD = b'<a> & "b" \'c\' ]]> \x01\x7f \xe9 \xef\xbf\xbf \xf0\x9f\x98\x80'
NOUN = b'N::N : ["car"] -> ["auto"]\n(X1::Y1)\n'


def examples(*pairs):
    return b"".join(b";;SL: " + source + b"\n;;TL: " + target + b"\n" for source, target in pairs)


GRAMMARS = {
    "a<&>\".trr": examples((b"car", b"auto"), (b"car", ODD), (ODD, b"x")) + NOUN,
    "b.trr": examples((b"car", b"auto")) + b";;*SL: bus\n;;*SL: car\n" + NOUN,
    "empty.trr": NOUN,
}


def run(trrule, folder, options):
    command = [trrule, "test", "--format", "junit", *options, *GRAMMARS]
    return subprocess.run(command, cwd=folder, stdout=subprocess.PIPE, check=False).stdout


def counts(cases):
    return {
        "tests": len(cases),
        "failures": sum(case.find("failure") is not None for case in cases),
        "errors": sum(case.find("error") is not None for case in cases),
    }


def check(element, cases, faults):
    """Compares what the head of a suite, or of all, says with its cases."""
    name = element.get("name", "all")
    for key, count in counts(cases).items():
        if element.get(key) != str(count):
            faults.append(f"{name}: {key} is {element.get(key)}, and there are {count}")
    seconds = sum(float(case.get("time")) for case in cases)
    if abs(float(element.get("time")) - seconds) > 1e-6 * (len(cases) + 1):
        faults.append(f"{name}: the times do not add up")


def faults_of(report, wanted):
    faults = []
    root = ElementTree.fromstring(report)
    cases = root.findall("testsuite/testcase")
    if root.tag != "testsuites" or len(cases) != wanted:
        faults.append(f"{root.tag} with {len(cases)} cases in the place of {wanted}")
    check(root, cases, faults)
    for suite in root.findall("testsuite"):
        check(suite, suite.findall("testcase"), faults)
        for case in suite.findall("testcase"):
            if case.get("classname") != suite.get("name") or not case.get("name"):
                faults.append(f"{suite.get('name')}: a case has no place")
            for found in case:
                if not found.get("type") or not found.get("message"):
                    faults.append(f"{case.get('name')}: the failure does not say why")
    return faults


def main():
    trrule, folder = sys.argv[1:]
    os.makedirs(folder, exist_ok=True)
    for name, text in GRAMMARS.items():
        with open(os.path.join(folder, name), "wb") as file:
            file.write(text)
    for options in [], ["--strict"], ["--max-constituents", "0"]:
        for fault in faults_of(run(trrule, folder, options), 6):
            sys.exit(f"{' '.join(options)}: {fault}")


if __name__ == "__main__":
    main()
