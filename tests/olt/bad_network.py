"""A UDP road between omci-olt and onu-sim that loses, delays, doubles, reorders and damages datagrams, by a plan that a
seed decides."""

import heapq
import itertools
import random
import select
import socket
import threading
import time


class Plan:
    """What happens to how large a share of the datagrams of each direction. `longest` is a delay in seconds; what is
    delayed arrives behind what was sent later."""

    def __init__(self, drop=0.0, delay=0.0, double=0.0, damage=0.0, longest=0.25, answers_only=False):
        self.shares = {"drop": drop, "delay": delay, "double": double, "damage": damage}
        self.longest = longest
        self.answers_only = answers_only


class BadNetwork:
    """Each address that speaks to it has a socket of its own towards the ONU, so that the ONU tells them apart."""

    def __init__(self, onu_address, plan, seed):
        host, port = onu_address.rsplit(":", 1)
        self._onu = (host, int(port))
        self._plan = plan
        self._random = random.Random(seed)
        self._listening = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self._listening.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 4 << 20)
        self._listening.bind(("127.0.0.1", 0))
        self.address = f"127.0.0.1:{self._listening.getsockname()[1]}"
        self._by_client, self._client_of = {}, {}
        self._waiting, self._order = [], itertools.count()
        self.counts = dict.fromkeys(["passed", *plan.shares], 0)
        self._is_ending = False
        self._thread = threading.Thread(target=self._run)

    def __enter__(self):
        self._thread.start()
        return self

    def __exit__(self, *_):
        self._is_ending = True
        self._thread.join()
        for road in [self._listening, *self._client_of]:
            road.close()

    def drain(self):
        """Until everything that is on its way has arrived, and been answered."""
        quiet = 0
        while quiet < 10:
            quiet = quiet + 1 if not self._waiting else 0
            time.sleep(0.02)

    def _happens(self, what):
        happens = self._random.random() < self._plan.shares[what]
        self.counts[what] += happens
        return happens

    def _damaged(self, datagram):
        octets = bytearray(datagram)
        for _ in range(self._random.randint(1, 3)):
            octets[self._random.randrange(len(octets))] ^= 1 << self._random.randrange(8)
        return bytes(octets[:self._random.randint(1, len(octets))] if self._random.random() < 0.2 else octets)

    def _later(self, send):
        due = time.monotonic() + self._random.uniform(0.01, self._plan.longest)
        heapq.heappush(self._waiting, (due, next(self._order), send))

    def _pass_on(self, datagram, send, is_answer):
        self.counts["passed"] += 1
        if self._plan.answers_only and not is_answer:
            send(datagram)
            return
        if self._happens("drop"):
            return
        if self._happens("damage"):
            damaged = self._damaged(datagram)
            datagram = damaged if damaged != datagram else b""
        if self._happens("double"):
            self._later(lambda: send(datagram))
        if self._happens("delay"):
            self._later(lambda: send(datagram))
        else:
            send(datagram)

    def _road_of(self, client):
        if client not in self._by_client:
            road = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
            road.connect(self._onu)
            self._by_client[client] = road
            self._client_of[road] = client
        return self._by_client[client]

    def _receive(self, road):
        try:
            if road is self._listening:
                datagram, client = road.recvfrom(65536)
                self._pass_on(datagram, self._road_of(client).send, is_answer=False)
            else:
                client = self._client_of[road]
                self._pass_on(road.recv(65536), lambda octets: self._listening.sendto(octets, client), is_answer=True)
        except ConnectionRefusedError:
            pass  # a peer that has ended

    def _run(self):
        while not self._is_ending:
            wait = min(max(self._waiting[0][0] - time.monotonic(), 0), 0.05) if self._waiting else 0.05
            for road in select.select([self._listening, *self._client_of], [], [], wait)[0]:
                self._receive(road)
            while self._waiting and self._waiting[0][0] <= time.monotonic():
                send = heapq.heappop(self._waiting)[2]
                try:
                    send()
                except ConnectionRefusedError:
                    pass
