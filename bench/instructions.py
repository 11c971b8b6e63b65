#!/usr/bin/env python3
"""What the commands over files of rules cost, in instructions, which are the same on every machine.

    bench/instructions.py TRRULE RULES

Runs each command under callgrind on 2,000 and on 4,000 generated rules and prints what a rule takes,
as rows of a table: what a run takes beside its rules does not count. TRRULE is the command, RULES the
program trrule-grammar-rules, which makes the rules and has the library read and write them alone.
"""

import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

COUNTS = (2000, 4000)


def instructions(command, *options):
    """What is executed by a program, or between entering and leaving one of its functions."""
    result = subprocess.run(
        ["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null", *options, *command],
        stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True, check=False)
    found = re.search(r"Collected : (\d+)", result.stderr)
    if result.returncode not in (0, 1) or not found or int(found.group(1)) == 0:
        sys.exit(f"** nothing was counted for {command}:\n{result.stderr}")
    return int(found.group(1))


def library(rules, action, function):
    return instructions([rules, action, str(COUNTS[0])], "--toggle-collect=" + function) / COUNTS[0]


# A query that few rules fit, and one that all do and that looks at all of them.
QUERIES = ("[DET * N $] and passes gen and not crossing",
           "line /./ and (x:det = * or comments > 0 or monotone)")


def command(trrule, name, suffix, *options):
    counts = [instructions([trrule, name, *options, "--threads", "1", f"{count}{suffix}"])
              for count in COUNTS]
    return (counts[1] - counts[0]) / (COUNTS[1] - COUNTS[0])


def rows(trrule, rules):
    read = library(rules, "read", "MeasuredReading")
    base = library(rules, "library", "MeasuredReadingAndWriting")
    yield "the library reads", read, ""
    yield "the library reads and writes", base, ""
    printed = command(trrule, "print", ".trr")
    yield "`print`", printed, f"{printed / base:.2f} of the library"
    for name in ("check", "sort", "unique", "json"):
        cost = command(trrule, name, ".trr")
        yield f"`{name}`", cost, f"{cost / printed:.2f} of `print`"
    read_back = command(trrule, "from-json", ".json")
    yield "`from-json`", read_back, f"{read_back / cost:.2f} of `json`"
    for query in QUERIES:
        cost = command(trrule, "find", ".trr", query)
        yield f"`find '{query}'`", cost, f"{cost / printed:.2f} of `print`"
    page = command(trrule, "html", ".trr")
    yield "`html`", page, f"{page / printed:.2f} of `print`"


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    trrule, rules = (str(Path(name).resolve()) for name in sys.argv[1:])
    with tempfile.TemporaryDirectory() as folder:
        for count in COUNTS:
            for suffix, program in ((".trr", [rules, "write", str(count)]),
                                    (".json", [trrule, "json", f"{folder}/{count}.trr"])):
                with open(f"{folder}/{count}{suffix}", "wb") as output:
                    subprocess.run(program, stdout=output, check=True)
        print("| what | instructions a rule | ratio |\n|---|---:|---:|")
        os.chdir(folder)
        for what, count, ratio in rows(trrule, rules):
            print(f"| {what} | {count:,.0f} | {ratio} |", flush=True)


if __name__ == "__main__":
    main()
