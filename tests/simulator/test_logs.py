"""The hardware log and the library log."""

import unittest

from onu_sim import GET, MIB_RESET, SET, OnuSimTest, read_lines


class Logs(OnuSimTest):
    def test_one_number_runs_through_both_logs(self):
        simulator = self.start()
        simulator.omci(MIB_RESET, 2, 0)
        hardware = [line["n"] for line in simulator.hardware_calls()]
        library = [line["n"] for line in read_lines(simulator.library_log)]
        together = sorted(hardware + library)
        self.assertGreater(len(hardware), 0)
        self.assertEqual(list(range(1, len(together) + 1)), together)

    def test_library_lines_have_their_shape(self):
        simulator = self.start()
        lines = read_lines(simulator.library_log)
        for line in lines:
            self.assertEqual(["n", "level", "function", "file", "line", "text"], list(line))
        self.assertIn(("updatingBoardParams", 3, "Model name not found \n"),
                      [(line["function"], line["level"], line["text"]) for line in lines])

    def test_lines_are_there_before_the_reply(self):
        simulator = self.start()
        uni = simulator.ask({"instances": True})["result"]["11"][0]
        for _ in range(20):
            before = len(simulator.hardware_calls("getUniOperationalState"))
            simulator.omci(GET, 11, uni, b"\x04\x00")
            self.assertEqual(before + 1, len(simulator.hardware_calls("getUniOperationalState")))

    def test_an_outer_call_is_numbered_on_entry(self):
        simulator = self.start()
        ani = simulator.ask({"instances": True})["result"]["263"][0]
        simulator.omci(GET, 263, ani, b"\x00\x40")
        refresh = simulator.hardware_calls("refreshAniOpticalSignalLevel")[-1]
        inner = [line["n"] for line in read_lines(simulator.library_log)
                 if line["function"] == "updateAniGOpticalSignalLevel"]
        self.assertLess(refresh["n"], inner[-1])

    def test_hardware_lines_have_their_shape(self):
        simulator = self.start()
        uni = simulator.ask({"instances": True})["result"]["11"][0]
        simulator.omci(SET, 11, uni, b"\x08\x00\x00")
        find = simulator.hardware_calls("findMacBridgePortByTp")[-1]
        self.assertEqual({"n": find["n"], "call": "findMacBridgePortByTp", "args": [1, uni, None]}, find)
        state = simulator.hardware_calls("setUniAdminState")[-1]
        self.assertEqual([uni, 0], state["args"])
        self.assertEqual({"administrative": 0, "operational": 1}, state["read"])

    def test_entities_are_class_and_instance(self):
        simulator = self.start()
        simulator.omci(SET, 329, 0x201, b"\x80\x00\x00")
        line = simulator.hardware_calls("provisionVeip")[-1]
        self.assertEqual([{"class": 329, "instance": 0x201}], line["args"])
        self.assertEqual({"administrative": 0, "operational": 0}, line["read"])


if __name__ == "__main__":
    unittest.main()
