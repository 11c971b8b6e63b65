#!/usr/bin/env python3
"""How many of these sentences NLTK's chart parser for feature grammars parses in a second.

    nltk-rate.py GRAMMAR.fcfg TEXTS

Parses each sentence and takes all of its trees. Prints sentences a second, and how many of them have
a tree; says so and ends with 3 where NLTK (python3-nltk) is missing.
"""

import sys
import time

try:
    from nltk.grammar import FeatureGrammar
    from nltk.parse import FeatureChartParser
except ImportError:
    print("NLTK is missing (Debian: python3-nltk)")
    sys.exit(3)


def main(grammar, texts):
    with open(grammar, encoding="utf-8") as file:
        parser = FeatureChartParser(FeatureGrammar.fromstring(file.read()))
    with open(texts, encoding="utf-8") as file:
        sentences = [line.split() for line in file]
    start = time.process_time()
    parsed = sum(1 for sentence in sentences if list(parser.parse(sentence)))
    seconds = time.process_time() - start
    print(f"{len(sentences) / seconds:.0f} {parsed}")


if __name__ == "__main__":
    main(*sys.argv[1:])
