"""Counts the instructions of the fixed roads under callgrind and compares them with committed figures."""

import argparse
import json
import re
import subprocess
import sys
import tempfile
from pathlib import Path

PREFIX = "nrvk_road_"
DEFAULT_TOLERANCE = 0.02
# How far the share of one entity, or one more row, may rise with the size.
GROWTH = 1.10


def profile(program):
    """What the program says and what callgrind has counted, both as text."""
    with tempfile.TemporaryDirectory() as folder:
        outcome = Path(folder) / "callgrind.out"
        run = subprocess.run(["valgrind", "--tool=callgrind", f"--callgrind-out-file={outcome}", str(program)],
                             stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, cwd=folder, check=False)
        if run.returncode != 0:
            sys.exit(f"{program.name} failed under valgrind:\n{run.stderr[-2000:]}")
        annotated = subprocess.run(["callgrind_annotate", "--inclusive=yes", "--threshold=100", "--auto=no",
                                    "--show-percs=no", str(outcome)],
                                   stdout=subprocess.PIPE, text=True, check=True).stdout
    return run.stdout, annotated


def operations_of(text):
    """Road -> operations, as the program prints them."""
    return {name.removeprefix(PREFIX): int(count) for name, count in (line.split() for line in text.splitlines())}


def totals_of(annotated):
    """Road -> instructions of all its operations."""
    pattern = re.compile(rf"^\s*([\d,]+)\s.*?[:\s]{PREFIX}(\w+)", re.MULTILINE)
    totals = {}
    for count, road in pattern.findall(annotated):
        totals.setdefault(road, int(count.replace(",", "")))
    return totals


def per_operation(operations, totals):
    missing = sorted(set(operations) - set(totals))
    if missing:
        sys.exit(f"not in the profile: {', '.join(missing)}")
    return {road: round(totals[road] / count, 1) for road, count in operations.items()}


def compiler_of(build):
    cache = (build / "CMakeCache.txt").read_text()
    compiler = re.search(r"^CMAKE_CXX_COMPILER:\w+=(.*)$", cache, re.MULTILINE).group(1)
    lines = subprocess.run([compiler, "--version"], stdout=subprocess.PIPE, text=True, check=True).stdout.splitlines()
    machine = subprocess.run([compiler, "-dumpmachine"], stdout=subprocess.PIPE, text=True, check=True).stdout.strip()
    return f"{lines[0]}, {machine}"


def growing(found):
    """Pairs X_SMALL and X_LARGE of one operation at two sizes, where the larger one costs more."""
    sizes = {}
    for road, count in found.items():
        if match := re.match(r"^(.*_(?:of|after))_(\d+)$", road):
            sizes.setdefault(match.group(1), []).append((int(match.group(2)), count))
    grown = []
    for road, entries in sizes.items():
        (small, few), (large, many) = min(entries), max(entries)
        if many > few * GROWTH:
            grown.append(f"{road}: {few} instructions each at {small}, {many} at {large}")
    return grown


def compare(found, committed, tolerance):
    """The table; gives what is wrong."""
    wrong = []
    width = max(map(len, found))
    print(f"{'road':<{width}}  {'instructions':>12}  {'committed':>12}  change")
    for road, count in found.items():
        before = committed.get(road)
        if before is None:
            wrong.append(f"{road} has no committed figure")
            print(f"{road:<{width}}  {count:>12}  {'-':>12}")
            continue
        change = count / before - 1
        print(f"{road:<{width}}  {count:>12}  {before:>12}  {change:+.1%}")
        if change > tolerance:
            wrong.append(f"{road}: {before} -> {count} instructions")
        elif change < -tolerance:
            print(f"{'':<{width}}  better than committed: scripts/instructions --update keeps it")
    return wrong + [f"{road} is committed and not counted" for road in sorted(set(committed) - set(found))]


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", type=Path, required=True)
    parser.add_argument("--figures", type=Path, required=True)
    parser.add_argument("--update", action="store_true")
    arguments = parser.parse_args()

    program = arguments.build / "bin" / "instruction_roads"
    if not program.exists():
        sys.exit(f"{program} is not built; build with -DNRVK_BENCH=ON")
    said, annotated = profile(program)
    found = per_operation(operations_of(said), totals_of(annotated))
    compiler = compiler_of(arguments.build)
    kept = json.loads(arguments.figures.read_text()) if arguments.figures.exists() else {}
    tolerance = kept.get("tolerance", DEFAULT_TOLERANCE)
    wrong = compare(found, found if arguments.update else kept.get("instructions", {}), tolerance)
    if arguments.update:
        figures = {"compiler": compiler, "tolerance": tolerance, "instructions": found}
        arguments.figures.write_text(json.dumps(figures, indent=2) + "\n")
    elif kept.get("compiler") != compiler:
        wrong.append(f"the committed figures are of {kept.get('compiler')}, these of {compiler}")
    wrong += growing(found)
    if wrong:
        sys.exit("\n".join(wrong))


if __name__ == "__main__":
    main()
