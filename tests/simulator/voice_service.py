"""A phone line as an OLT provisions it, entity by entity, over frames."""

import struct

from onu_sim import CREATE, SET

POTS_PORT, SECOND_POTS_PORT = 0x301, 0x302
LARGE_STRING, NETWORK_ADDRESS, SECURITY_METHOD, TCP_UDP, IP_HOST = 157, 137, 148, 136, 134
SIP_AGENT, SIP_USER, DIAL_PLAN, MEDIA_PROFILE, VOICE_SERVICE, RTP_PROFILE = 150, 153, 145, 142, 58, 143
VOICE_CTP, POTS_UNI, LINE_STATUS = 139, 53, 141
PCMU, PCMA, G729 = 0, 8, 18


class Provisioner:
    """Sends what an OLT sends; every answer must be success."""

    def __init__(self, simulator):
        self.simulator = simulator

    def create(self, entity_class, instance, contents=b""):
        result = self.simulator.omci(CREATE, entity_class, instance, contents)[0]
        assert result == 0, (entity_class, instance, result)

    def set(self, entity_class, instance, mask, value):
        result = self.simulator.omci(SET, entity_class, instance, struct.pack(">H", mask) + value)[0]
        assert result == 0, (entity_class, instance, mask, result)

    def large_string(self, instance, text):
        self.create(LARGE_STRING, instance)
        parts = [text[at:at + 25].encode() for at in range(0, len(text), 25)]
        self.set(LARGE_STRING, instance, 0x8000, bytes([len(parts)]))
        for number, part in enumerate(parts):
            self.set(LARGE_STRING, instance, 0x4000 >> number, part.ljust(25, b"\0"))

    def network_address(self, instance, security, address):
        self.create(NETWORK_ADDRESS, instance, struct.pack(">HH", security, address))

    def credentials(self, instance, user, password, realm):
        self.create(SECURITY_METHOD, instance)
        for mask, text in ((0x4000, user), (0x2000, password), (0x1000, realm)):
            self.set(SECURITY_METHOD, instance, mask, text.encode().ljust(25, b"\0"))

    def agent(self, instance, proxy=0, outbound=0, host_part=0, registrar=0):
        self.create(SIP_AGENT, instance, struct.pack(">HHIIHH4sBBH", proxy, outbound, 0, 0, host_part, registrar,
                                                     b"\0" * 4, 0, 0, 0))

    def user(self, instance, agent, user_part=0, credentials=0, voicemail=0, dial_plan=0):
        self.create(SIP_USER, instance, struct.pack(">HHHHIHHHH", agent, user_part, credentials, voicemail, 3600,
                                                    dial_plan, 0, 0xFFFF, POTS_PORT))

    def dial_plan(self, instance, *rows):
        self.create(DIAL_PLAN, instance, struct.pack(">HHHB", len(rows), 4000, 16000, 2))
        for row in rows:
            self.set(DIAL_PLAN, instance, 0x0400, row.ljust(30, b"\0"))

    def media_profile(self, instance, codecs=(PCMA, PCMU, G729, G729), service=0, rtp=0):
        triples = b"".join(bytes([codec, 20, 0]) for codec in codecs)
        self.create(MEDIA_PROFILE, instance, struct.pack(">BH", 0, service) + triples + struct.pack(">BH", 0, rtp))

    def voice_ctp(self, instance, user, port, media):
        self.create(VOICE_CTP, instance, struct.pack(">HHHB", user, port, media, 1))

    def line(self, voice_ctp=1, port=POTS_PORT):
        """A whole line: agent 1, user 2, media profile 3."""
        self.large_string(10, "sip.example.net")
        self.large_string(11, "1001")
        self.large_string(12, "a-proxy-with-a-long-name.voice.example.net")
        self.credentials(20, "alice", "wonderland", "example.net")
        self.network_address(21, 20, 10)
        self.create(TCP_UDP, 22, struct.pack(">HBBH", 5060, 17, 0xB8, 1))
        self.agent(1, proxy=12, outbound=12, host_part=10, registrar=21)
        self.set(SIP_AGENT, 1, 0x0800, struct.pack(">H", 22))
        self.dial_plan(23, b"\x01\x01911", b"\x02\x01[2-9]xxxxxx", b"\x03\x01*xx", b"\x03\x00")
        self.user(2, 1, user_part=11, credentials=20, dial_plan=23)
        self.create(RTP_PROFILE, 24, struct.pack(">HHBBBBB", 50000, 50020, 46, 0, 0, 0, 0))
        self.media_profile(3, rtp=24)
        self.voice_ctp(voice_ctp, 2, port, 3)
