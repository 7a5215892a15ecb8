"""The network of a bad day between omci-olt and onu-sim: every command ends with the right result or with a clear error,
and what the ONU holds afterwards is what the commands claimed."""

import json
import os
import random
import unittest

from bad_network import BadNetwork, Plan
from demo_flow import describe_images
from onu import Onu
from support import PATIENT, OltTest

BAD_DAY = {"drop": 0.08, "delay": 0.12, "double": 0.15, "damage": 0.08}
# Attempts follow quickly, and so many of them that all of them never fail.
STUBBORN = ("--timeout", "120", "--retries", "20")
CRC, CMAC = ("--mic", "crc32"), ("--mic", "cmac:000102030405060708090a0b0c0d0e0f")
SUCCESS, UNKNOWN_INSTANCE, INSTANCE_EXISTS = 0, 5, 7
UNREACHABLE = 3


class BadDayTest(OltTest):
    mic = CRC

    def start(self, name="onu", *options):
        os.makedirs(self.path(name))
        describe_images(os.path.join(self.path(name), "state"))
        return Onu(self.path(name), *self.mic, *options)

    def through(self, network, *arguments, expect=(0,)):
        command = self.command(network, *self.mic, *arguments, options=STUBBORN)
        done = self.run_any(command)
        self.assertIn(done.returncode, expect, f"{command}\n{done.stdout}\n{done.stderr}")
        if done.returncode != 0:
            self.assertTrue((done.stderr + done.stdout).strip(), "an error without a word")
        return done

    def run_any(self, command):
        import subprocess
        return subprocess.run(command, capture_output=True, text=True, timeout=300, cwd=self.directory, check=False)

    def clean(self, onu, *arguments, expect=0):
        return self.olt(onu, *self.mic, *arguments, expect=expect)


class Gem:
    """What a GEM port network CTP of an ONU may be, as far as the answers tell: its port id, or None for no instance."""

    def __init__(self):
        self.possible = {None}

    @staticmethod
    def outcome(state, operation, value):
        """Result and next state."""
        if operation == "create":
            return (SUCCESS, value) if state is None else (INSTANCE_EXISTS, state)
        if state is None:
            return UNKNOWN_INSTANCE, None
        return SUCCESS, {"set": value, "delete": None, "get": state}[operation]

    def take(self, operation, value, answer):
        """Whether the answer can be true."""
        outcomes = {state: self.outcome(state, operation, value) for state in self.possible}
        if "error" in answer:
            # It has been run, or it has not.
            self.possible |= {state for _, state in outcomes.values()}
            return answer["exit_code"] == UNREACHABLE
        self.possible = {after for before, (result, after) in outcomes.items() if result == answer["result"]
                         and (operation != "get" or before is None or before == answer["attributes"]["PortId"])}
        return bool(self.possible)


