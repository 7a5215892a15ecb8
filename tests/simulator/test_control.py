"""The control socket: requests, answers, refusals."""

import json
import socket
import unittest

from onu_sim import ALARM, AVC, GET, GET_CURRENT_DATA, MIB_RESET, MIB_UPLOAD, SET, TIMEOUT, OnuSimTest


class Control(OnuSimTest):
    def setUp(self):
        super().setUp()
        self.simulator = self.start()
        self.ani = self.simulator.ask({"instances": True})["result"]["263"][0]

    def ask(self, request):
        return self.simulator.ask(request)

    def get(self, entity_class, instance, attribute, **more):
        return self.ask({"get": {"class": entity_class, "instance": instance, "attribute": attribute, **more}})

    def assert_refused(self, request, *parts):
        answer = self.ask(request)
        self.assertEqual(["error"], list(answer))
        for part in parts:
            self.assertIn(part, answer["error"])

    def test_attributes_by_name_number_and_mask(self):
        self.assertEqual({"result": 0}, self.ask({"set": {"class": 2, "instance": 0, "attribute": "MibDataSync",
                                                          "bytes": "2a"}}))
        for attribute in "MibDataSync", "MIB_DATA_SYNC", "0x8000", 1, 0x8000:
            self.assertEqual({"result": 0, "bytes": "2a"}, self.get(2, 0, attribute))
        self.assertEqual({"result": -1}, self.get(2, 1, 1))

    def test_apply_runs_the_adapters_operation(self):
        self.assertEqual({"result": 0}, self.ask({"apply": {"class": 264, "instance": 0x101}}))

    def test_create_enters_a_class_without_a_row_with_its_defaults(self):
        self.assertEqual({"result": 0}, self.ask({"create": {"class": 65414, "instance": 9}}))
        self.assert_refused({"create": {"class": 65414, "instance": 9}}, "65414", "9", "exists")
        picture = self.ask({"picture": {"class": 65414}})["result"]
        self.assertEqual([9], picture["instances"])
        self.assertEqual({str(9 << 16 | mask): digits for mask, digits in
                          ((0x8000, "00"), (0x4000, "0000"), (0x2000, "00000000"), (0x1000, "00000000"),
                           (0x800, "00000000"))}, picture["values"])
        self.assertEqual([], self.simulator.hardware_calls("refreshTwdmOmciPm"))
        self.simulator.call("updateTwdmOmciStats", 9, {"intervalEndTime": 1, "omciMicErrorCount": 77})
        self.assertEqual("0000004d", self.get(65414, 9, "OmciMicErrorCount")["bytes"])
        self.assertEqual({"result": 0}, self.ask({"delete": {"class": 65414, "instance": 9}}))
        self.assertEqual([], self.ask({"instances": True})["result"]["65414"])
        self.assertEqual({"class": 65414, "instances": [], "values": {}},
                         self.ask({"picture": {"class": 65414}})["result"])
        self.assert_refused({"delete": {"class": 65414, "instance": 9}}, "does not exist")

    def test_created_instances_are_the_onus_own(self):
        self.ask({"create": {"class": 79, "instance": 5}})
        self.ask({"mib-reset": True})
        self.assertEqual([5], self.ask({"instances": True})["result"]["79"])

    def test_dump_is_the_librarys_text(self):
        text = self.ask({"dump": {"class": 2, "instance": 0, "mask": 0x8000}})["result"]
        self.assertTrue(text.startswith("OnuData(2; 0)\n-------\n"))
        every = self.ask({"dump": {"class": 262, "instance": 4294967295, "mask": 65535}})["result"]
        self.assertEqual(8, every.count("TCont(262; "))
        self.assertEqual("", self.ask({"dump": {"class": 2, "instance": 3, "mask": 0x8000}})["result"])

    def test_calls_take_records_as_objects_and_arrays(self):
        channel = 1024
        self.ask({"create": {"class": 65402, "instance": channel}})
        self.simulator.call("updateTwdmChannel", channel, [1, 1, 3, 2])
        self.assertEqual("03", self.get(65402, channel, 3)["bytes"])
        self.simulator.call("updateTwdmChannel", channel, {"downstreamWavelengthChannel": 5})
        self.assertEqual("05", self.get(65402, channel, 3)["bytes"])
        self.assertEqual("00", self.get(65402, channel, 1)["bytes"])

    def test_calls_of_several_classes_nest_their_records(self):
        for entity_class in 65408, 65409, 65410:
            self.ask({"create": {"class": entity_class, "instance": 3}})
        parts = {"a": {"ploamMicErrors": 11}, "b": {"systemProfileMessageCount": 12},
                 "c": {"upstreamPloamMessageCount": 13}}
        self.assertEqual({"result": 0}, self.simulator.call("updateTwdmPloamStats", 3, parts))
        for entity_class, value in (65408, 11), (65409, 12), (65410, 13):
            self.assertEqual(f"{value:08x}", self.get(entity_class, 3, 3)["bytes"])

    def test_calls_give_out_arguments_and_raw_bytes(self):
        self.assertEqual("001122000000",
                         self.simulator.call("incrementMacAddress", "00:11:22:ff:ff:ff", "", 1)["result"])
        self.assertEqual(16, len(self.simulator.call("updatePriorityQueue", 0)["out"]))
        self.assertEqual("16777223", self.simulator.call("updatePriorityQueue", 0)["out"][5])
        self.assertEqual(0x101, self.simulator.call("instancePptpEthernet", 0)["result"])
        self.assertEqual(0xFFFFFFFF, self.simulator.call("castToCounter32", 0x100000000)["result"])
        values = self.simulator.call("buildAttributeValueMap", 2, 7)["out"][0]
        self.assertEqual({str(7 << 16 | 0x8000): "00"}, values)
        picture = self.simulator.call("getConfigManagedEntityVector")["out"][0]
        self.assertEqual([0], next(record for record in picture if record["class"] == 2)["instances"])

    def test_registrar_operations(self):
        update = self.simulator.call("updateManagedEntity", 2, 0, 0x8000, 9)
        self.assertEqual({"result": 0}, update)
        self.assertEqual("09", self.get(2, 0, 1)["bytes"])
        self.assertEqual({"result": -1}, self.simulator.call("updateManagedEntity<unsigned char>", 2, 5, 0x8000, 9))
        self.assertEqual({"result": 0}, self.simulator.call("setManagedEntityAttribute", 2, 0, 0x8000, "0a"))
        self.assertEqual("0a", self.get(2, 0, 1)["bytes"])
        self.assertEqual({"result": -1}, self.simulator.call("createManagedEntityInstance", 268, 1))
        record = {"class": 2, "instances": [0], "values": {str(0x8000): "21"}}
        self.assertEqual({"result": 0}, self.simulator.call("updateSupportedManagedEntityAndInstance", record))
        self.assertEqual("21", self.get(2, 0, 1)["bytes"])

    def test_refusals_say_what_is_wrong(self):
        self.assert_refused(b"{nonsense", "not JSON")
        self.assert_refused(b"[]", "object")
        self.assert_refused({}, "object")
        self.assert_refused({"teapot": True}, "teapot")
        self.assert_refused({"instances": True, "system": True}, "one request")
        self.assert_refused({"instances": False}, "true")
        self.assert_refused({"call": "teapot", "args": []}, "teapot")
        self.assert_refused({"call": "castToCounter32", "args": []}, "castToCounter32", "1 arguments")
        self.assert_refused({"call": "castToCounter32", "args": [-1]}, "argument 1", "-1")
        self.assert_refused({"call": "instanceUniG", "args": [256]}, "0 to 255")
        self.assert_refused({"call": "updateTwdmChannel", "args": [1, {"teapot": 1}]}, "teapot")
        self.assert_refused({"call": "updateTwdmChannel", "args": [1, [1, 2]]}, "2 fields, not 4")
        self.assert_refused({"get": {"class": 9, "instance": 0, "attribute": 1}}, "class 9")
        self.assert_refused({"get": {"class": 2, "instance": 0}}, "lacks", "attribute")
        self.assert_refused({"get": {"class": 2, "instance": 0, "attribute": "teapot"}}, "teapot")
        self.assert_refused({"set": {"class": 2, "instance": 0, "attribute": 1, "bytes": "0"}}, "odd")
        self.assert_refused({"set": {"class": 2, "instance": 0, "attribute": 1, "bytes": "zz"}}, "hexadecimal")
        self.assert_refused({"picture": {"class": 9}}, "class 9")
        self.assert_refused({"alarm": {"class": 2, "instance": 9, "number": 0, "state": True}}, "alarm 0")
        self.assert_refused({"fail": {"call": "close"}}, "close", "pthread_create")
        self.assert_refused({"hardware": {"teapot": 1}}, "teapot")
        self.assert_refused({"hardware": {"throw": ["teapot"]}}, "teapot")
        self.assert_refused({"hardware": {"uni": {"x": {}}}}, "uni", "x")
        self.assert_refused({"show": "teapot"}, "software-download")

    def test_nothing_is_half_done_on_an_error(self):
        self.assert_refused({"hardware": {"answer_refresh": False, "delay_ms": -1}}, "delay_ms")
        before = len(self.simulator.hardware_calls())
        self.simulator.call("updateAniGOpticalSignalLevel", self.ani, 100)
        self.ask({"set": {"class": 263, "instance": self.ani, "attribute": "OpticalSignalLevel", "bytes": "0001"}})
        self.assertEqual("0064", self.get(263, self.ani, "OpticalSignalLevel")["bytes"])
        self.assertGreater(len(self.simulator.hardware_calls()), before)

    def test_refreshes_are_answered_within_the_call(self):
        self.ask({"hardware": {"ani": {str(self.ani): {"rx": -10000, "tx": 2000}}}})
        self.assertEqual("d8f0", self.get(263, self.ani, "OpticalSignalLevel")["bytes"])
        self.assertEqual("07d0", self.get(263, self.ani, "TransmitOpticalLevel")["bytes"])
        self.ask({"hardware": {"answer_refresh": False, "ani": {str(self.ani): {"rx": 5}}}})
        self.assertEqual("d8f0", self.get(263, self.ani, "OpticalSignalLevel")["bytes"])
        self.ask({"hardware": {"answer_refresh": True}})
        self.assertEqual("0005", self.get(263, self.ani, "OpticalSignalLevel")["bytes"])

    def test_hardware_that_throws_becomes_a_processing_error(self):
        self.ask({"hardware": {"throw": ["refreshAniOpticalSignalLevel"]}})
        contents = self.simulator.omci(GET, 263, self.ani, b"\x00\x40")
        self.assertEqual(1, contents[0])
        self.assertEqual(1, self.ask({"statistics": True})["result"]["exceptions"])
        self.assert_refused({"get": {"class": 263, "instance": self.ani, "attribute": "OpticalSignalLevel"}},
                            "exception")
        self.ask({"hardware": {"throw": []}})
        self.assertEqual(0, self.simulator.omci(GET, 263, self.ani, b"\x00\x40")[0])

    def test_without_the_interface_no_call_comes(self):
        self.ask({"hardware": {"interface": False}})
        before = len(self.simulator.hardware_calls())
        self.assertEqual(0, self.get(263, self.ani, "OpticalSignalLevel")["result"])
        self.assertEqual(before, len(self.simulator.hardware_calls()))
        self.ask({"hardware": {"interface": True}})
        self.get(263, self.ani, "OpticalSignalLevel")
        self.assertEqual(before + 1, len(self.simulator.hardware_calls("refreshAniOpticalSignalLevel")) + before)

    def test_alarms_and_value_changes_reach_the_olt_that_knows_the_mib(self):
        alarm = {"alarm": {"class": 263, "instance": self.ani, "number": 1, "state": True}}
        self.assertEqual({"result": 0}, self.ask(alarm))
        self.assertEqual(0, self.simulator.omci(MIB_RESET, 2, 0)[0])
        alarm["alarm"]["number"] = 2
        self.assertEqual({"result": 0}, self.ask(alarm))
        frame = self.simulator.udp.recv(2048)
        self.assertEqual((0, 0, ALARM, 0x0A), tuple(frame[:4]))
        self.assertEqual(1, frame[39])
        self.simulator.call("updateAniGOpticalSignalLevel", self.ani, 4660)
        uni = self.ask({"instances": True})["result"]["11"][0]
        self.simulator.call("updatePptpEthernetUniMEOperStateSpeedMode", uni, 0, 1000, 1)
        frame = self.simulator.udp.recv(2048)
        self.assertEqual((0, 0, AVC, 0x0A, 0, 11), tuple(frame[:6]))
        self.assertEqual(b"\x04\x00\x00", frame[8:11])

    def test_several_clients_partial_lines_and_many_lines_at_once(self):
        other = socket.socket(socket.AF_UNIX)
        other.settimeout(TIMEOUT)
        other.connect(self.simulator.control_path)
        reader = other.makefile("rb")
        request, answer = b'{"call":"instanceUniG","args":[2]}', {"result": 0x103}
        other.sendall(request[:9])
        self.assertIn("result", self.ask({"system": True}))
        other.sendall(request[9:] + b"\n" + request + b"\r\n\n" + request)
        other.shutdown(socket.SHUT_WR)
        self.assertEqual([answer] * 3, [json.loads(line) for line in reader])
        other.close()
        reader.close()

    def test_over_long_lines_are_refused_and_the_next_is_served(self):
        answer = self.ask(b'{"call":"' + b"x" * 3000000 + b'"}')
        self.assertIn("longer than", answer["error"])
        self.assertEqual({"result": 0x101}, self.simulator.call("instanceUniG", 0))

    def test_timers_are_listed(self):
        def supervision():
            return [timer for timer in self.ask({"timers": True})["result"]
                    if 50000 < timer["milliseconds_left"] <= 60000]

        self.assertEqual([], supervision())
        self.simulator.omci(MIB_UPLOAD, 2, 0)
        self.assertEqual(1, len(supervision()))
        self.assertRegex(supervision()[0]["handler"], r"^libnrvk-omci-me\.so.*\+0x[0-9a-f]+$|^[A-Za-z_]")

    def test_statistics_count_messages(self):
        self.simulator.omci(MIB_RESET, 2, 0)
        self.simulator.omci(SET, 264, 0x101, b"\x40\x00\x01")
        counted = self.ask({"statistics": True})["result"]
        self.assertEqual({"set": 1, "MIB reset": 1}, counted["requests"])
        self.assertEqual({"success": 2}, counted["results"])
        self.assertEqual(2, counted["replies"])

    def test_get_current_data_asks_with_its_own_action(self):
        uni = self.ask({"instances": True})["result"]["11"][0]
        self.simulator.omci(GET, 11, uni, b"\x04\x00")
        actions = [call["args"] for call in self.simulator.hardware_calls("getUniOperationalState")]
        self.assertEqual([9, uni], actions[-1])
        self.simulator.omci(GET_CURRENT_DATA, 11, uni, b"\x04\x00")


if __name__ == "__main__":
    unittest.main()
