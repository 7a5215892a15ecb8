"""Phone lines of the simulated hardware."""

import struct
import unittest

from onu_sim import DELETE, GET, MIB_RESET, OnuSimTest
from voice_service import (G729, LARGE_STRING, LINE_STATUS, MEDIA_PROFILE, POTS_PORT, POTS_UNI, SECOND_POTS_PORT,
                           SIP_AGENT, SIP_USER, VOICE_CTP, Provisioner)

NOT_CONFIGURED, REGISTERED, IN_SESSION = 13, 1, 2


class VoiceTest(OnuSimTest):
    def setUp(self):
        super().setUp()
        self.simulator = self.start()
        self.olt = Provisioner(self.simulator)

    def port(self, number=POTS_PORT):
        return next(entry for entry in self.simulator.ask({"lines": True})["result"] if entry["port"] == number)

    def line(self):
        return self.port()["line"]

    def hardware(self, **settings):
        self.assertEqual({"result": 0}, self.simulator.ask({"hardware": settings}))

    def phone(self, **settings):
        self.hardware(pots={str(POTS_PORT): settings})

    def status(self, port=POTS_PORT):
        """Codec, server, session, line state and emergency, as the OLT reads them."""
        contents = self.simulator.omci(GET, LINE_STATUS, port, b"\xe1\x80")
        self.assertEqual(0, contents[0])
        return struct.unpack(">HBBBB", contents[3:9])

    def hook(self, port=POTS_PORT):
        contents = self.simulator.omci(GET, POTS_UNI, port, b"\x00\x40")
        self.assertEqual(0, contents[0])
        return contents[3]

    def refused(self, request, *parts):
        answer = self.simulator.ask(request)
        self.assertEqual(["error"], list(answer))
        for part in parts:
            self.assertIn(part, answer["error"])


