"""Phone lines and IP hosts as the OLT's side shows them."""

import json
import struct
import unittest

from fake_onu import FakeOnu, bit
from omci_wire import GET, build
from support import OltTest

POTS, VOICE_CTP, LINE_STATUS, USER, AGENT = 53, 139, 141, 153, 150
MEDIA, VOICE_SERVICE, RTP, DIAL_PLAN, TCP_UDP = 142, 58, 143, 145, 136
NETWORK_ADDRESS, SECURITY, LARGE_STRING, IP_HOST = 137, 148, 157, 134
PORT = 0x301


def u16(number):
    return struct.pack(">H", number)


def add_string(onu, instance, text):
    parts = [text[at:at + 25].encode() for at in range(0, len(text), 25)]
    onu.add(LARGE_STRING, instance, {1: bytes([len(parts)]), **dict(enumerate(parts, 2))})


def add_line(onu):
    """Line 1 of user 2, agent 3 and media profile 4 on the first POTS port."""
    onu.add(2, 0)
    onu.add(POTS, PORT, {1: b"\0", 9: b"\0", 10: b"\1"})
    onu.add(LINE_STATUS, PORT, {1: u16(8), 2: b"\2", 3: b"\1", 8: b"\6"})
    add_string(onu, 10, "voice.example.net")
    add_string(onu, 11, "1001")
    add_string(onu, 12, "a-proxy-with-a-long-name.voice.example.net")
    onu.add(SECURITY, 20, {2: b"alice-has-a-long-name-of-", 3: b"wonderland", 4: b"example.net", 5: b"two-parts"})
    onu.add(NETWORK_ADDRESS, 21, {1: u16(20), 2: u16(12)})
    onu.add(IP_HOST, 1, {1: b"\x09", 9: bytes([10, 0, 0, 9])})
    onu.add(TCP_UDP, 22, {1: u16(5060), 2: b"\x11", 3: b"\xb8", 4: u16(1)})
    onu.add(AGENT, 3, {1: u16(12), 2: u16(12), 5: u16(22), 6: struct.pack(">I", 3600), 7: struct.pack(">I", 360),
                       8: u16(10), 10: u16(21)})
    onu.add(DIAL_PLAN, 23, {3: u16(4000), 4: u16(16000), 5: b"\2"})
    onu.add(USER, 2, {1: u16(3), 2: u16(11), 3: b"Kitchen", 4: u16(20), 5: u16(21), 7: u16(23)})
    onu.add(VOICE_SERVICE, 24, {2: u16(20), 3: u16(60), 4: b"\1"})
    onu.add(RTP, 25, {1: u16(50000), 2: u16(50019), 3: b"\x2e"})
    onu.add(MEDIA, 4, {1: b"\1", 2: u16(24), 3: b"\x08", 4: b"\x14", 6: b"\0", 7: b"\x14", 8: b"\1", 9: b"\x12",
                       10: b"\x1e", 12: b"\x04", 13: b"\x1e", 15: b"\1", 16: u16(25)})
    onu.add(VOICE_CTP, 1, {1: u16(2), 2: u16(PORT), 3: u16(4), 4: b"\1"})


