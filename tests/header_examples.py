#!/usr/bin/env python3
"""Makes tests of the worked examples in headers.

    tests/header_examples.py --root FOLDER --output FILE [--fixture NAME] HEADER ...

The examples stand between @code and @endcode. In an example,

    Tokenize("::a::::b::", "::");  // {"a", "b"}

compares an expression with the value after it, which is C++, too, and comment lines after a statement
are the whole text that it prints on standard output:

    Rule.Print();
    // {NP,8}
    // ...

Every other statement is only compiled and run. The examples of a header are one test, and they share
no variables. A header without an example is an error.

With a fixture, which NAME.h declares, the tests are in the namespace of their header, and what the
fixture holds is there for the examples.
"""

import argparse
import re
import sys
from pathlib import Path

HEAD = """// Made by tests/header_examples.py of the examples in the headers.

{includes}
#include "{support}"

#include <gtest/gtest.h>

"""

FOOT = """int HeaderExamples::Headers() {{
  return {headers};
}}

int HeaderExamples::Comparisons() {{
  return {comparisons};
}}
"""


class Statement:
    """Some lines of an example up to a semicolon or a brace, and what is said of them."""

    def __init__(self, line_number):
        self.line_number = line_number
        self.lines = []
        self.value = None
        self.output = []

    def code(self):
        return "\n".join(self.lines)


def without_texts(line):
    """A line of code with its string and character literals emptied."""
    return re.sub(r'"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])\'', '""', line)


def split_comment(line):
    """The code of a line, and the comment after it, or None."""
    bare = re.sub(r'"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])\'', lambda text: "_" * len(text[0]), line)
    at = bare.find("//")
    if at < 0:
        return line.rstrip(), None
    return line[:at].rstrip(), line[at + 2:].strip()


def depth_of(code):
    bare = without_texts(code)
    return sum(bare.count(sign) for sign in "({[") - sum(bare.count(sign) for sign in ")}]")


def examples_of(path):
    """The examples of a header: for each, its lines without the comment signs, and their numbers."""
    examples = []
    lines = None
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        text = re.sub(r"^\s*///? ?", "", line)
        if text.strip() == "@code":
            lines = []
            examples.append(lines)
        elif text.strip() == "@endcode":
            lines = None
        elif lines is not None:
            if not line.lstrip().startswith("///"):
                sys.exit(f"** {path}:{number}: an example that is not closed")
            lines.append((number, text))
    return examples


def statements_of(example):
    """The statements of an example, with the values and outputs that they are said to have."""
    statements = []
    current = None
    depth = 0
    for number, line in example:
        code, comment = split_comment(line)
        if not code.strip():
            if comment is not None and statements and current is None:
                statements[-1].output.append(comment)
            continue
        current = current or Statement(number)
        current.lines.append(code)
        depth += depth_of(code)
        if depth == 0 and code.endswith((";", "}")):
            current.value = comment
            statements.append(current)
            current = None
    return statements


def test_of(place, statement):
    """The C++ that runs a statement and compares what it says."""
    where = f'"{place}:{statement.line_number}"'
    code = statement.code()
    if statement.output:
        printed = "".join(f'\n      R"~({line})~" "\\n"' for line in statement.output)
        return (f"  EXPECT_EQ(WrittenBy([&] {{ {code} }}), (Written{{{printed}, \"\"}}))\n"
                f"      << {where};\n")
    if statement.value is None:
        return f"{code}\n"
    expression = code.strip().removesuffix(";")
    value = statement.value if statement.value.startswith("{") else f"({statement.value})"
    return (f"  {{\n    const auto Actual = {expression};\n"
            f"    const std::decay_t<decltype(Actual)> Expected{value};\n"
            f"    EXPECT_EQ(Actual, Expected) << {where};\n  }}\n")


def namespace_of(path):
    """The first namespace that a header opens."""
    return re.search(r"^namespace (\w+) {", path.read_text(encoding="utf-8"), re.MULTILINE)[1]


def tests_of(path, place, fixture):
    """The tests of a header, and the number of their comparisons."""
    namespace = namespace_of(path) if fixture else "TrRuleInternal"
    text = f"namespace {namespace} {{\n\n"
    comparisons = 0
    for number, example in enumerate(examples_of(path), 1):
        name = f"{path.stem}{number if number > 1 else ''}"
        if fixture:
            text += f"TEST_F({fixture}, {name}) {{\n"
        else:
            text += f"TEST(HeaderExamples, {name}) {{\n  const HeaderExamples::Scope Scope;\n"
        for statement in statements_of(example):
            text += test_of(place, statement)
            comparisons += bool(statement.output) or statement.value is not None
        text += "}\n\n"
    if comparisons == 0:
        sys.exit(f"** {place}: no example with a result")
    return text + f"}}  // namespace {namespace}\n\n", comparisons


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--root", type=Path, required=True)
    parser.add_argument("--output", type=Path, required=True)
    parser.add_argument("--fixture")
    parser.add_argument("headers", nargs="+", type=Path)
    options = parser.parse_args()
    includes = "".join(f'#include "{path.name}"\n' for path in options.headers)
    support = f"{options.fixture}.h" if options.fixture else "support/HeaderExamples.h"
    text = HEAD.format(includes=includes, support=support)
    total = 0
    for path in options.headers:
        tests, comparisons = tests_of(path, path.relative_to(options.root), options.fixture)
        text += tests
        total += comparisons
    text += FOOT.format(headers=len(options.headers), comparisons=total)
    options.output.write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main()