class Lines(VoiceTest):
    def test_every_pots_port_is_there_without_a_line(self):
        ports = self.simulator.ask({"lines": True})["result"]
        self.assertEqual([POTS_PORT, SECOND_POTS_PORT], [port["port"] for port in ports])
        self.assertEqual([None, None], [port["line"] for port in ports])

    def test_line_is_resolved_through_pointers_and_strings(self):
        self.olt.line()
        line = self.line()
        self.assertEqual((1, POTS_PORT, "sip:1001@sip.example.net", "loop start", True, []),
                         tuple(line[key] for key in ("voice_ctp", "pots_port", "address_of_record", "signalling",
                                                     "registered", "dangling")))
        self.assertEqual("1001", line["user"]["user_part"])
        self.assertEqual({"instance": 20, "user": "alice", "realm": "example.net", "has_password": True},
                         line["user"]["credentials"])
        agent = line["agent"]
        self.assertEqual("a-proxy-with-a-long-name.voice.example.net", agent["proxy"])
        self.assertEqual("sip.example.net", agent["registrar"]["address"])
        self.assertEqual("alice", agent["registrar"]["credentials"]["user"])
        self.assertEqual({"instance": 22, "protocol": "UDP", "port": 5060, "tos": 0xB8, "ip_host": 1},
                         agent["transport"])
        self.assertEqual(["PCMA", "PCMU", "G729", "G729"], [codec["codec"] for codec in line["media"]["codecs"]])
        self.assertEqual((50000, 50020, 46), tuple(line["media"]["rtp"][key] for key in
                                                   ("local_port_min", "local_port_max", "dscp")))

    def test_rows_of_the_dial_plan_add_and_remove_tokens(self):
        self.olt.line()
        plan = self.line()["user"]["dial_plan"]
        # The row that would remove token 3 ends at its zero action byte, which is that action.
        self.assertEqual({"1": "911", "2": "[2-9]xxxxxx"}, plan["tokens"])
        self.assertEqual(("NCS", 4000, 16000), tuple(plan[key] for key in ("format", "critical_timeout_ms",
                                                                           "partial_timeout_ms")))

    def test_password_reaches_neither_log_nor_answer(self):
        self.olt.line()
        self.assertNotIn("wonderland", str(self.simulator.ask({"lines": True})))
        self.assertNotIn("wonderland", str(self.simulator.hardware_calls()))

    def test_hardware_log_has_what_the_call_read(self):
        self.olt.line()
        call = self.simulator.hardware_calls("provisionVoipVoiceCtp")[-1]
        self.assertEqual([{"class": VOICE_CTP, "instance": 1}], call["args"])
        self.assertEqual("sip:1001@sip.example.net", call["read"]["line"]["address_of_record"])
        self.olt.set(SIP_AGENT, 1, 0x0400, struct.pack(">I", 1800))
        call = self.simulator.hardware_calls("provisionSipAgent")[-1]
        self.assertEqual((1800, [1]), (call["read"]["agent"]["registration_s"], call["read"]["voice_ctps"]))

    def test_line_is_read_anew_on_each_provisioning_call_and_on_no_other(self):
        self.olt.line()
        self.olt.set(LARGE_STRING, 11, 0x4000, b"1002".ljust(25, b"\0"))
        self.assertEqual("sip:1001@sip.example.net", self.line()["address_of_record"])
        self.olt.set(VOICE_CTP, 1, 0x1000, b"\x01")
        self.assertEqual("sip:1002@sip.example.net", self.line()["address_of_record"])
        self.olt.set(LARGE_STRING, 11, 0x4000, b"1003".ljust(25, b"\0"))
        self.olt.set(SIP_AGENT, 1, 0x0400, struct.pack(">I", 1800))
        self.assertEqual("sip:1003@sip.example.net", self.line()["address_of_record"])

    def test_dangling_pointers_are_listed_and_not_followed(self):
        self.olt.agent(1, proxy=71, outbound=0xFFFF, host_part=72, registrar=73)
        self.olt.user(2, 1, user_part=74, credentials=75, voicemail=76, dial_plan=77)
        self.olt.media_profile(3, service=78, rtp=79)
        self.olt.voice_ctp(1, 2, POTS_PORT, 3)
        self.assertEqual(["SipUserData 2 NetworkDialPlanPointer -> NetworkDialPlanTable 77",
                          "SipUserData 2 UserPartAor -> LargeString 74",
                          "SipUserData 2 UsernameAndPassword -> AuthenticationSecurityMethod 75",
                          "SipUserData 2 VoicemailServerSipUri -> NetworkAddress 76",
                          "SipAgentConfigData 1 ProxyServerAddressPointer -> LargeString 71",
                          "SipAgentConfigData 1 SipRegistrar -> NetworkAddress 73",
                          "SipAgentConfigData 1 HostPartUri -> LargeString 72",
                          "VoipMediaProfile 3 VoiceServiceProfilePointer -> VoiceServiceProfile 78",
                          "VoipMediaProfile 3 RtpProfilePointer -> RTPProfileData 79"], self.line()["dangling"])

    def test_voice_ctp_that_leads_nowhere_is_a_line_without_a_port(self):
        self.olt.voice_ctp(7, 81, 82, 83)
        entry = self.simulator.ask({"lines": True})["result"][-1]
        self.assertEqual(None, entry["port"])
        self.assertEqual(["VoipVoiceCTP 7 PptpPointer -> PptpPotsUni 82",
                          "VoipVoiceCTP 7 UserProtocolPointer -> SipUserData 81",
                          "VoipVoiceCTP 7 VoipMediaProfilePointer -> VoipMediaProfile 83"], entry["line"]["dangling"])
        self.assertFalse(entry["line"]["registered"])

    def test_second_line_of_a_port_is_shown_without_the_port(self):
        self.olt.line()
        self.olt.voice_ctp(5, 2, POTS_PORT, 3)
        entries = self.simulator.ask({"lines": True})["result"]
        self.assertEqual([(POTS_PORT, 1), (SECOND_POTS_PORT, None), (None, 5)],
                         [(entry["port"], entry["line"] and entry["line"]["voice_ctp"]) for entry in entries])

    def test_large_string_with_a_wrong_number_of_parts_is_read_to_its_end(self):
        self.olt.line()
        self.olt.set(LARGE_STRING, 11, 0x8000, b"\xff")
        self.olt.set(VOICE_CTP, 1, 0x1000, b"\x01")
        self.assertEqual("1001", self.line()["user"]["user_part"])

    def test_delete_of_user_or_media_profile_takes_the_line_down(self):
        for entity_class, instance in ((SIP_USER, 2), (MEDIA_PROFILE, 3)):
            with self.subTest(entity_class):
                self.simulator.omci(MIB_RESET, 2, 0)
                self.olt.line()
                self.assertEqual(REGISTERED, self.status()[1])
                self.simulator.omci(DELETE, entity_class, instance)
                self.assertIsNone(self.line())
                self.assertEqual(NOT_CONFIGURED, self.status()[1])

    def test_delete_of_the_voice_ctp_leaves_the_line(self):
        self.olt.line()
        self.simulator.omci(DELETE, VOICE_CTP, 1)
        self.assertEqual("sip:1001@sip.example.net", self.line()["address_of_record"])

    def test_delete_of_the_agent_ends_the_registration(self):
        self.olt.line()
        self.simulator.omci(DELETE, SIP_AGENT, 1)
        self.assertFalse(self.line()["registered"])
        self.assertEqual(0, self.status()[1])

    def test_mib_reset_and_reboot_take_all_lines_down(self):
        for request in ({"mib-reset": True}, {"reboot": True}):
            with self.subTest(request):
                self.olt.line()
                self.olt.voice_ctp(7, 81, 82, 83)
                self.assertEqual({"result": 0}, self.simulator.ask(request))
                entries = self.simulator.ask({"lines": True})["result"]
                self.assertEqual([None, None], [entry["line"] for entry in entries])

    def test_wrong_question_is_refused(self):
        self.refused({"lines": 1}, "lines")


