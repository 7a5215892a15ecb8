"""Runs a soak: an onu-sim, the client that sends to it and checks its answers, and an eye on what the ONU holds of the
machine. Called by scripts/soak."""

import argparse
import json
import os
import socket
import subprocess
import sys
import tempfile

# Buffers that grow to the size of the largest message, the heap's own habits. A leak of one octet a message would be
# ten times as much in a full run.
MOST_GROWTH_KIB = 1024
# Timers of a software download, a MIB upload and a reading of alarms end later than the last message.
STANDING_TIMERS = 3
START_TIMEOUT = 60


class Onu:
    """One onu-sim in a directory of its own."""

    def __init__(self, program, directory):
        self.control_path = os.path.join(directory, "control")
        self._errors = open(os.path.join(directory, "stderr"), "w+", encoding="utf-8")
        self._process = subprocess.Popen([program, "--listen", "127.0.0.1:0", "--control", self.control_path,
                                          "--log-level", "2"], stdout=subprocess.PIPE, stderr=self._errors, text=True,
                                         env=dict(os.environ, TMPDIR=directory))
        self.pid = self._process.pid
        first = self._process.stdout.readline()
        if not first.startswith("listening on "):
            raise SystemExit(f"soak: onu-sim does not start: {self.errors()}")
        self.address = first.split()[-1]

    def errors(self):
        self._errors.seek(0)
        return self._errors.read().strip()

    def ask(self, **request):
        with socket.socket(socket.AF_UNIX) as control:
            control.settimeout(START_TIMEOUT)
            control.connect(self.control_path)
            control.sendall(json.dumps(request).encode() + b"\n")
            with control.makefile() as answers:
                return json.loads(answers.readline())["result"]

    def status(self):
        """Resident memory in KiB, threads and descriptors."""
        with open(f"/proc/{self.pid}/status", encoding="ascii") as file:
            fields = dict(line.split(":", 1) for line in file)
        return {"rss_kib": int(fields["VmRSS"].split()[0]), "threads": int(fields["Threads"]),
                "descriptors": len(os.listdir(f"/proc/{self.pid}/fd"))}

    def stop(self):
        """The exit code after SIGTERM; its own when it has ended before."""
        self._process.terminate()
        code = self._process.wait(START_TIMEOUT)
        self._process.stdout.close()
        return code


def complaints(samples, timers, exit_code):
    """What is wrong with what was seen of the ONU, a line each. The first sample is taken behind the first part of the
    messages, when all buffers have been used once."""
    found = []
    first, last = samples[0], samples[-1]
    growth = last["rss_kib"] - first["rss_kib"]
    if growth > MOST_GROWTH_KIB:
        found.append(f"memory grew by {growth} KiB, from {first['rss_kib']} to {last['rss_kib']}")
    for what in ("threads", "descriptors"):
        if last[what] > first[what]:
            found.append(f"{last[what]} {what} at the end, {first[what]} at the beginning")
    if len(timers) > STANDING_TIMERS:
        found.append(f"{len(timers)} timers are running: {timers}")
    if exit_code != 0:
        found.append(f"onu-sim ended with exit code {exit_code}")
    return found


def show(progress, sample):
    rate = progress["messages"] / max(progress["seconds"], 0.001)
    print(f"{progress['messages']:>10} messages {progress['seconds']:>9.1f} s {rate:>8.0f}/s   "
          f"{sample['rss_kib']:>7} KiB  {sample['threads']} threads  {sample['descriptors']} descriptors", flush=True)


def soak(options, directory):
    onu = Onu(options.onu_sim, directory)
    samples, progress = [], {}
    client = subprocess.Popen([options.client, onu.address, str(options.messages), str(options.window),
                               str(options.seed)], stdout=subprocess.PIPE, text=True)
    try:
        for line in client.stdout:
            progress = json.loads(line)
            samples.append(onu.status())
            show(progress, samples[-1])
        found = [] if client.wait() == 0 else ["an answer was wrong, or none came; the client's last line says which"]
        timers = onu.ask(timers=True) if not found else []
        counted = onu.ask(statistics=True) if not found else None
    except (OSError, ValueError) as problem:
        client.kill()
        found, timers, counted = [f"the ONU is gone: {problem}"], [], None
    finally:
        client.wait()
        exit_code = onu.stop()
    if samples:
        found += complaints(samples, timers, exit_code)
    if counted and counted["exceptions"]:
        found.append(f"{counted['exceptions']} requests ended in an exception")
    return found, samples, progress, onu.errors()


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--messages", type=int, default=10_000_000)
    parser.add_argument("--window", type=int, default=32)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--onu-sim", required=True)
    parser.add_argument("--client", required=True)
    options = parser.parse_args()
    with tempfile.TemporaryDirectory(prefix="onu-soak-") as directory:
        found, samples, progress, errors = soak(options, directory)
    for line in found:
        print(f"soak: {line}", file=sys.stderr)
    if found:
        print(errors[-2000:], file=sys.stderr)
        return 1
    print(f"{progress['messages']} answers right; memory {samples[0]['rss_kib']} KiB first, {samples[-1]['rss_kib']} KiB "
          f"last; {progress['retransmissions']} retransmissions")
    return 0


if __name__ == "__main__":
    sys.exit(main())
