"""The example of two SIP lines, run as its page says, in both formats."""

import json
import os
import unittest

from support import OltTest
from onu import Onu as Simulator

EXAMPLE = os.path.join(os.path.dirname(__file__), "..", "..", "docs", "examples", "voice")


class LoggedSimulator(Simulator):
    def __init__(self, directory):
        self.hardware_log = os.path.join(directory, "hardware.jsonl")
        super().__init__(directory, "--hardware-log", self.hardware_log)

    def calls(self):
        """The calls after those of the MIB reset, without their numbers."""
        with open(self.hardware_log, encoding="utf-8") as file:
            calls = [json.loads(line) for line in file]
        reset = max(at for at, call in enumerate(calls) if call["call"] == "resetDataPathConfiguration")
        return [{key: value for key, value in call.items() if key != "n"} for call in calls[reset + 1:]]


def expected_calls():
    with open(os.path.join(EXAMPLE, "two-lines.hardware.jsonl"), encoding="utf-8") as file:
        return [json.loads(line) for line in file]


class VoiceExampleTest(OltTest):
    def setUp(self):
        super().setUp()
        self.onu = self.enterContext(LoggedSimulator(self.directory))

    def provision(self, *options):
        self.olt(self.onu, *options, "run", os.path.join(EXAMPLE, "two-lines.omci"))

    def lines(self, *options):
        done = self.olt(self.onu, *options, "--json", "voice")
        return [json.loads(line) for line in done.stdout.splitlines()]

    def check(self, *options):
        self.provision(*options)
        self.assertEqual(expected_calls(), self.onu.calls())
        lines = self.lines(*options)
        self.assertEqual(["sip:1001@voice.example.net", "sip:1002@voice.example.net"],
                         [line["address_of_record"] for line in lines])
        for line, name in zip(lines, ("Kitchen", "Office")):
            self.assertEqual([], line["dangling"])
            self.assertEqual(name, line["user"]["display_name"])
            self.assertEqual("registered", line["status"]["server"])
            self.assertEqual("192.0.2.10", line["agent"]["transport"]["address"])
            self.assertEqual(["PCMA", "PCMU", "G729", "G729"], [codec["codec"] for codec in line["media"]["codecs"]])

    def test_baseline_messages_lead_to_the_expected_hardware_calls(self):
        self.check()

    def test_extended_messages_lead_to_the_same_calls(self):
        self.check("--extended")

    def test_it_can_be_provisioned_again(self):
        self.provision()
        self.provision()
        # The MIB reset has switched the IP stack off, which the first bridge port brings to light: more value changes.
        def provisioning(calls):
            return [call for call in calls if call["call"] != "sendAttributeValueChange"]

        self.assertEqual(provisioning(expected_calls()), provisioning(self.onu.calls()))

    def test_onu_and_olt_see_the_same_lines(self):
        self.provision()
        for seen, line in zip(self.onu.ask(lines=True)["result"], self.lines()):
            served = seen["line"]
            for key in ("voice_ctp", "address_of_record", "signalling", "dangling"):
                self.assertEqual(served[key], line[key])
            self.assertEqual(served["media"], line["media"])
            self.assertEqual(served["agent"]["proxy"], line["agent"]["proxy"])
            self.assertEqual(served["user"]["credentials"], line["user"]["credentials"])

    def test_call_shows_in_the_line_status(self):
        self.provision()
        self.assertEqual({"result": 0}, self.onu.ask(hardware={"pots": {"770": {"call": "connected"}}}))
        first, second = self.lines()
        self.assertEqual(("idle, on hook", "connected"), (first["status"]["line"], second["status"]["line"]))
        self.assertEqual(("none", "two-way", "PCMA"),
                         (first["status"]["session"], second["status"]["session"], second["status"]["codec"]))
        self.assertEqual((0, 1), (first["pots_port"]["hook"], second["pots_port"]["hook"]))

    def test_passwords_come_from_the_onu_only_when_asked_for(self):
        self.provision()
        self.assertNotIn("wonderland", self.olt(self.onu, "voice").stdout)
        self.assertIn("wonderland", self.olt(self.onu, "voice", "1", "--show-secrets").stdout)

    def test_ip_hosts_show_the_address_from_dhcp(self):
        self.provision()
        for options in ((), ("--extended",)):
            hosts = [json.loads(line) for line in self.olt(self.onu, *options, "--json", "ip").stdout.splitlines()]
            self.assertEqual([("192.0.2.10", "IP stack, DHCP"), ("0.0.0.0", "none")],
                             [(host["attributes"]["CurrentAddress"], host["options"]) for host in hosts])

    def test_texts_of_all_lengths_go_to_the_onu_and_back(self):
        for entity_class in ("LargeString", "OctetString"):
            self.olt(self.onu, "create", entity_class, "9")
            for options in ((), ("--extended",)):
                for length in (375, 26, 25, 1, 0):
                    text = ("abcdefghijklmnopqrstuvw" * 17)[:length]
                    self.olt(self.onu, *options, "set", entity_class, "9", "Text=" + text)
                    answer = self.json_of(self.olt(self.onu, *options, "--json", "get", entity_class, "9"))
                    self.assertEqual(text, answer["text"])

    def test_refused_codec_names_its_attribute_and_changes_nothing(self):
        self.provision()
        done = self.olt(self.onu, "set", "VoipMediaProfile", "1", "CodecSelectionFirstOrder=19", expect=1)
        self.assertIn("failed: CodecSelectionFirstOrder", done.stderr)
        self.assertEqual("PCMA", self.lines()[0]["media"]["codecs"][0]["codec"])

    def test_deleted_user_is_dangling_for_the_olt_and_no_line_for_the_onu(self):
        self.provision()
        self.olt(self.onu, "delete", "SipUserData", "1")
        self.assertEqual(["VoipVoiceCTP 1 UserProtocolPointer -> SipUserData 1"], self.lines()[0]["dangling"])
        self.assertIsNone(self.onu.ask(lines=True)["result"][0]["line"])


if __name__ == "__main__":
    unittest.main()