class Phones(VoiceTest):
    def test_hook_and_call_reach_the_olt_on_refresh(self):
        self.olt.line()
        self.assertEqual((0, REGISTERED, 0, 0, 0), self.status())
        steps = [({"hook": 1}, 1, (0, REGISTERED, 0, 1, 0)),
                 ({"call": "dialling"}, 1, (0, REGISTERED, 0, 2, 0)),
                 ({"call": "ringback"}, 1, (0, REGISTERED, 0, 4, 0)),
                 ({"call": "connected"}, 1, (8, IN_SESSION, 1, 6, 0)),
                 ({"emergency": True}, 1, (8, IN_SESSION, 1, 6, 1)),
                 ({"session": 3}, 1, (8, IN_SESSION, 3, 6, 1)),
                 ({"hook": 0, "emergency": False}, 0, (0, REGISTERED, 3, 0, 0))]
        for settings, hook, status in steps:
            with self.subTest(settings):
                self.phone(**settings)
                self.assertEqual((hook, status), (self.hook(), self.status()))

    def test_lifting_the_receiver_of_a_ringing_phone_takes_the_call(self):
        self.olt.line()
        self.phone(call="ringing")
        self.assertEqual((0, 3), (self.hook(), self.status()[3]))
        self.phone(hook=1)
        self.assertEqual((1, 6), (self.hook(), self.status()[3]))
        self.assertEqual("connected", self.port()["call"])
        self.phone(hook=1)
        self.assertEqual(6, self.status()[3])

    def test_codec_of_a_call_is_the_first_choice_of_the_media_profile(self):
        self.olt.line()
        self.olt.set(MEDIA_PROFILE, 3, 0x2000, bytes([G729]))
        self.olt.set(VOICE_CTP, 1, 0x1000, b"\x01")
        self.phone(call="connected")
        self.assertEqual(G729, self.status()[0])

    def test_phone_without_a_line_is_not_configured(self):
        self.phone(hook=1)
        self.assertEqual((0, NOT_CONFIGURED, 0, 1, 0), self.status())

    def test_ports_are_apart(self):
        self.olt.line()
        self.phone(call="connected")
        self.assertEqual((0, (0, 0, 0, 0, 0)), (self.hook(SECOND_POTS_PORT), self.status(SECOND_POTS_PORT)))

    def test_operational_state_and_server_status_as_told(self):
        self.phone(oper=0, server=5)
        self.assertEqual(0, self.simulator.omci(GET, POTS_UNI, POTS_PORT, b"\x00\x80")[3])
        self.assertEqual(5, self.status()[1])

    def test_what_an_update_entry_reports_stands_until_the_phone_moves(self):
        self.olt.line()
        self.phone(call="connected")
        self.simulator.call("updateVoipLineStatus", POTS_PORT,
                            {"VoipCodecUsed": 9, "VoipVoiceServerStatus": 7, "VoipLineState": 8})
        self.simulator.call("updatePptpPotsUniCallAttributes", POTS_PORT, {"OperationalState": 1, "HookState": 0})
        self.assertEqual((0, (9, 7, 0, 8, 0)), (self.hook(), self.status()))
        self.phone(hook=1)
        self.assertEqual((1, (8, IN_SESSION, 1, 6, 0)), (self.hook(), self.status()))

    def test_unanswered_refresh_leaves_the_last_value(self):
        self.olt.line()
        self.phone(call="connected")
        self.assertEqual(1, self.hook())
        self.hardware(answer_refresh=False)
        self.phone(hook=0)
        self.assertEqual(1, self.hook())

    def test_wrong_settings_are_refused_and_change_nothing(self):
        self.phone(call="ringing")
        for settings, *parts in (({"call": "shouting"}, "shouting", "ringback"), ({"hook": 2}, "hook"),
                                 ({"hook": 1, "call": "idle"}, "on the hook"),
                                 ({"hook": 0, "call": "connected"}, "off the hook"), ({"session": 6}, "session"),
                                 ({"server": 16}, "server"), ({"oper": -1}, "oper"), ({"bell": 1}, "bell", "hook"),
                                 ({"emergency": "no"}, "emergency"), ([], "object")):
            with self.subTest(settings):
                self.refused({"hardware": {"pots": {str(POTS_PORT): settings}}}, *parts)
        self.refused({"hardware": {"pots": {"kitchen": {}}}}, "kitchen")
        self.assertEqual("ringing", self.port()["call"])


if __name__ == "__main__":
    unittest.main()
