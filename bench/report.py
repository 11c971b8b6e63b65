#!/usr/bin/env python3
"""Prints the figures of a benchmark run as a table, and draws them as a picture.

    bench/report.py FILE.json [--plot FILE.svg]

A stage is held against its floor: what its containers, or its characters, cost by themselves in
the same run.
"""

import argparse
import json

BAR = 14
GAP = 10
LABEL = 230
WIDTH = 420


def read_stages(path):
    """The runs by stage and by what was run: {"read": {"library": ..., "floor": ...}}."""
    with open(path, encoding="utf-8") as file:
        runs = json.load(file)["benchmarks"]
    stages = {}
    for run in runs:
        stage, kind = run["name"].split("/")[:2]
        run["ns"] = run["cpu_time"] / run["rules"]
        stages.setdefault(stage, {})[kind] = run
    return stages


def ratio(kinds):
    """How many times its floor a stage costs; nothing for a stage without a floor."""
    if "library" in kinds and "floor" in kinds:
        return kinds["library"]["ns"] / kinds["floor"]["ns"]
    return None


def print_table(stages):
    head = ("stage", "what", "ns/rule", "MB/s", "of floor", "allocations", "bytes")
    print("| " + " | ".join(head) + " |")
    print("|---|---|---:|---:|---:|---:|---:|")
    for stage, kinds in stages.items():
        for kind, run in kinds.items():
            text = run.get("text", 0)
            speed = f"{text * 1000 / run['ns']:.0f}" if text else ""
            times = ratio(kinds) if kind == "library" else None
            counted = "allocations" in run
            cells = (
                stage,
                kind,
                f"{run['ns']:.0f}",
                speed,
                f"{times:.2f}" if times else "",
                f"{run['allocations']:.1f}" if counted else "",
                f"{run['allocated']:.0f}" if counted else "",
            )
            print("| " + " | ".join(cells) + " |")


def draw(stages, path):
    """One bar for each stage that has a floor, in floors."""
    rows = [(stage, ratio(kinds)) for stage, kinds in stages.items() if ratio(kinds)]
    scale = WIDTH / max(times for _, times in rows)
    height = len(rows) * (BAR + GAP) + 3 * GAP
    lines = [
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{LABEL + WIDTH + 60}" height="{height}" '
        'font-family="sans-serif" font-size="12">',
        '<rect width="100%" height="100%" fill="white"/>',
    ]
    floor = LABEL + scale
    for number, (stage, times) in enumerate(rows):
        top = GAP + number * (BAR + GAP)
        lines += [
            f'<text x="{LABEL - 8}" y="{top + BAR - 2}" text-anchor="end">{stage}</text>',
            f'<rect x="{LABEL}" y="{top}" width="{times * scale:.1f}" height="{BAR}" '
            'fill="#4a7ba6"/>',
            f'<text x="{LABEL + times * scale + 6:.1f}" y="{top + BAR - 2}">{times:.2f}</text>',
        ]
    lines += [
        f'<line x1="{floor:.1f}" y1="0" x2="{floor:.1f}" y2="{height - 2 * GAP}" stroke="#c0392b" '
        'stroke-dasharray="4 3"/>',
        f'<text x="{floor:.1f}" y="{height - 6}" text-anchor="middle" fill="#c0392b">floor</text>',
        "</svg>",
    ]
    with open(path, "w", encoding="utf-8") as file:
        file.write("\n".join(lines) + "\n")


def main():
    arguments = argparse.ArgumentParser(description="Report of a benchmark run")
    arguments.add_argument("json")
    arguments.add_argument("--plot")
    given = arguments.parse_args()
    stages = read_stages(given.json)
    print_table(stages)
    if given.plot:
        draw(stages, given.plot)


if __name__ == "__main__":
    main()
