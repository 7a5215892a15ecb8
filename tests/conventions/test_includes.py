"""No include runs against the direction of the rooms."""

import unittest

import rooms


class Includes(unittest.TestCase):
    def test_runInTheDirectionOfTheRooms(self):
        files = rooms.sources()
        self.assertGreater(len(files), 15)
        self.assertEqual(rooms.offences(files, rooms.codec_stems()), [])

    def test_generatorNeedsNothingBesideItsTemplateLibrary(self):
        self.assertEqual(rooms.python_offences(), [])


class Table(unittest.TestCase):
    """The check itself finds what it must."""

    FILES = {
        "publicapi/omci_host/OmciMe.h": "#include <list>\n",
        "publicapi/ont_omci_managed_entity/Registrar.h": '#include "OmciMe.h"\n',
        "src/Startup.h": "",
        "src/impl/Store.h": "",
        "src/implExtended/Rules.h": "",
        "host/FrameCodec.h": "",
        "host/Dispatcher.h": '#include "host/FrameCodec.h"\n',
    }

    def offences(self, path, text):
        return rooms.offences({**self.FILES, path: text}, {"FrameCodec"})

    def test_theRoomsAsTheyStandAreInOrder(self):
        self.assertEqual(rooms.offences(self.FILES, {"FrameCodec"}), [])

    def test_hostMayNotReachIntoTheLibrary(self):
        self.assertEqual(len(self.offences("host/Host.h", '#include "impl/Store.h"\n')), 1)

    def test_publicHeadersMayNotReachIntoTheLibrary(self):
        self.assertEqual(len(self.offences("publicapi/omci_host/Bad.h", '#include "Registrar.h"\n')), 1)

    def test_storeMayNotKnowTheBehaviour(self):
        self.assertEqual(len(self.offences("src/impl/Bad.h", '  #  include "implExtended/Rules.h"\n')), 1)

    def test_behaviourMayNotKnowTheSourcesOfTheRegistrar(self):
        self.assertEqual(len(self.offences("src/implExtended/Bad.h", '#include "Startup.h"\n')), 1)

    def test_oltSharesTheCodecOnly(self):
        self.assertEqual(self.offences("olt/Session.h", '#include "FrameCodec.h"\n'), [])
        self.assertEqual(len(self.offences("olt/Session.h", '#include "Dispatcher.h"\n')), 1)
        self.assertEqual(len(self.offences("olt/Session.h", '#include "OmciMe.h"\n')), 1)

    def test_librariesOfOthersStayInTheirRooms(self):
        self.assertEqual(self.offences("simulator/Main.cpp", "#include <CLI/CLI.hpp>\n"), [])
        self.assertEqual(len(self.offences("src/impl/Bad.h", "#include <spdlog/spdlog.h>\n")), 1)

    def test_unknownFileAndUnknownRoomAreNamed(self):
        self.assertEqual(len(self.offences("host/Host.h", '#include "Nowhere.h"\n')), 1)
        self.assertEqual(len(self.offences("src/attic/Old.h", "")), 1)


if __name__ == "__main__":
    unittest.main()
