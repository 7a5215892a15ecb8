"""The tables of docs/performance.md: benchmarks beside their floors and targets, bytes of each class, start of the
library. Each stands between a pair of comments in the page; what is around them is written by hand."""

import json
import re
import subprocess
from collections import Counter, defaultdict
from pathlib import Path

FLOOR = "_floor"
TARGETS = Path(__file__).parent.parent / "bench" / "targets.json"
# OmciMeAniGImplExtended is of AniG.
OF_A_CLASS = re.compile(r"\bOmciMe(\w+?)(?:If|ImplExtended|Impl|AdapterExtended|Adapter)\b")


def floor_name(name):
    """X/25 has its floor in X_floor/25."""
    base, mark, rest = name.partition("/")
    return base + FLOOR + mark + rest


def is_floor(name):
    return name.partition("/")[0].endswith(FLOOR)


def human(value):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("us", 1e3)):
        if value >= size:
            return f"{value / size:.2f} {unit}"
    return f"{value:.1f} ns"


def table(head, rows):
    right = [index > 0 for index in range(len(head))]
    lines = ["| " + " | ".join(head) + " |", "|" + "|".join("---:" if one else "---" for one in right) + "|"]
    return lines + ["| " + " | ".join(str(cell) for cell in row) + " |" for row in rows]


def target_of(name, value, floor, targets):
    """The target in words, and whether it is met; two dashes without one."""
    target = targets.get(name)
    if target is None:
        return "-", "-"
    if "ratio" in target:
        return f"{target['ratio']}x", "yes" if floor and value / floor <= target["ratio"] else "no"
    return f"under {human(target['ns'])}", "yes" if value < target["ns"] else "no"


def benchmark_rows(found, targets):
    for name, value in found.items():
        if is_floor(name):
            continue
        floor = found.get(floor_name(name))
        ratio = f"{value / floor:.1f}x" if floor else "-"
        yield (f"`{name}`", human(value), human(floor) if floor else "-", ratio, *target_of(name, value, floor, targets))


def figure_rows(figures, targets):
    for name, text, unit, shown in (("library_bytes", "stripped library", 1024, "KiB"),
                                    ("idle_kib", "idle onu-sim, resident (VmRSS)", 1024, "MiB"),
                                    ("idle_share_kib", "idle onu-sim, its share (Pss)", 1024, "MiB")):
        value, limit = figures[name], targets.get(name)
        yield (text, f"{value / unit:.1f} {shown}", "-", "-", f"under {limit / unit:.0f} {shown}" if limit else "-",
               ("yes" if value < limit else "no") if limit else "-")


def sections_of(library):
    """Section number -> what it is for a reader: code, constant data, variables."""
    text = subprocess.run(["readelf", "--section-headers", "--wide", str(library)], stdout=subprocess.PIPE, text=True,
                          check=True).stdout
    kinds = {}
    for number, name in re.findall(r"^\s*\[\s*(\d+)\]\s+(\S+)", text, re.MULTILINE):
        if name.startswith(".text"):
            kinds[number] = "code"
        elif name.startswith((".rodata", ".data.rel.ro")):
            kinds[number] = "constants"
        elif name.startswith((".data", ".bss")):
            kinds[number] = "variables"
    return kinds


def bytes_by_class(library):
    """Class -> bytes by kind; "shared" has what belongs to none."""
    kinds = sections_of(library)
    text = subprocess.run(["readelf", "--symbols", "--wide", "--demangle", str(library)], stdout=subprocess.PIPE,
                          text=True, check=True).stdout
    text = text[text.rindex("Symbol table '.symtab'"):]
    seen, sizes = set(), defaultdict(Counter)
    pattern = re.compile(r"^\s*\d+: ([0-9a-f]+)\s+(0x[0-9a-f]+|\d+) (?:FUNC|OBJECT)\s+\w+\s+\w+\s+(?:\[.*?\] )?(\d+) (.*)$")
    for line in text.splitlines():
        match = pattern.match(line)
        if not match or match.group(3) not in kinds or match.group(1) in seen:
            continue
        seen.add(match.group(1))  # a constructor has two names for one body
        owner = OF_A_CLASS.search(match.group(4))
        sizes[owner.group(1) if owner else "shared"][kinds[match.group(3)]] += int(match.group(2), 0)
    return sizes


def class_rows(sizes):
    def row(name, size):
        return (name, size["code"], size["constants"], size["variables"])

    shared = sizes.pop("shared", Counter())
    classes = sorted(sizes.items(), key=lambda entry: -entry[1].total())
    for name, size in classes:
        yield row(name, size)
    yield row(f"all {len(classes)} classes", sum(sizes.values(), Counter()))
    yield row("shared", shared)


def relocation_rows(library):
    text = subprocess.run(["readelf", "--relocs", "--wide", str(library)], stdout=subprocess.PIPE, text=True,
                          check=True).stdout
    counts = Counter(re.findall(r"\s(R_[A-Z0-9_]+)\s", text))
    if packed := re.search(r"'\.relr\.dyn'.*?\n\s*(\d+) offsets", text):
        counts["relative, packed"] = int(packed.group(1))
    for name, count in counts.most_common():
        yield (f"`{name}`" if name.startswith("R_") else name, count)
    yield ("together", counts.total())


def section_rows(library):
    text = subprocess.run(["size", "-A", str(library)], stdout=subprocess.PIPE, text=True, check=True).stdout
    found = [(name, int(size)) for name, size, address in re.findall(r"^(\.\S+)\s+(\d+)\s+(\d+)$", text, re.MULTILINE)
             if int(address) != 0]
    for name, size in sorted(found, key=lambda entry: -entry[1])[:12]:
        yield (f"`{name}`", size)


def replace(page, name, lines):
    begin, end = f"<!-- {name}: written by scripts/bench --markdown -->", f"<!-- end of {name} -->"
    pattern = re.compile(re.escape(begin) + r".*?" + re.escape(end), re.DOTALL)
    if not pattern.search(page):
        raise SystemExit(f"the page has no place for the table '{name}': {begin} ... {end}")
    return pattern.sub(lambda _: "\n".join([begin, *lines, end]), page)


def write(path, build, found, figures):
    """Puts the tables of this run into the page."""
    library = build / "lib" / "libnrvk-omci-me.so"
    targets = json.loads(TARGETS.read_text())
    page = path.read_text()
    rows = [*benchmark_rows(found, targets), *figure_rows(figures, targets)]
    page = replace(page, "benchmarks", table(["benchmark", "time", "floor", "ratio", "target", "met"], rows))
    page = replace(page, "classes", table(["class", "code", "constant data", "variables"],
                                          class_rows(bytes_by_class(library))))
    page = replace(page, "relocations", table(["relocations at start-up", "number"], relocation_rows(library)))
    page = replace(page, "sections", table(["section", "bytes"], section_rows(library)))
    path.write_text(page)
