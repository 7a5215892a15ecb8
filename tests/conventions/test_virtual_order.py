"""The order of virtual operations is the binary contract: places and types against a list typed by hand."""

import unittest

import operations
import project
import vtable

DESTRUCTOR_ENTRIES = 2
APPLY = ("int", "applyConfigurationToHardwareForSet", "", False)
ERASE = ("int", "eraseConfigurationFromHardware", "", False)


class HostAndHardware(unittest.TestCase):
    def check(self, class_name, wanted, includes):
        found = vtable.places(class_name, wanted, includes)
        self.assertEqual(found, [(operation[1], place)
                                 for place, operation in enumerate(wanted, DESTRUCTOR_ENTRIES)])
        self.assertEqual(vtable.number_of_entries(class_name, includes), len(wanted) + DESTRUCTOR_ENTRIES)

    def test_omciMeHasItsFortyNineOperationsInOrder(self):
        self.assertEqual(len(operations.OMCI_ME) + 1, 49)
        self.check("OmciMe", operations.OMCI_ME, ["attributeDefinition.h", "OmciMe.h"])

    def test_hardwareInterfaceHasItsOperationsInOrder(self):
        self.assertEqual(len(operations.HARDWARE), 83)
        self.check("OmciHardwareIfc", operations.HARDWARE, ["OmciHardwareIfc.h"])

    def test_reservedPlacesCarryTheirNumber(self):
        places = vtable.places("OmciHardwareIfc", operations.HARDWARE, ["OmciHardwareIfc.h"])
        reserved = [(int(name.removeprefix("reserved")), place + 1) for name, place in places if "reserved" in name]
        self.assertEqual(len(reserved), 12)
        for number, place in reserved:
            self.assertEqual(number, place)


def hardware_binding_is_written(class_name):
    """Hooks come into the interface with the hand-written class that serves them."""
    return (project.SOURCE / "src" / "implExtended" / f"{class_name}ImplExtended.h").exists()


class ManagedEntities(unittest.TestCase):
    def check(self, class_name, is_bound, attributes):
        interface, includes = f"{class_name}If", [f"{class_name}If.h"]
        common = operations.of_managed_entity(attributes)
        wanted = [(operation[1], place) for place, operation in enumerate(common)]
        # With hardware binding the destructor stands between the two hooks, without it comes last.
        hooks = [APPLY, ERASE] if is_bound else []
        if is_bound:
            wanted += [(APPLY[1], len(common)), (ERASE[1], len(common) + 1 + DESTRUCTOR_ENTRIES)]
        self.assertEqual(vtable.places(interface, common + hooks, includes), wanted)
        self.assertEqual(vtable.number_of_entries(interface, includes),
                         len(common) + len(hooks) + DESTRUCTOR_ENTRIES)

    def test_operationsOfASampleOfClassesAreInOrder(self):
        for class_name, (has_binding, attributes) in operations.SAMPLE_CLASSES.items():
            with self.subTest(class_name):
                self.check(class_name, has_binding and hardware_binding_is_written(class_name), attributes)


if __name__ == "__main__":
    unittest.main()
