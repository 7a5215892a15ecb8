"""What gcovr has counted: a table by folder, a list of what the tests have missed, and the gate."""

import argparse
import json
import sys
from pathlib import Path


class Count:
    """How many there are, and how many of them were met."""

    def __init__(self):
        self.met = 0
        self.all = 0

    def add(self, met):
        self.met += bool(met)
        self.all += 1

    def __iadd__(self, other):
        self.met += other.met
        self.all += other.all
        return self

    @property
    def percent(self):
        return 100 * self.met / self.all if self.all else 100.0

    def __str__(self):
        # Cut, not rounded: 97.99 % is not 98 %.
        return f"{self.met:>6}/{self.all:<6}{int(self.percent * 10) / 10:>6.1f} %"


class Place:
    """Lines and branches of a folder."""

    def __init__(self):
        self.lines = Count()
        self.branches = Count()

    def __iadd__(self, other):
        self.lines += other.lines
        self.branches += other.branches
        return self


def place_of(file):
    place = Place()
    for line in file["lines"]:
        if line.get("gcovr/noncode"):
            continue
        place.lines.add(line["count"])
        for branch in line["branches"]:
            place.branches.add(branch["count"])
    return place


def by_folder(files):
    folders = {}
    for file in files:
        folder = str(Path(file["file"]).parent)
        folders.setdefault(folder, Place())
        folders[folder] += place_of(file)
    return dict(sorted(folders.items()))


def by_set(folders):
    """src and host with what lies below them."""
    sets = {}
    for folder, place in folders.items():
        name = Path(folder).parts[0]
        sets.setdefault(name, Place())
        sets[name] += place
    return sets


def table(folders):
    width = max(map(len, folders))
    rows = [f"{'folder':<{width}}  {'lines':>21}  {'branches':>21}"]
    rows += [f"{name:<{width}}  {place.lines}  {place.branches}" for name, place in folders.items()]
    return "\n".join(rows)


def missed(file, source):
    """What of the file no test has met, a line each."""
    rows = []
    for line in file["lines"]:
        if line.get("gcovr/noncode"):
            continue
        number = line["line_number"]
        text = source[number - 1].strip() if number <= len(source) else ""
        branches = line["branches"]
        untaken = sum(1 for branch in branches if not branch["count"])
        if not line["count"]:
            rows.append(f"{file['file']}:{number}: never run: {text}")
        elif untaken:
            rows.append(f"{file['file']}:{number}: {untaken} of {len(branches)} branches: {text}")
    return rows


def below(sets, lines, branches):
    """What falls short of what is asked."""
    wrong = []
    for name, place in sets.items():
        for what, count, asked in (("lines", place.lines, lines), ("branches", place.branches, branches)):
            if count.percent < asked:
                wrong.append(f"{name}: {count.percent:.2f} % of the {what}, {asked:g} % are asked")
    return wrong


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--counts", type=Path, required=True, help="gcovr's JSON")
    parser.add_argument("--missed", type=Path, required=True, help="where the list of what was missed goes")
    parser.add_argument("--lines", type=float, required=True)
    parser.add_argument("--branches", type=float, required=True)
    arguments = parser.parse_args()

    files = json.loads(arguments.counts.read_text())["files"]
    files = [file for file in files if file["lines"]]
    if not files:
        sys.exit(f"{arguments.counts} counts no file: were the sources compiled under other names?")
    rows = []
    for file in files:
        rows += missed(file, Path(file["file"]).read_text().splitlines())
    arguments.missed.write_text("".join(f"{row}\n" for row in rows))
    folders = by_folder(files)
    sets = by_set(folders)
    print("\n".join(rows))
    print(f"\n{table(folders | {f'{name} in all': place for name, place in sets.items()})}")
    wrong = below(sets, arguments.lines, arguments.branches)
    if wrong:
        sys.exit("\n".join(wrong))


if __name__ == "__main__":
    main()
