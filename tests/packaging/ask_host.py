"""ask_host.py COMMAND...: starts the worked example of a host and unlocks a port as an OLT does.

Fails unless the answer and what the chip says are right. The frames are written out: whoever builds for another machine
wants to see octets, not what a program of the same build makes of them.
"""

import socket
import subprocess
import sys
import tempfile

SECONDS = 120
# Transaction 0x1234, set with answer, baseline; PPTP Ethernet UNI (11) 0x0101, administrative state (mask 0x0800) unlocked.
UNLOCK = bytes.fromhex("1234 48 0a 000b 0101 0800 00") + bytes(29) + bytes.fromhex("00000028 00000000")
UNLOCKED = bytes.fromhex("1234 28 0a 000b 0101 00")
# Get of the administrative state: in the answer result 0, the mask, and the value.
GET = bytes.fromhex("1235 49 0a 000b 0101 0800") + bytes(30) + bytes.fromhex("00000028 00000000")
GOT = bytes.fromhex("1235 29 0a 000b 0101 00 0800 00")


def ask(channel, request, expected):
    """The loopback loses nothing: a host that is slow under emulation answers in the end."""
    channel.send(request)
    try:
        answer = channel.recv(2048)
    except TimeoutError:
        raise SystemExit(f"no answer to {request.hex()} in {SECONDS} s") from None
    if not answer.startswith(expected):
        raise SystemExit(f"asked {request.hex()}\nexpected {expected.hex()}\ngot      {answer.hex()}")


def main(command):
    with (tempfile.TemporaryFile("w+") as log,
          subprocess.Popen(command, stdout=subprocess.PIPE, stderr=log, text=True) as host):
        try:
            first = host.stdout.readline()
            if not first.startswith("listening on "):
                raise SystemExit(f"expected 'listening on ...', got {first!r}")
            address, port = first.split()[-1].rsplit(":", 1)
            with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as channel:
                channel.settimeout(SECONDS)
                channel.connect((address, int(port)))
                ask(channel, UNLOCK, UNLOCKED)
                ask(channel, GET, GOT)
        except SystemExit:
            log.seek(0)
            sys.stderr.writelines(log.readlines()[-20:])
            raise
        finally:
            host.kill()
        said = host.stdout.read().splitlines()
    if "chip: port 0x0101 on" not in said:
        raise SystemExit(f"the chip was told nothing of port 0x0101: {said}")


if __name__ == "__main__":
    main(sys.argv[1:])
