"""A provisioned service as omci-olt shows it: graph, check, VLAN rules. Against onu-sim."""

import json
import os
import unittest
import xml.dom.minidom

from onu import OnuTest

SERVICE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "service.omci")


class ServiceTest(OnuTest):
    def setUp(self):
        super().setUp()
        self.olt(self.onu, "run", SERVICE)

    def graph(self, *arguments):
        return self.json_of(self.olt(self.onu, "--json", "mib-graph", *arguments))

    def test_graph_leads_from_the_port_to_the_t_cont(self):
        graph = self.graph()
        titles = [node["title"] for node in graph["nodes"]]
        self.assertTrue(all(node["state"] == "present" for node in graph["nodes"]), graph)
        joined = {(titles[edge["from"]], titles[edge["to"]], edge["label"]) for edge in graph["edges"]}
        road = [("Ethernet UNI 257", "Bridge port 1", ""), ("Bridge port 1", "Bridge 1", ""),
                ("Bridge 1", "Bridge port 2", ""), ("Bridge port 2", "Mapper 1", ""),
                ("Mapper 1", "GEM interworking TP 1", "p-bits 0, 1"), ("GEM interworking TP 1", "GEM port 1", ""),
                ("GEM port 1", "T-CONT 256", ""), ("VEIP 513", "Bridge port 3", "")]
        self.assertLessEqual(set(road), joined)
        owner = {node["title"]: titles[node["belongs_to"]] for node in graph["nodes"] if "belongs_to" in node}
        self.assertEqual(owner["VLAN filter 2"], "Bridge port 2")
        self.assertEqual(owner["VLAN tagging 1"], "Ethernet UNI 257")
        self.assertIn("Ethernet UNI 258", graph["unconnected"])

    def test_tree_shows_details_and_dangling_pointers(self):
        self.olt(self.onu, "create", "47", "9", "BridgeIdPointer=1", "TpType=1", "TpPointer=300")
        text = self.olt(self.onu, "mib-graph").stdout
        self.assertIn("GEM port 1  port-ID 1100, both directions\n", text)
        self.assertIn("VLAN filter 2  VID 100, VID 101, forward operation 16\n", text)
        self.assertIn("`- Ethernet UNI 300 (missing)\n", text)

    def test_picture_is_complete_in_itself(self):
        self.olt(self.onu, "mib-graph", "--svg", self.path("mib.svg"), "--dot", self.path("mib.dot"))
        picture = xml.dom.minidom.parse(self.path("mib.svg"))
        texts = [text.firstChild.data for text in picture.getElementsByTagName("text")]
        self.assertIn("GEM interworking TP 2", texts)
        self.assertNotIn("missing", texts)
        for attribute in ("href", "src"):
            self.assertFalse(any(element.hasAttribute(attribute) for element in picture.getElementsByTagName("*")))
        with open(self.path("mib.dot"), encoding="utf-8") as file:
            self.assertIn('label="T-CONT 256', file.read())

    def test_saved_mib_gives_the_same_graph(self):
        self.olt(self.onu, "mib-upload", "--complete", "--save", self.path("mib.json"))
        self.assertEqual(self.graph("--mib", self.path("mib.json")), self.graph())

    def test_plain_upload_leaves_mappers_open_not_missing(self):
        self.olt(self.onu, "mib-upload", "--save", self.path("mib.json"))
        states = {node["title"]: node["state"] for node in self.graph("--mib", self.path("mib.json"))["nodes"]}
        self.assertEqual(states["Mapper 1"], "not uploaded")
        done = self.olt(self.onu, "mib-check", self.path("mib.json"))
        self.assertIn("mib-upload --complete", done.stderr)

    def test_check_finds_what_a_delete_leaves_behind(self):
        self.assertIn("nothing found", self.olt(self.onu, "mib-check").stdout)
        self.olt(self.onu, "delete", "GemPortNetworkCtp", "2")
        done = self.olt(self.onu, "--json", "mib-check", expect=1)
        findings = json.loads(done.stdout)["findings"]
        self.assertEqual([(finding["class"], finding["instance"]) for finding in findings], [(266, 2)])
        self.assertIn("GemPortNetworkCtp (268) instance 2, which doesn't exist", findings[0]["text"])

    def test_broken_files_are_usage_errors(self):
        self.assertIn("isn't JSON", self.olt(self.onu, "mib-check", self.write("a", "{"), expect=2).stderr)
        self.assertIn("isn't a saved MIB", self.olt(self.onu, "mib-check", self.write("b", "{}"), expect=2).stderr)
        self.assertIn("No such file", self.olt(self.onu, "mib-graph", "--mib", "/no/such", expect=2).stderr)
        self.assertIn("No such file", self.olt(self.onu, "mib-graph", "--svg", "/no/such/x", expect=2).stderr)


class VlanTest(OnuTest):
    def setUp(self):
        super().setUp()
        self.olt(self.onu, "run", SERVICE)

    def test_fields_reach_the_onu_as_the_row(self):
        self.olt(self.onu, "set", "171", "1", "filter-inner-vid=100", "treat-inner-vid=200", "InputTpid=0x88a8")
        stored = self.onu.ask(get={"class": 171, "instance": 1, "attribute": 0x0400, "action": 9})
        self.assertEqual(stored["bytes"], "f800000080320000400f000000080644")
        answer = self.json_of(self.olt(self.onu, "--json", "get", "171", "1", "InputTpid"))
        self.assertEqual(answer["attributes"], {"InputTpid": 0x88A8})

    def test_fields_and_digits_are_the_same_row(self):
        self.olt(self.onu, "set", "171", "1", "ReceivedFrameVlanTaggingOperationTable=0xf800000080320000400f000000080644")
        text = self.olt(self.onu, "vlan", "1").stdout
        self.assertIn("single-tagged, VID 100, any priority: remove 1 tag, add VID 200 priority copied from inner\n", text)
        row = self.json_of(self.olt(self.onu, "--json", "vlan", "1"))["rows"][0]
        self.assertEqual((row["fields"]["filter-inner-vid"], row["fields"]["treat-inner-vid"]), (100, 200))

    def test_rule_is_taken_away(self):
        self.olt(self.onu, "set", "171", "1", "filter=untagged", "treat=unset")
        self.assertIn("take away the rule for: untagged\n", self.olt(self.onu, "vlan", "1").stdout)

    def test_row_in_quotes_and_filter_list(self):
        self.olt(self.onu, "--extended", "get", "84", "2")
        self.assertIn("VID 100, VID 101", self.olt(self.onu, "get", "84", "2").stdout)
        done = self.olt(self.onu, "set", "171", "1", "filter-inner-vid=5000", "treat=discard", expect=2)
        self.assertIn("filter-inner-vid=5000", done.stderr)

    def test_unknown_instance_is_refused_in_words(self):
        self.assertIn("unknown managed entity instance", self.olt(self.onu, "vlan", "7", expect=1).stderr)


if __name__ == "__main__":
    unittest.main()
