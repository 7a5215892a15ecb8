#!/usr/bin/env python3
"""Sessions in Markdown pages: what is typed and what is printed, in blocks fenced as `console`.

As a program it writes the output of each command anew: console.py --bin build/release/bin docs/tutorial.md
"""

import argparse
import os
import re
import secrets
import socket
import subprocess
import tempfile
import threading
from dataclasses import dataclass
from pathlib import Path

BLOCK = re.compile(r"^(?P<skipped><!-- replaced in the test .*-->\n)?```console\n(?P<text>.*?)^```$", re.MULTILINE | re.DOTALL)
PAGE_ADDRESS = "127.0.0.1:5000"
# What varies from run to run: times, rates, transaction ids.
VARYING = [(re.compile(pattern), name) for pattern, name in (
    (r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d+Z", "TIME"),
    (r"\b\d+\.\d+ s\b", "SECONDS"),
    (r"\b\d+\.\d+ MB/s", "RATE"),
    (r"(?<=->O(?:NU|LT)  )0x[0-9a-f]{4}", "TRANSACTION"),
)]
TIMEOUT = 120


@dataclass
class Step:
    command: str
    output: str
    line: int  # of the command in its page, from 1


def steps(text):
    """The commands of a page with their output, without the blocks that the test replaces."""
    found = []
    for block in BLOCK.finditer(text):
        if block["skipped"]:
            continue
        number = text.count("\n", 0, block.start("text")) + 1
        for offset, line in enumerate(block["text"].splitlines()):
            if line.startswith("$ "):
                found.append(Step(line[2:], "", number + offset))
            elif line.startswith("> ") and not found[-1].output:
                found[-1].command += "\n" + line[2:]
            else:
                found[-1].output += line + "\n"
    return found


def comparable(text):
    """What must be equal in each run. Blanks at the end of a line are none of a page's."""
    text = re.sub(r" +$", "", text, flags=re.MULTILINE)
    for pattern, name in VARYING:
        text = pattern.sub(name, text)
    return text


class Shell:
    """One bash, as a user's terminal: jobs, functions and the folder stay from command to command."""

    def __init__(self, programs: Path, folder: Path):
        environment = {**os.environ, "PATH": f"{programs}:{os.environ['PATH']}", "LC_ALL": "C.UTF-8"}
        self.process = subprocess.Popen(["bash", "--noprofile", "--norc"], stdin=subprocess.PIPE, cwd=folder, text=True,
                                        stdout=subprocess.PIPE, stderr=subprocess.STDOUT, env=environment,
                                        start_new_session=True)

    def run(self, command: str, timeout=TIMEOUT) -> str:
        """What the command prints. Raises TimeoutError when it does not end."""
        end = f"end-{secrets.token_hex(8)}"
        self.process.stdin.write(f"{command}\necho {end}\n")
        self.process.stdin.flush()
        timer = threading.Timer(timeout, self.kill)
        timer.start()
        output = ""
        try:
            for line in self.process.stdout:
                if line.endswith(end + "\n"):
                    return output + line.removesuffix(end + "\n")
                output += line
        finally:
            timer.cancel()
        raise TimeoutError(f"{command}\n{output}")

    def kill(self):
        """The shell and what it has started, and nothing else: they are a session of their own."""
        try:
            os.killpg(self.process.pid, 9)
        except ProcessLookupError:
            pass

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.kill()
        self.process.stdin.close()
        self.process.stdout.close()
        self.process.wait()


def free_address():
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as probe:
        probe.bind(("127.0.0.1", 0))
        return f"127.0.0.1:{probe.getsockname()[1]}"


def outputs(found, programs):
    """What each step prints now, run in a fresh folder, with the page's address in it."""
    address = free_address()
    with tempfile.TemporaryDirectory() as folder, Shell(programs.resolve(), Path(folder)) as shell:
        for step in found:
            # A busy machine gets time to answer: a message that is sent again would show in what is printed.
            command = step.command.replace(f"--connect {PAGE_ADDRESS}", f"--connect {address} --timeout 30000")
            printed = shell.run(command.replace(PAGE_ADDRESS, address))
            yield step, printed.replace(address, PAGE_ADDRESS)


def rewritten(text, programs):
    """The page with the output of each command as it is now."""
    lines = text.splitlines()
    for step, printed in reversed(list(outputs(steps(text), programs))):
        begin = step.line + step.command.count("\n")
        lines[begin:begin + step.output.count("\n")] = [line.rstrip() for line in printed.splitlines()]
    return "\n".join(lines) + "\n"


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--bin", type=Path, required=True, help="where onu-sim and omci-olt are")
    parser.add_argument("page", type=Path)
    arguments = parser.parse_args()
    arguments.page.write_text(rewritten(arguments.page.read_text(), arguments.bin))
