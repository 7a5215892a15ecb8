"""Tells what the demo's folder holds: the uploaded MIB, the frames that carried it, the calls on the hardware."""

import argparse
import json
import struct
import sys
from collections import Counter
from pathlib import Path

PCAP_HEADER = 24
ETHERNET_HEADER = 14
DEVICE_ID_BASELINE = 0x0A


def entities(path):
    """The entities of a saved MIB."""
    return json.loads(path.read_text())["entities"]


def frames(path):
    """OMCI frames of a capture in classic pcap form, Ethernet header cut off."""
    data = path.read_bytes()
    order = "<" if data[:4] in (b"\xd4\xc3\xb2\xa1", b"\x4d\x3c\xb2\xa1") else ">"
    place = PCAP_HEADER
    while place + 16 <= len(data):
        length = struct.unpack_from(order + "8xI4x", data, place)[0]
        yield data[place + 16 + ETHERNET_HEADER:place + 16 + length]
        place += 16 + length


def class_name(entity):
    return str(entity.get("name") or entity["class"])


def show_mib(folder, nanoseconds):
    baseline, extended = entities(folder / "baseline.json"), entities(folder / "extended.json")
    counts = Counter((entity["class"], class_name(entity)) for entity in baseline)
    print(f"{'class':>7}  {'entities':>8}  name")
    for (number, name), count in sorted(counts.items()):
        print(f"{number:>7}  {count:>8}  {name}")
    print(f"{len(baseline)} entities of {len(counts)} classes in {nanoseconds / 1e9:.3f} s")
    total = {True: [0, 0], False: [0, 0]}
    for frame in frames(folder / "omci.pcap"):
        is_baseline = len(frame) > 3 and frame[3] == DEVICE_ID_BASELINE
        total[is_baseline][0] += 1
        total[is_baseline][1] += len(frame)
    for is_baseline, text in ((True, "baseline"), (False, "extended")):
        print(f"{text}: {total[is_baseline][0]} frames, {total[is_baseline][1]} bytes, both directions")
    if baseline != extended:
        sys.exit("the uploads in the two formats differ")
    print("both formats carry the same entities and values")


def show_hardware(folder):
    lines = [json.loads(line) for line in (folder / "hardware.jsonl").read_text().splitlines()]
    for line in lines:
        print(f"{line['n']:>8}  {line['call']}({', '.join(json.dumps(argument) for argument in line['args'])})")
    print(f"{len(lines)} calls")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("what", choices=["mib", "hardware"])
    parser.add_argument("--folder", type=Path, required=True)
    parser.add_argument("--nanoseconds", type=int, default=0, help="how long the baseline upload took")
    arguments = parser.parse_args()
    if arguments.what == "mib":
        show_mib(arguments.folder, arguments.nanoseconds)
    else:
        show_hardware(arguments.folder)


if __name__ == "__main__":
    main()
