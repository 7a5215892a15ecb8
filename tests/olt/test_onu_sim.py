"""The program against the simulated ONU: what it shows is what the ONU's stores hold."""

import functools
import unittest

from onu import OnuTest


def octets(value, size):
    return value[2:] if isinstance(value, str) else (value % (1 << 8 * size)).to_bytes(size, "big").hex()


class OnuSimTest(OnuTest):
    def upload(self, *options):
        return self.json_of(self.olt(self.onu, *options, "--json", "mib-upload"))["entities"]

    @functools.lru_cache(maxsize=None)
    def layout(self, entity_class):
        """Attribute name -> number and octets."""
        answer = self.json_of(self.olt(self.onu, "--json", "classes", str(entity_class)))
        return {attribute["name"]: (attribute["number"], attribute["size"]) for attribute in answer["attributes"]}

    def test_upload_equals_the_stores_in_both_formats(self):
        entities = self.upload()
        self.assertEqual(entities, self.upload("--extended"))
        self.assertGreater(len(entities), 100)
        instances = self.onu.ask(instances=True)["result"]
        for entity in entities:
            self.assertIn(entity["instance"], instances[str(entity["class"])])
            for name, value in entity["attributes"].items():
                number, size = self.layout(entity["class"])[name]
                stored = self.onu.ask(get={"class": entity["class"], "instance": entity["instance"], "attribute": number,
                                           "action": 9})
                self.assertEqual(octets(value, size), stored["bytes"], (entity["name"], entity["instance"], name))

    def test_create_set_and_delete_step_the_data_sync(self):
        self.olt(self.onu, "mib-reset")
        self.olt(self.onu, "create", "GalEthernetProfile", "1", "MaxGemPayloadSize=4095")
        self.olt(self.onu, "set", "GalEthernetProfile", "1", "MaxGemPayloadSize=2048")
        answer = self.json_of(self.olt(self.onu, "--json", "get", "GalEthernetProfile", "1"))
        self.assertEqual(answer["attributes"], {"MaxGemPayloadSize": 2048})
        self.olt(self.onu, "delete", "GalEthernetProfile", "1")
        self.olt(self.onu, "get", "GalEthernetProfile", "1", expect=1)
        answer = self.json_of(self.olt(self.onu, "--json", "get", "ONU data", "0"))
        self.assertEqual(answer["attributes"], {"MibDataSync": 3})

    def test_every_class_can_be_asked_in_both_formats(self):
        for options in ([], ["--extended"]):
            for entity in {entity["class"]: entity for entity in self.upload()}.values():
                answer = self.json_of(self.olt(self.onu, *options, "--json", "get", str(entity["class"]),
                                               str(entity["instance"])))
                # An attribute may be uploaded and yet not be readable by Get.
                both = entity["attributes"].keys() & answer["attributes"].keys()
                self.assertTrue(both, entity["name"])
                for name in both:
                    self.assertEqual(answer["attributes"][name], entity["attributes"][name], (entity["name"], name))


if __name__ == "__main__":
    unittest.main()
