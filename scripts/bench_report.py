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

import performance_page
from performance_page import floor_name, human, is_floor

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
# A change of a ratio below this is noise on a shared machine.
SLOWER = 1.25
# A round is many short slices, and all benchmarks take turns: on a busy machine some slice of each is undisturbed, and
# what lasts falls on a benchmark and on its floor alike.
SLICES = 10
SLICE_SECONDS = 0.05
# The kernel maps more or fewer pages around those that are touched; the worst of so many starts counts.
STARTS = 5


def binaries(build):
    found = sorted(path for path in (build / "bin").glob("*bench*") if path.is_file() and os.access(path, os.X_OK))
    if not found:
        sys.exit(f"no benchmarks in {build / 'bin'}; build with -DNRVK_BENCH=ON")
    return found


def run(binary, name_filter, smoke, repeat):
    """Benchmarks of one binary as Google Benchmark reports them."""
    with tempfile.TemporaryDirectory() as folder:
        outcome = Path(folder) / "bench.json"
        command = [str(binary), f"--benchmark_out={outcome}", "--benchmark_out_format=json"]
        if name_filter:
            command.append(f"--benchmark_filter={name_filter}")
        if smoke:
            command.append("--benchmark_min_time=0.001")
        elif repeat > 1:
            command += [f"--benchmark_repetitions={repeat * SLICES}", f"--benchmark_min_time={SLICE_SECONDS}",
                        "--benchmark_enable_random_interleaving=true"]
        subprocess.run(command, check=True, stdout=subprocess.DEVNULL, cwd=folder)
        return json.loads(outcome.read_text() or '{"benchmarks": []}')["benchmarks"]


def nanoseconds(benchmark):
    return benchmark["cpu_time"] * NANOSECONDS[benchmark["time_unit"]]


def in_order(name):
    """A key that sorts X/5000 before X/10000."""
    return [int(part) if part.isdigit() else part for part in re.split(r"(\d+)", name)]


def times(benchmarks):
    """Name -> nanoseconds, the least of the repetitions; a failed one ends the run."""
    found = {}
    for benchmark in benchmarks:
        if benchmark.get("error_occurred"):
            sys.exit(f"{benchmark['name']}: {benchmark.get('error_message')}")
        if benchmark.get("run_type", "iteration") == "iteration":
            name, value = benchmark["name"], nanoseconds(benchmark)
            found[name] = min(value, found.get(name, value))
    return dict(sorted(found.items(), key=lambda entry: in_order(entry[0])))


def ratios(found):
    """Name -> times its floor, for those that have one."""
    return {name: value / found[floor_name(name)] for name, value in found.items() if floor_name(name) in found}


def earlier_ratios(path):
    """Those of a baseline, or of the bench.json of an earlier run."""
    earlier = json.loads(path.read_text())
    return earlier["ratios"] if "ratios" in earlier else ratios(times(earlier["benchmarks"]))


def print_table(found, earlier):
    """The table; gives the names whose ratio to the floor has risen above that of `earlier`."""
    width = max(len(name) for name in found)
    print(f"{'benchmark':<{width}}  {'time':>10}  {'floor':>10}  {'ratio':>7}" + ("  change" if earlier else ""))
    slower = []
    for name, value in found.items():
        if is_floor(name):
            continue
        floor = found.get(floor_name(name))
        row = f"{name:<{width}}  {human(value):>10}  "
        row += f"{human(floor):>10}  {value / floor:>6.1f}x" if floor else f"{'-':>10}  {'-':>7}"
        if floor and name in earlier:
            change = value / floor / earlier[name]
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


def kib_of(process, file, field):
    text = Path(f"/proc/{process.pid}/{file}").read_text()
    return int(re.search(rf"^{field}:\s+(\d+)", text, re.MULTILINE).group(1))


def idle_memory(program):
    """KiB of an onu-sim that has started and waits: resident, and its share (pages that other processes map as well
    count by their part). Nothing where it does not start."""
    with tempfile.TemporaryDirectory() as folder:
        command = [str(program), "--listen", "127.0.0.1:0", "--state-dir", folder, "--log-level", "4"]
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=subprocess.DEVNULL, text=True)
        try:
            if not process.stdout.readline().startswith("listening on "):
                return None
            time.sleep(0.5)
            return kib_of(process, "status", "VmRSS"), kib_of(process, "smaps_rollup", "Pss")
        finally:
            process.send_signal(signal.SIGTERM)
            process.wait(timeout=10)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", type=Path, required=True)
    parser.add_argument("--compare", type=Path)
    parser.add_argument("--filter")
    parser.add_argument("--smoke", action="store_true")
    parser.add_argument("--repeat", type=int, default=1)
    parser.add_argument("--baseline", type=Path)
    parser.add_argument("--page", type=Path)
    arguments = parser.parse_args()

    benchmarks = [one for binary in binaries(arguments.build) for one in run(binary, arguments.filter, arguments.smoke, arguments.repeat)]
    found = times(benchmarks)
    if not found:
        sys.exit("no benchmark has run")
    earlier = earlier_ratios(arguments.compare) if arguments.compare else {}
    slower = print_table(found, earlier)

    size = stripped_size(arguments.build / "lib" / "libnrvk-omci-me.so")
    simulator = arguments.build / "bin" / "onu-sim"
    starts = [idle_memory(simulator) for _ in range(STARTS)] if simulator.exists() else [None]
    memory, share = max(starts) if all(starts) else (None, None)
    print(f"stripped library: {size / 1024:.0f} KiB" if size else "stripped library: not built")
    print(f"idle onu-sim: {memory / 1024:.1f} MiB resident, {share / 1024:.1f} MiB its share" if memory
          else "idle onu-sim: did not start")
    figures = {"library_bytes": size, "idle_kib": memory, "idle_share_kib": share, "benchmarks": benchmarks}
    if not arguments.smoke:
        (arguments.build / "bench.json").write_text(json.dumps(figures, indent=1) + "\n")
    if arguments.baseline:
        kept = {name: round(ratio, 2) for name, ratio in sorted(ratios(found).items())}
        arguments.baseline.write_text(json.dumps({"ratios": kept}, indent=2) + "\n")
    if arguments.page:
        performance_page.write(arguments.page, arguments.build, found, figures)
    missing = [text for text, value in (("library", size), ("onu-sim", memory)) if not value]
    if missing:
        sys.exit(f"not measured: {', '.join(missing)}")
    if slower:
        sys.exit(f"slower than before, beside the floor: {', '.join(slower)}")


if __name__ == "__main__":
    main()
