"""The board as an OLT sees it through the program: MIB, notifications, alarms, self-test, clock, restart."""

import collections
import json
import subprocess
import time
import unittest

from support import OltTest
from onu import Onu as Simulator

FOUR_PORTS = """[board]
t_conts = 8
ethernet_unis = 4
video_unis = 1
video_anis = 1
upstream_queues_per_t_cont = 8
downstream_queues_per_uni = 2
pots_unis = 2
"""

ETHERNET_UNIS = [0x101, 0x102, 0x103, 0x104]
T_CONTS = [0x100 + index for index in range(8)]


class BoardTest(OltTest):
    board = None

    def setUp(self):
        super().setUp()
        options = ("--board", self.write("board.ini", self.board)) if self.board else ()
        self.onu = self.enterContext(Simulator(self.directory, *options))

    def result(self, *arguments, options=()):
        return self.json_of(self.olt(self.onu, *options, "--json", *arguments))


class Mib(BoardTest):
    board = FOUR_PORTS

    def setUp(self):
        super().setUp()
        self.entities = collections.defaultdict(dict)
        for entity in self.result("mib-upload")["entities"]:
            self.entities[entity["class"]][entity["instance"]] = entity["attributes"]

    def test_counts_follow_the_board(self):
        counts = {5: 4, 6: 4, 11: 4, 53: 2, 82: 1, 90: 1, 262: 8, 264: 4, 277: 8 * 8 + 4 * 2, 278: 64}
        self.assertEqual(counts, {entity_class: len(self.entities[entity_class]) for entity_class in counts})

    def test_instances_have_their_numbers(self):
        self.assertEqual(ETHERNET_UNIS, list(self.entities[11]))
        self.assertEqual(ETHERNET_UNIS, list(self.entities[264]))
        self.assertEqual(T_CONTS, list(self.entities[262]))
        self.assertEqual([0x101 + slot for slot in range(4)], list(self.entities[5]))
        self.assertEqual(list(range(8)) + [0x8000 + index for index in range(64)], list(self.entities[277]))

    def test_upstream_queues_relate_to_their_t_cont_by_falling_priority(self):
        for index in range(64):
            self.assertEqual((0x100 + index // 8) << 16 | 7 - index % 8,
                             self.entities[277][0x8000 + index]["RelatedPort"], index)

    def test_downstream_queues_relate_to_their_port(self):
        for index in range(8):
            self.assertEqual((0x101 + index // 2) << 16 | index % 2, self.entities[277][index]["RelatedPort"], index)

    def test_slots_count_the_ports_of_the_board(self):
        self.assertEqual([4, 1, 2, 1], [slot["ExpectedPortType"] for slot in self.entities[5].values()])
        self.assertEqual([4, 1, 2, 1], [pack["NumberOfPorts"] for pack in self.entities[6].values()])
        self.assertEqual([47, 48, 32, 236], [pack["Type"] for pack in self.entities[6].values()])
        for pack in self.entities[6].values():
            self.assertEqual((8, 72), (pack["TotalTcontBufferNumber"], pack["TotalPriorityQueueNumber"]))


class PartNumber(BoardTest):
    def setUp(self):
        OltTest.setUp(self)
        factory = self.write("factory.ini", "partNo = 9100452F1V\n")
        board = self.write("board.ini", f"{FOUR_PORTS}[identity]\nfactory_file = {factory}\n")
        self.onu = self.enterContext(Simulator(self.directory, "--board", board))

    def codes(self):
        slot = self.result("get", "Cardholder", "257", "ActualPluginUnitType", "ExpectedPluginUnitType")["attributes"]
        pack = self.result("get", "CircuitPack", "257", "Type")["attributes"]
        return [*slot.values(), *pack.values()]

    def test_plugin_codes_change_with_the_next_expansion_of_the_table(self):
        self.assertEqual([47, 47, 47], self.codes())
        # The part number is known now; a table that is expanded again has the other codes.
        for entity_class in (5, 6):
            answer = self.onu.ask(call="getDefaultConfigManagedEntity", args=[entity_class, 257])
            self.assertEqual(0, answer["result"])
            picture = self.onu.ask(picture={"class": entity_class})["result"]["values"]
            self.assertEqual("2f", picture[str(257 << 16 | 0x8000)])
        self.onu.ask(call="init", args=[""])
        expanded = {record["class"]: record["values"]
                    for record in self.onu.ask(call="getManagedEntitiesCore", args=[])["out"][0]}
        self.assertEqual("31", expanded[5][str(257 << 16 | 0x8000)])
        self.assertEqual("31", expanded[5][str(257 << 16 | 0x4000)])
        self.assertEqual("31", expanded[6][str(257 << 16 | 0x8000)])


class Notifications(BoardTest):
    def watch(self, *options):
        """A running watch whose ONU has its MIB uploaded; its lines come as objects."""
        command = self.command(self.onu, *options, "--json", "watch", "--mib-upload", "--count", "3", "--for", "50")
        process = self.enterContext(subprocess.Popen(command, stdout=subprocess.PIPE, text=True))
        self.addCleanup(process.kill)
        deadline = time.monotonic() + 30
        while self.onu.ask(statistics=True)["result"]["requests"].get("get", 0) == 0:
            self.assertLess(time.monotonic(), deadline, "the watch never began")
            time.sleep(0.02)
        return process

    def alarm(self, number, state):
        self.onu.ask(alarm={"class": 263, "instance": self.ani, "number": number, "state": state})

    def assert_watch_shows_links_and_alarms(self, *options):
        self.ani = self.onu.ask(instances=True)["result"]["263"][0]
        process = self.watch(*options)
        form = "extended" if options else "baseline"
        self.onu.ask(hardware={"uni": {"258": {"oper": 1}}})
        self.alarm(0, True)
        self.onu.ask(call="updatePptpEthernetUniMEOperStateSpeedMode", args=[258, 0, 100, 1])
        change, alarm, back = [json.loads(line) for line in process.communicate(timeout=60)[0].splitlines()]
        self.assertEqual(("attribute value change", 11, 258, form, {"OperationalState": 1}),
                         tuple(change[key] for key in ("message", "class", "instance", "format", "attributes")))
        self.assertEqual(("alarm", 263, self.ani, form, 1, [0]),
                         tuple(alarm[key] for key in ("message", "class", "instance", "format", "sequence"))
                         + ([raised["number"] for raised in alarm["alarms"]],))
        self.assertEqual({"OperationalState": 0}, back["attributes"])
        listed = self.result("alarms", options=options)["entities"]
        self.assertEqual([(263, self.ani, [0])],
                         [(entity["class"], entity["instance"], [alarm["number"] for alarm in entity["alarms"]])
                          for entity in listed])
        self.alarm(0, False)
        self.assertEqual([], self.result("alarms", options=options)["entities"])

    def test_watch_shows_links_and_alarms_in_baseline_messages(self):
        self.assert_watch_shows_links_and_alarms()

    def test_watch_shows_links_and_alarms_in_extended_messages(self):
        self.assert_watch_shows_links_and_alarms("--extended")

    def test_entities_under_alarm_reporting_control_may_be_left_out(self):
        self.onu.ask(alarm={"class": 11, "instance": 257, "number": 0, "state": True})
        self.olt(self.onu, "set", "PptpEthernetUni", "257", "Arc=1")
        self.assertEqual(1, len(self.result("alarms")["entities"]))
        self.assertEqual([], self.result("alarms", "--without-arc")["entities"])


class Actions(BoardTest):
    def test_self_tests_are_shown_in_words_in_both_formats(self):
        for options in ([], ["--extended"]):
            text = self.olt(self.onu, *options, "test", "AniG", "0x401").stdout
            for words in ("supply voltage", "3.3 V", "received power", "10.0 dBu", "transmitted power", "32.0 dBu",
                          "laser bias", "12.0 mA", "temperature", "42.0 degrees C"):
                self.assertIn(words, text)
            self.assertIn("passed", self.olt(self.onu, *options, "test", "OnuG", "0").stdout)

    def test_self_test_that_fails_is_told(self):
        self.onu.ask(hardware={"self_test": "failed"})
        self.assertEqual({"self_test": "failed"}, self.result("test", "OnuG", "0")["test_result"])

    def test_time_is_set(self):
        self.olt(self.onu, "sync-time", "--time", "2031-12-31 23:59:00")
        clock = self.onu.ask(clock=True)["result"]
        self.assertTrue(clock["synchronized"])
        self.assertRegex(clock["utc"], "^(2031-12-31T23:59|2032-01-01T00:00)")

    def test_reboot_restarts_the_library_and_not_the_program(self):
        self.olt(self.onu, "set", "OnuG", "0", "BatteryBackup=1")
        self.olt(self.onu, "reboot")
        self.assertEqual({"BatteryBackup": 0}, self.result("get", "OnuG", "0", "BatteryBackup")["attributes"])
        self.assertEqual(1, self.onu.ask(system=True)["result"].count("reboot"))


if __name__ == "__main__":
    unittest.main()