class Provisioning(BadDayTest):
    """Creates, sets, deletes and gets of a few entities in an order that a seed decides, each against what the answers
    have told so far."""

    INSTANCES = (0x400, 0x401, 0x402)
    OPERATIONS = 60

    def operations(self, seed):
        chance = random.Random(seed)
        for _ in range(self.OPERATIONS):
            # Few values, so that an old request that runs again is a likely one.
            yield (chance.choice(("create", "set", "set", "set", "delete", "get")), chance.choice(self.INSTANCES),
                   chance.randint(1, 4))

    @staticmethod
    def line(operation, instance, value):
        attributes = {"create": f" PortId={value} Direction=3", "set": f" PortId={value}", "get": " PortId", "delete": ""}
        return f"{operation} GemPortNetworkCtp {instance}{attributes[operation]}"

    def check(self, onu, gems):
        for instance, gem in gems.items():
            answer = self.json_of(self.any_clean(onu, instance))
            self.assertTrue(gem.take("get", None, answer), (instance, gem.possible, answer))

    def any_clean(self, onu, instance):
        return self.run_any(self.command(onu, *self.mic, "--json", "get", "GemPortNetworkCtp", str(instance), "PortId",
                                         options=PATIENT))

    def run_seed(self, seed, *options):
        gems = {instance: Gem() for instance in self.INSTANCES}
        operations = list(self.operations(seed))
        script = self.write(f"{seed}.omci", "".join(self.line(*operation) + "\n" for operation in operations))
        with self.start(f"onu{seed}") as onu, BadNetwork(onu.address, Plan(**BAD_DAY), seed) as network:
            done = self.through(network, "--json", *options, "run", "--keep-going", script, expect=(0, 1, 3))
            answers = [json.loads(line) for line in done.stdout.splitlines()]
            self.assertEqual(len(operations), len(answers), done.stderr)
            for (operation, instance, value), answer in zip(operations, answers):
                self.assertTrue(gems[instance].take(operation, value, answer),
                                (seed, operation, instance, value, answer, gems[instance].possible))
            network.drain()
            self.check(onu, gems)
            self.assertTrue(all(network.counts.values()), network.counts)

    def test_baseline_messages(self):
        for seed in range(1, 6):
            with self.subTest(seed):
                self.run_seed(seed)

    def test_extended_messages(self):
        for seed in range(11, 14):
            with self.subTest(seed):
                self.run_seed(seed, "--extended")

    def test_one_program_after_the_other(self):
        """Copies of what one has sent arrive while the next one speaks."""
        gem = Gem()
        with self.start() as onu, BadNetwork(onu.address, Plan(delay=0.3, double=0.5, longest=0.6), 7) as network:
            for operation, value in [("create", 1)] + [("set", value) for value in (2, 3, 1, 2, 4, 1, 3, 2)]:
                done = self.through(network, "--json", *self.line(operation, 0x400, value).split(), expect=(0, 3))
                answer = json.loads((done.stdout + done.stderr).splitlines()[0])
                self.assertTrue(gem.take(operation, value, answer), (operation, value, answer, gem.possible))
            network.drain()
            self.check(onu, {0x400: gem})


class ProvisioningWithCmac(Provisioning):
    mic = CMAC

    def test_baseline_messages(self):
        self.run_seed(21)

    def test_extended_messages(self):
        self.run_seed(22, "--extended")


class Reading(BadDayTest):
    """What is read over a bad network is what is read over a good one."""

    COMMANDS = (("get", "OnuG", "0"), ("get", "Onu2G", "0", "EquipmentId", "VendorProductCode"),
                ("get", "PptpEthernetUni", "257"), ("vlan", "1"), ("get-next", "171", "1"), ("ip",), ("images",),
                ("voice",), ("alarms",), ("mib-check",), ("mib-graph",), ("debug", "help"), ("get", "9999", "0", "1"),
                ("get", "OnuG", "77"), ("set", "OnuG", "0", "AdministrativeState=9"))
    ROWS = ("set 171 1 filter-inner-vid=100 treat-inner-vid=200\n" "set 171 1 filter-inner-vid=101 treat-inner-vid=201\n"
            "set 171 1 filter=untagged treat-inner-vid=300\n" "set 171 1 filter-inner-vid=101 treat=unset\n")

    def test_every_command_says_the_same(self):
        rows = self.write("rows.omci", "create 171 1 AssociationType=2 AssociatedMePointer=257\n" + self.ROWS)
        with self.start() as onu:
            self.clean(onu, "run", rows)
            for seed, arguments in enumerate(self.COMMANDS, 1):
                with self.subTest(arguments), BadNetwork(onu.address, Plan(**BAD_DAY), seed) as network:
                    wanted = self.run_any(self.command(onu, *self.mic, "--json", *arguments, options=PATIENT))
                    done = self.through(network, "--json", *arguments, expect=(wanted.returncode,))
                    self.assertEqual(wanted.stdout, done.stdout)

    def test_rows_of_a_vlan_table_arrive_once_and_in_order(self):
        rows = self.write("rows.omci", self.ROWS)
        tables = []
        for name, is_bad in (("good", False), ("bad", True)):
            with self.start(name) as onu, BadNetwork(onu.address, Plan(**BAD_DAY), 3) as network:
                self.clean(onu, "create", "171", "1", "AssociationType=2", "AssociatedMePointer=257")
                self.through(network, "run", rows) if is_bad else self.clean(onu, "run", rows)
                network.drain()
                tables.append(onu.ask(vlan={"instance": 1, "what": "table"})["result"])
        self.assertEqual(2, tables[0]["count"])
        self.assertEqual(tables[0], tables[1])

    def test_an_upload_is_whole(self):
        for seed, options in ((1, ()), (2, ("--extended",)), (3, ("--extended",))):
            with self.subTest(seed), self.start(f"onu{seed}") as onu, \
                    BadNetwork(onu.address, Plan(**BAD_DAY), seed) as network:
                saved = self.path(f"{seed}.json")
                self.through(network, *options, "mib-upload", "--save", saved)
                network.drain()
                self.clean(onu, "mib-diff", saved, "--ignore", "Onu2G.SysupTime")

    def test_a_self_test_reports_or_says_that_it_did_not(self):
        with self.start() as onu, BadNetwork(onu.address, Plan(**BAD_DAY), 5) as network:
            for _ in range(5):
                done = self.through(network, "test", "OnuG", "0", "--wait", "2", expect=(0, 3))
                self.assertTrue(done.returncode == UNREACHABLE or "passed" in done.stdout, done.stdout)