class VoiceTest(OltTest):
    def line(self, onu, *arguments):
        return self.json_of(self.olt(onu, "--json", "voice", "1", *arguments))

    def test_line_has_everything_that_it_points_at(self):
        for options in ((), ("--extended",)):
            with self.subTest(options), FakeOnu() as onu:
                add_line(onu)
                line = self.line(onu, *options)
                self.assertEqual(("voice", 1, "loop start", "sip:1001@voice.example.net", []),
                                 tuple(line[key] for key in ("command", "voice_ctp", "signalling",
                                                             "address_of_record", "dangling")))
                self.assertEqual({"instance": PORT, "administrative": 0, "operational": 0, "hook": 1},
                                 line["pots_port"])
                self.assertEqual({"server": "in session", "line": "connected", "session": "two-way", "codec": "PCMA",
                                  "emergency": False}, line["status"])
                user, agent, media = line["user"], line["agent"], line["media"]
                self.assertEqual((2, "1001", "Kitchen"), (user["instance"], user["user_part"], user["display_name"]))
                self.assertEqual("a-proxy-with-a-long-name.voice.example.net", user["voicemail"]["address"])
                self.assertEqual({"instance": 23, "format": "NCS", "critical_timeout_ms": 4000,
                                  "partial_timeout_ms": 16000, "table_size": 0}, user["dial_plan"])
                self.assertEqual("a-proxy-with-a-long-name.voice.example.net", agent["proxy"])
                self.assertEqual("voice.example.net", agent["host_part"])
                self.assertEqual({"instance": 22, "protocol": "UDP", "port": 5060, "tos": 184, "ip_host": 1,
                                  "address": "10.0.0.9"}, agent["transport"])
                self.assertEqual(["PCMA", "PCMU", "G729", "G723"], [codec["codec"] for codec in media["codecs"]])
                self.assertEqual([20, 20, 30, 30], [codec["packet_period_ms"] for codec in media["codecs"]])
                self.assertEqual([False, True, False, False],
                                 [codec["silence_suppression"] for codec in media["codecs"]])
                self.assertEqual(("T.38", True, 60, 50019), (media["fax"], media["out_of_band_dtmf"],
                                                             media["voice_service"]["jitter_buffer_max_ms"],
                                                             media["rtp"]["local_port_max"]))

    def test_text_names_codecs_and_states(self):
        with FakeOnu() as onu:
            add_line(onu)
            text = self.olt(onu, "voice", "1").stdout
            for part in ("VoipVoiceCTP (139) instance 1", "769: unlocked, enabled, off hook, loop start",
                         "in session; connected; session two-way; codec PCMA", "sip:1001@voice.example.net",
                         "2: user part 1001, display name Kitchen", "UDP port 5060, TOS 184, IP host 1 at 10.0.0.9",
                         "PCMA 20 ms; PCMU 20 ms with silence suppression; G729 30 ms; G723 30 ms",
                         "25: local ports 50000 to 50019, DSCP 46"):
                self.assertIn(part, text)

    def test_passwords_are_hidden_unless_asked_for(self):
        with FakeOnu() as onu:
            add_line(onu)
            hidden = self.olt(onu, "voice", "1").stdout
            self.assertIn("alice-has-a-long-name-of-two-parts, realm example.net, password hidden", hidden)
            self.assertNotIn("wonderland", hidden)
            self.assertNotIn("wonderland", json.dumps(self.line(onu)))
            shown = self.olt(onu, "voice", "1", "--show-secrets").stdout
            self.assertIn("password wonderland", shown)
            self.assertNotIn("hidden", shown)
            self.assertEqual("wonderland", self.line(onu, "--show-secrets")["user"]["credentials"]["password"])

    def test_dangling_pointers_are_shown_and_the_rest_too(self):
        with FakeOnu() as onu:
            add_line(onu)
            for key in ((LARGE_STRING, 11), (SECURITY, 20), (IP_HOST, 1), (RTP, 25), (POTS, PORT)):
                del onu.mib[key]
            line = self.line(onu)
            self.assertEqual(["VoipVoiceCTP 1 PptpPointer -> PptpPotsUni 769",
                              "SipUserData 2 UserPartAor -> LargeString 11",
                              "SipUserData 2 UsernameAndPassword -> AuthenticationSecurityMethod 20",
                              "NetworkAddress 21 SecurityPointer -> AuthenticationSecurityMethod 20",
                              "TcpUdpConfigData 22 IpHostPointer -> IpHostConfigData 1",
                              "VoipMediaProfile 4 RtpProfilePointer -> RTPProfileData 25"], line["dangling"])
            self.assertEqual((None, None, None), (line["pots_port"], line["status"], line["address_of_record"]))
            self.assertIn("Dangling", self.olt(onu, "voice", "1").stdout)

    def test_pointers_to_nothing_are_not_dangling(self):
        with FakeOnu() as onu:
            onu.add(VOICE_CTP, 1, {1: u16(0), 2: u16(0xFFFF), 3: u16(0)})
            line = self.line(onu)
            self.assertEqual(([], None, None, None), tuple(line[key] for key in ("dangling", "user", "agent", "media")))
            self.assertIn("SIP user", self.olt(onu, "voice", "1").stdout)

    def test_numbers_beyond_the_standard_are_unknown(self):
        with FakeOnu() as onu:
            add_line(onu)
            onu.mib[MEDIA, 4][2] = b"\xfe"
            onu.mib[LINE_STATUS, PORT][0] = u16(0x1234)
            line = self.line(onu)
            self.assertEqual(("unknown", "unknown"), (line["media"]["codecs"][0]["codec"], line["status"]["codec"]))

    def test_missing_line_is_a_refusal(self):
        with FakeOnu() as onu:
            onu.add(VOICE_CTP, 1)
            self.assertIn("unknown managed entity instance", self.olt(onu, "voice", "7", expect=1).stderr)
            self.assertEqual(5, self.json_of(self.olt(onu, "--json", "voice", "7", expect=1))["result"])

    def test_wrong_instances_are_usage_errors(self):
        with FakeOnu() as onu:
            for arguments in (["70000"], ["kitchen"], ["1", "2"], ["--search", "65536"]):
                self.olt(onu, "voice", *arguments, expect=2)
            self.assertEqual([], onu.requests)

    def test_all_lines_are_found_and_ports_without_one_named(self):
        with FakeOnu() as onu:
            add_line(onu)
            onu.add(POTS, PORT + 1)
            onu.add(POTS, PORT + 2)
            onu.add(VOICE_CTP, PORT + 2, {2: u16(PORT + 2)})
            onu.add(VOICE_CTP, 300, {2: u16(PORT + 1)})
            lines = [json.loads(line) for line in
                     self.olt(onu, "--json", "voice", "--search", "40").stdout.splitlines()]
            self.assertEqual([1, PORT + 2, None], [line["voice_ctp"] for line in lines])
            self.assertEqual({"instance": PORT + 1}, lines[2]["pots_port"])
            self.assertIn("POTS port 770: no VoIP voice CTP found",
                          self.olt(onu, "voice", "--search", "40").stdout)
            lines = self.olt(onu, "--json", "voice", "--search", "300").stdout.splitlines()
            self.assertEqual([1, 300, PORT + 2], [json.loads(line)["voice_ctp"] for line in lines])

    def test_entities_are_read_once(self):
        with FakeOnu() as onu:
            add_line(onu)
            self.line(onu)
            reads = [(frame.entity_class, frame.instance, frame.contents[:2]) for frame in onu.requests
                     if frame.type == GET]
            self.assertEqual(len(reads), len(set(reads)))

    def test_refusal_in_the_middle_is_no_line(self):
        with FakeOnu() as onu:
            add_line(onu)
            answer = onu._execute
            onu._execute = lambda frame: b"\6" if frame.entity_class == AGENT else answer(frame)
            done = self.olt(onu, "voice", "1", expect=1)
            self.assertIn("get SipAgentConfigData (150) instance 3 (0x0003): device busy", done.stderr)

    def test_attributes_that_the_onu_lacks_are_left_out(self):
        with FakeOnu() as onu:
            add_line(onu)
            answer = onu._execute

            def without_hook(frame):
                contents = answer(frame)
                if frame.entity_class == POTS and frame.type == GET:
                    mask = struct.unpack(">H", frame.contents[:2])[0] & ~bit(10)
                    kept = answer(type("Request", (), {**vars(frame), "contents": u16(mask), "extended": False}))
                    return b"\x09" + kept[1:28] + u16(bit(10)) + kept[30:]
                return contents

            onu._execute = without_hook
            self.assertEqual(None, self.line(onu)["pots_port"]["hook"])


