"""Tells what the demo's folder holds: the uploaded MIB, the frames that carried it, the calls on the hardware."""

import argparse
import json
import struct
import sys
from pathlib import Path

PCAP_HEADER = 24
ETHERNET_HEADER = 14
DEVICE_ID_BASELINE = 0x0A
REPORT_OF_CHANGE = "sendAttributeValueChange"


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


def show_mib(folder, nanoseconds):
    baseline, extended = entities(folder / "baseline.json"), entities(folder / "extended.json")
    print(f"{len(baseline)} entities of {len({entity['class'] for entity in baseline})} classes, "
          f"uploaded in {nanoseconds / 1e9:.2f} s")
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
    """Every call but the attribute value changes, which come in dozens when the start-up values are written."""
    lines = [json.loads(line) for line in (folder / "hardware.jsonl").read_text().splitlines()]
    others = [line for line in lines if line["call"] != REPORT_OF_CHANGE]
    for line in others:
        print(f"{line['n']:>8}  {line['call']}({', '.join(json.dumps(argument) for argument in line['args'])})")
    print(f"{len(others)} calls, and {len(lines) - len(others)} of {REPORT_OF_CHANGE}")


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