class Download(BadDayTest):
    OCTETS = 150_000

    def test_an_image_arrives_whole_or_the_download_says_why_not(self):
        image = random.Random(1).randbytes(self.OCTETS)
        with open(self.path("image.bin"), "wb") as file:
            file.write(image)
        arrived = 0
        for seed, window in ((1, 4), (2, 16), (3, 64)):
            with self.subTest(seed), self.start(f"onu{seed}") as onu, \
                    BadNetwork(onu.address, Plan(drop=0.02, delay=0.02, double=0.05, damage=0.02), seed) as network:
                done = self.through(network, "--extended", "download", "image.bin", "--instance", "1", "--window",
                                    str(window), "--poll", "0.1", expect=(0, 1, 3))
                network.drain()
                if done.returncode == 0:
                    with open(os.path.join(self.path(f"onu{seed}"), "state/opt/addons/images/app2.sef"), "rb") as file:
                        self.assertEqual(image, file.read())
                    arrived += 1
        self.assertGreater(arrived, 0)


class Silence(BadDayTest):
    """Requests arrive and no answer comes back: nothing is claimed, and the next command finds out."""

    def test_a_lost_answer_is_no_success_and_no_refusal(self):
        with self.start() as onu:
            with BadNetwork(onu.address, Plan(drop=1.0, answers_only=True), 1) as network:
                done = self.run_any(self.command(network, *self.mic, "create", "GemPortNetworkCtp", "1", "PortId=7",
                                                 options=("--timeout", "100", "--retries", "3")))
                self.assertEqual(UNREACHABLE, done.returncode)
                self.assertIn("no answer to create after 4 attempts of 100 ms", done.stderr)
            # It has run once, whatever came after it.
            self.assertEqual(1, self.json_of(self.clean(onu, "--json", "get", "OnuData", "0"))["attributes"]["MibDataSync"])
            self.clean(onu, "create", "GemPortNetworkCtp", "1", "PortId=7", expect=1)

    def test_nothing_but_rubbish_comes_back(self):
        with self.start() as onu, BadNetwork(onu.address, Plan(damage=1.0, answers_only=True), 1) as network:
            done = self.run_any(self.command(network, *self.mic, "get", "OnuG", "0",
                                             options=("--timeout", "100", "--retries", "3")))
            self.assertEqual(UNREACHABLE, done.returncode)
            self.assertIn("dropped", done.stderr)

    def test_damaged_requests_reach_nobody(self):
        with self.start() as onu:
            with BadNetwork(onu.address, Plan(damage=1.0), 1) as network:
                done = self.run_any(self.command(network, *self.mic, "mib-reset",
                                                 options=("--timeout", "100", "--retries", "3")))
                self.assertEqual(UNREACHABLE, done.returncode)
            counted = onu.ask(statistics=True)["result"]
            self.assertEqual({}, {name: count for name, count in counted["requests"].items() if count})


if __name__ == "__main__":
    unittest.main()
