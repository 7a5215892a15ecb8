"""Every class against the second list: what the catalogue says, what the live adapters say, and who may create."""

import json
import os
import sys
import unittest

import class_list

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "simulator"))

import onu_sim  # noqa: E402  (the path above leads to it)

CREATE, DELETE = 4, 6
SUCCESS, NOT_SUPPORTED, PARAMETER_ERROR = 0, 2, 3
# Their set-by-create attributes are refused without the bridge port or the user that they belong to.
NEED_OTHERS = {84, 139, 171}
# Above every instance that the ONU makes at its start.
INSTANCE = 0x7F01
MASKS = {"set": "set_mask", "get": "get_mask", "get-next": "get_next_mask", "create": "create_mask"}


class List(unittest.TestCase):
    """The list's own sums, so that a line that was lost shows."""

    def setUp(self):
        self.classes = class_list.read()

    def test_counts(self):
        self.assertEqual(115, len(self.classes))
        self.assertEqual(71, sum("olt" in entity.creators for entity in self.classes.values()))
        self.assertEqual(63, sum("onu" in entity.creators for entity in self.classes.values()))
        self.assertEqual(30, sum(attribute.kind == "table" for entity in self.classes.values()
                                 for attribute in entity.attributes))

    def test_olt_creates_those_with_set_by_create_attributes_and_seven_more(self):
        with_mask = {number for number, entity in self.classes.items() if entity.masks["create"]}
        self.assertEqual({number for number, entity in self.classes.items() if "olt" in entity.creators},
                         with_mask | {148, 157, 307, 340, 426, 65420, 65421})

    def test_masks_are_those_of_the_letters_but_for_four_classes(self):
        odd = set()
        for number, entity in self.classes.items():
            for kind, letter in (("set", "W"), ("get", "R"), ("get-next", "N"), ("create", "C")):
                if entity.masks[kind] != sum(attribute.mask for attribute in entity.attributes
                                             if letter in attribute.access):
                    odd.add((number, kind))
        self.assertEqual({(138, "get"), (158, "get"), (256, "get"), (332, "get")}, odd)


class Described(unittest.TestCase):
    def assert_equal_to_the_list(self, described):
        described = {entry["class"]: entry for entry in described}
        classes = class_list.read()
        self.assertEqual(list(classes), sorted(described))
        for number, entity in classes.items():
            entry = described[number]
            with self.subTest(f"class {number}, {entity.name}"):
                self.assertEqual(entity.name, entry["name"])
                self.assertEqual({kind: hex(mask) for kind, mask in entity.masks.items()},
                                 {kind: hex(entry[key]) for kind, key in MASKS.items()})
                self.assertEqual((entity.in_mib_upload, entity.in_alarm_upload, "olt" in entity.creators),
                                 (entry["mib_upload"], entry["alarm_upload"], entry["olt_creatable"]))
                self.assert_equal_attributes(entity.attributes, entry["attributes"])

    def assert_equal_attributes(self, expected, found):
        found = [attribute for attribute in found if attribute.get("has_definition", True)]
        self.assertEqual(
            [(a.name, hex(a.mask), a.size, class_list.KINDS[a.kind], a.kind == "table", a.flags) for a in expected],
            [(a["name"], hex(a["mask"]), a["size"], a["kind"], a["table"], a["flags"]) for a in found])
        for attribute, entry in zip(expected, found):
            if attribute.default_octets is not None:
                self.assertEqual(attribute.default_octets.hex(), entry["default"], attribute.name)

    def test_catalogue(self):
        with open(os.environ["CATALOGUE_JSON"], encoding="utf-8") as file:
            content = json.load(file)["classes"]
        self.assert_equal_to_the_list(content)
        self.assertEqual({number for number, entity in class_list.read().items() if "onu" in entity.creators},
                         {entry["class"] for entry in content if entry["onu_creatable"]})

    def test_live_adapters(self):
        done = onu_sim.subprocess.run([onu_sim.PROGRAM, "--describe"], capture_output=True, text=True, timeout=60,
                                      check=True)
        self.assert_equal_to_the_list(json.loads(done.stdout))


class Creation(onu_sim.OnuSimTest):
    def setUp(self):
        super().setUp()
        self.simulator = self.start()
        self.classes = class_list.read()

    def instances(self, number):
        return self.simulator.ask({"instances": True})["result"][str(number)]

    def test_olt_creates_and_deletes_what_it_may_and_nothing_else(self):
        for number, entity in self.classes.items():
            with self.subTest(f"class {number}, {entity.name}"):
                created = self.simulator.omci(CREATE, number, INSTANCE, self.valid_values(entity))[0]
                if number in NEED_OTHERS:
                    self.assertEqual(PARAMETER_ERROR, created)
                elif "olt" in entity.creators:
                    self.assertEqual(SUCCESS, created)
                    self.assertIn(INSTANCE, self.instances(number))
                    self.assertEqual(SUCCESS, self.simulator.omci(DELETE, number, INSTANCE)[0])
                else:
                    self.assertEqual(NOT_SUPPORTED, created)
                self.assertNotIn(INSTANCE, self.instances(number))

    @staticmethod
    def valid_values(entity):
        """The set-by-create attributes with their defaults, which every class takes; zeros where none is kept."""
        return b"".join(attribute.default_octets or bytes(attribute.size) for attribute in entity.attributes
                        if "C" in attribute.access)[:32]

    def test_onu_creates_and_deletes_what_it_may_and_nothing_else(self):
        for number, entity in self.classes.items():
            with self.subTest(f"class {number}, {entity.name}"):
                expected = 0 if "onu" in entity.creators else -1
                self.assertEqual(expected,
                                 self.simulator.call("createManagedEntityInstance", number, INSTANCE)["result"])
                self.assertEqual(expected == 0, INSTANCE in self.instances(number))
                self.simulator.call("deleteManagedEntityInstance", number, INSTANCE)
                self.assertNotIn(INSTANCE, self.instances(number))

    def test_olts_delete_of_the_onus_own_succeeds_and_leaves_it(self):
        for number, entity in self.classes.items():
            if entity.creators == {"olt", "onu"}:
                with self.subTest(f"class {number}, {entity.name}"):
                    self.assertEqual(0, self.simulator.call("createManagedEntityInstance", number, INSTANCE)["result"])
                    self.assertEqual(SUCCESS, self.simulator.omci(DELETE, number, INSTANCE)[0])
                    self.assertIn(INSTANCE, self.instances(number))


if __name__ == "__main__":
    unittest.main()