class IpTest(OltTest):
    def test_hosts_with_options_in_words_and_addresses(self):
        for options in ((), ("--extended",)):
            with self.subTest(options), FakeOnu() as onu:
                onu.add(2, 0)
                onu.add(IP_HOST, 0, {1: b"\x0b", 2: bytes.fromhex("0011223344aa"), 9: bytes([192, 0, 2, 10]),
                                     15: b"onu-1"})
                onu.add(IP_HOST, 1, {4: bytes([10, 0, 0, 9])})
                text = self.olt(onu, *options, "ip").stdout
                for part in ("IpHostConfigData (134) instance 0", "11 (IP stack, DHCP, ping)", "00:11:22:33:44:aa",
                             "192.0.2.10", '"onu-1"', "IpHostConfigData (134) instance 1", "0 (none)", "10.0.0.9"):
                    self.assertIn(part, text)
                hosts = [json.loads(line) for line in self.olt(onu, *options, "--json", "ip").stdout.splitlines()]
                self.assertEqual(["IP stack, DHCP, ping", "none"], [host["options"] for host in hosts])
                self.assertEqual("192.0.2.10", hosts[0]["attributes"]["CurrentAddress"])
                self.assertEqual((0, 1), (hosts[0]["instance"], hosts[1]["instance"]))

    def test_onu_without_ip_hosts(self):
        with FakeOnu() as onu:
            onu.add(2, 0)
            self.assertEqual("no IP hosts\n", self.olt(onu, "ip").stdout)

    def test_host_that_is_gone_is_a_refusal(self):
        with FakeOnu() as onu:
            onu.add(2, 0)
            onu.add(IP_HOST, 0)
            onu.road = lambda number, reply: [(0, self.refused(onu, reply))]
            self.assertIn("unknown managed entity instance", self.olt(onu, "ip", expect=1).stderr)

    @staticmethod
    def refused(onu, reply):
        frame = onu.requests[-1]
        if frame.type != GET:
            return reply
        return build(frame.transaction, 0x20, GET, frame.device, frame.entity_class, frame.instance, b"\5")


if __name__ == "__main__":
    unittest.main()
