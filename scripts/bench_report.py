"""Runs the Google Benchmark binaries of a build and prints a table: time, floor, ratio, change.

A benchmark X has its floor, the least that the same job needs, in X_floor of the same run, so that noise of the
machine falls on both.
"""

import argparse
import json
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
FLOOR = "_floor"
# A change below this is noise on a shared machine.
SLOWER = 1.25


def binaries(build):
    found = sorted(path for path in (build / "bin").glob("*bench*") if path.is_file() and os.access(path, os.X_OK))
    if not found:
        sys.exit(f"no benchmarks in {build / 'bin'}; build with -DNRVK_BENCH=ON")
    return found


def run(binary, name_filter, smoke):
    """Benchmarks of one binary as Google Benchmark reports them."""
    with tempfile.TemporaryDirectory() as folder:
        outcome = Path(folder) / "bench.json"
        command = [str(binary), f"--benchmark_out={outcome}", "--benchmark_out_format=json"]
        if name_filter:
            command.append(f"--benchmark_filter={name_filter}")
        if smoke:
            command.append("--benchmark_min_time=0.001")
        subprocess.run(command, check=True, stdout=subprocess.DEVNULL, cwd=folder)
        return json.loads(outcome.read_text() or '{"benchmarks": []}')["benchmarks"]


def nanoseconds(benchmark):
    return benchmark["cpu_time"] * NANOSECONDS[benchmark["time_unit"]]


def times(benchmarks):
    """Name -> nanoseconds, failed ones named and left out."""
    found = {}
    for benchmark in benchmarks:
        if benchmark.get("error_occurred"):
            sys.exit(f"{benchmark['name']}: {benchmark.get('error_message')}")
        if benchmark.get("run_type", "iteration") == "iteration":
            found[benchmark["name"]] = nanoseconds(benchmark)
    return found


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


def print_table(found, earlier):
    """The table; gives the names that have become slower."""
    width = max(len(name) for name in found)
    print(f"{'benchmark':<{width}}  {'time':>10}  {'floor':>10}  {'ratio':>7}" + ("  change" if earlier else ""))
    slower = []
    for name, value in found.items():
        if is_floor(name):
            continue
        floor = found.get(floor_name(name))
        row = f"{name:<{width}}  {human(value):>10}  "
        row += f"{human(floor):>10}  {value / floor:>6.1f}x" if floor else f"{'-':>10}  {'-':>7}"
        if name in earlier:
            change = value / earlier[name]
            row += f"  {change - 1:+.0%}"
            if change > SLOWER:
                slower.append(name)
        print(row)
    return slower


def stripped_size(library):
    strip = shutil.which("strip")
    if not strip or not library.exists():
        return None
    with tempfile.TemporaryDirectory() as folder:
        copy = Path(folder) / "library"
        shutil.copyfile(library, copy)
        subprocess.run([strip, "--strip-unneeded", str(copy)], check=True)
        return copy.stat().st_size


def idle_memory(program):
    """Resident KiB of an onu-sim that has started and waits."""
    if not program.exists():
        return None
    with tempfile.TemporaryDirectory() as folder:
        command = [str(program), "--listen", "127.0.0.1:0", "--state-dir", folder, "--log-level", "4"]
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=subprocess.DEVNULL, text=True)
        try:
            if not process.stdout.readline().startswith("listening on "):
                return None
            time.sleep(0.5)
            status = Path(f"/proc/{process.pid}/status").read_text()
            return int(re.search(r"^VmRSS:\s+(\d+)", status, re.MULTILINE).group(1))
        finally:
            process.send_signal(signal.SIGTERM)
            process.wait(timeout=10)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", type=Path, required=True)
    parser.add_argument("--compare", type=Path)
    parser.add_argument("--filter")
    parser.add_argument("--smoke", action="store_true")
    arguments = parser.parse_args()

    benchmarks = [one for binary in binaries(arguments.build) for one in run(binary, arguments.filter, arguments.smoke)]
    found = times(benchmarks)
    if not found:
        sys.exit("no benchmark has run")
    earlier = times(json.loads(arguments.compare.read_text())["benchmarks"]) if arguments.compare else {}
    slower = print_table(found, earlier)

    size = stripped_size(arguments.build / "lib" / "libnrvk-omci-me.so")
    memory = idle_memory(arguments.build / "bin" / "onu-sim")
    print(f"stripped library: {size / 1024:.0f} KiB" if size else "stripped library: not built")
    print(f"idle onu-sim: {memory / 1024:.1f} MiB resident" if memory else "idle onu-sim: did not start")
    figures = {"library_bytes": size, "idle_kib": memory, "benchmarks": benchmarks}
    if not arguments.smoke:
        (arguments.build / "bench.json").write_text(json.dumps(figures, indent=1) + "\n")
    missing = [text for text, value in (("library", size), ("onu-sim", memory)) if not value]
    if missing:
        sys.exit(f"not measured: {', '.join(missing)}")
    if slower:
        sys.exit(f"slower than before: {', '.join(slower)}")


if __name__ == "__main__":
    main()
