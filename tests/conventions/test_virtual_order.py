"""The order of virtual operations is the binary contract: places and types against a list typed by hand."""

import unittest

import operations
import project
import vtable

DESTRUCTOR_ENTRIES = 2
APPLY = ("int", "applyConfigurationToHardwareForSet", "", False)
ERASE = ("int", "eraseConfigurationFromHardware", "", False)


class HostAndHardware(unittest.TestCase):
    WANTED = {"OmciMe": operations.OMCI_ME, "OmciHardwareIfc": operations.HARDWARE}
    INCLUDES = ["attributeDefinition.h", "OmciMe.h", "OmciHardwareIfc.h"]

    @classmethod
    def setUpClass(cls):
        cls.places = vtable.places(cls.WANTED, cls.INCLUDES)
        cls.entries = vtable.numbers_of_entries(cls.WANTED, cls.INCLUDES)

    def check(self, class_name):
        wanted = self.WANTED[class_name]
        self.assertEqual(self.places[class_name],
                         [(operation[1], place) for place, operation in enumerate(wanted, DESTRUCTOR_ENTRIES)])
        self.assertEqual(self.entries[class_name], len(wanted) + DESTRUCTOR_ENTRIES)

    def test_omciMeHasItsFortyNineOperationsInOrder(self):
        self.assertEqual(len(operations.OMCI_ME) + 1, 49)
        self.check("OmciMe")

    def test_hardwareInterfaceHasItsOperationsInOrder(self):
        self.assertEqual(len(operations.HARDWARE), 83)
        self.check("OmciHardwareIfc")

    def test_reservedPlacesCarryTheirNumber(self):
        reserved = [(int(name.removeprefix("reserved")), place + 1)
                    for name, place in self.places["OmciHardwareIfc"] if "reserved" in name]
        self.assertEqual(len(reserved), 12)
        for number, place in reserved:
            self.assertEqual(number, place)


def hardware_binding_is_written(class_name):
    """Hooks come into the interface with the hand-written class that serves them."""
    return (project.SOURCE / "src" / "implExtended" / f"{class_name}ImplExtended.h").exists()


class ManagedEntities(unittest.TestCase):
    def test_operationsOfASampleOfClassesAreInOrder(self):
        wanted, places = {}, {}
        for class_name, (has_binding, attributes) in operations.SAMPLE_CLASSES.items():
            interface = f"{class_name}If"
            wanted[interface] = operations.of_managed_entity(attributes)
            places[interface] = [(operation[1], place) for place, operation in enumerate(wanted[interface])]
            if has_binding and hardware_binding_is_written(class_name):
                # The destructor stands between the two hooks; without them it comes last.
                places[interface] += [(APPLY[1], len(wanted[interface])),
                                      (ERASE[1], len(wanted[interface]) + 1 + DESTRUCTOR_ENTRIES)]
                wanted[interface] += [APPLY, ERASE]
        includes = [f"{interface}.h" for interface in wanted]
        found = vtable.places(wanted, includes)
        entries = vtable.numbers_of_entries(wanted, includes)
        for interface in wanted:
            with self.subTest(interface):
                self.assertEqual(found[interface], places[interface])
                self.assertEqual(entries[interface], len(wanted[interface]) + DESTRUCTOR_ENTRIES)


if __name__ == "__main__":
    unittest.main()
