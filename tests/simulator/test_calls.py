"""Every public operation of the core and of the registrar can be called over the control socket."""

import os
import pathlib
import re
import unittest

from onu_sim import OnuSimTest

HEADERS = pathlib.Path(os.environ.get("PUBLIC_API", pathlib.Path(__file__).parents[2] / "publicapi")
                       ) / "ont_omci_managed_entity"

# How the object comes and goes, and what only C++ can hold; the interface goes by {"hardware":{"interface":...}}.
NOT_CALLED = {"OmciManagedEntitiesCore": set(),
              "OmciManagedEntityRegistrar": {"getInstance", "deleteInstance", "setOmciHardwareIfc",
                                             "getOmciHardwareIfc", "getMutex"}}

# More arguments than any operation takes, so that each is refused before it runs.
TOO_MANY = ["?"] * 30


def public_operations(class_name):
    """Names of the public operations that a header declares, constructors and destructor apart."""
    text = (HEADERS / f"{class_name}.h").read_text(encoding="utf-8")
    text = re.sub(r"//.*", "", text)
    body = text[text.index("public:"):text.index("private:")]
    found = set(re.findall(r"\b(\w+)\s*\([^;{}]*\)\s*(?:const)?\s*[;{]", body))
    return {name for name in found if name != class_name}


class Calls(OnuSimTest):
    def setUp(self):
        super().setUp()
        self.simulator = self.start()

    def test_every_public_operation_is_there(self):
        for class_name, excepted in NOT_CALLED.items():
            operations = public_operations(class_name)
            self.assertTrue(excepted <= operations, class_name)
            self.assertGreater(len(operations), 15)
            for name in sorted(operations - excepted):
                with self.subTest(f"{class_name}::{name}"):
                    error = self.simulator.call(name, *TOO_MANY)["error"]
                    self.assertNotIn("there is no operation", error)
                    self.assertTrue(error.startswith(name + ": takes"), error)

    def test_update_of_one_value_takes_each_type(self):
        for name in ("unsigned char", "unsigned short", "unsigned int", "unsigned long long", "bool", "std::string"):
            error = self.simulator.call(f"updateManagedEntity<{name}>", *TOO_MANY)["error"]
            self.assertIn("takes 4 arguments", error)

    def test_operations_run_as_they_are_called(self):
        cases = (("findAndUpdate", [262, 8], 262), ("getDefaultConfigManagedEntitySize", [], 88),
                 ("isCodePoint49ReportingRequired", [], False), ("castToCounter32", [1 << 40], 0xFFFFFFFF),
                 ("incrementMacAddress", ["00:11:22:ff:ff:ff", "", 1], "001122000000"),
                 ("updateOnu2GME", [], 0), ("updateIpHostConfigDataMEs", [], 0),
                 ("updateTWDMDownstreamWaveLength", [2], 0),
                 ("updateIpHostConfigDataMEs_CurrentIpAddress", ["10.0.0.2", "", ""], 0),
                 ("updateFlexibleConfigurationStatusPortalOperState", [1, 1], -1),
                 ("swapManagedEntityInstanceId", [134, 0, 7], 0),
                 ("unregisterManagedEntity", [65300], 0), ("registerManagedEntity", [65300], 0))
        for name, arguments, result in cases:
            with self.subTest(name):
                self.assertEqual(result, self.simulator.call(name, *arguments).get("result"))

    def test_every_status_report_takes_its_record_by_name_and_by_order(self):
        line = {"VoipCodecUsed": 8, "VoipVoiceServerStatus": 1, "VoipPortSessionType": 2, "VoipLineState": 3,
                "EmergencyCallStatus": 1}
        self.assertEqual(0, self.simulator.call("updateVoipLineStatus", 769, line).get("result"))
        stored = self.simulator.ask({"picture": {"class": 141}})["result"]["values"]
        self.assertEqual("0008", stored[str(769 << 16 | 0x8000)])
        self.assertEqual(0, self.simulator.call("updatePptpPotsUniAttributes", 769, list(range(13))).get("result"))
        stored = self.simulator.ask({"picture": {"class": 53}})["result"]["values"]
        self.assertEqual("0c", stored[str(769 << 16 | 0x8)])
        config = {"AvailableSignallingProtocols": 5}
        self.assertEqual(0, self.simulator.call("updateVoipConfigData", 0, config).get("result"))
        self.assertEqual(0, self.simulator.call("updateTwdmChannel", 1024, [1, 1, 2, 3]).get("result"))


if __name__ == "__main__":
    unittest.main()
