"""What the shared library offers to its host, and what it asks of it."""

import re
import unittest

import elf
import project

# The export mark stands before a class, which offers all of it, or before a member or a variable.
CLASS = re.compile(r"^(?:class|struct)\s+(NRVK_EXPORT\s+)?(\w+)(?![\w;])[^;]*$")
EXPORTED_MEMBER = re.compile(r"^\s+NRVK_EXPORT\s.*?([~\w]+)\(")
EXPORTED_FUNCTION = re.compile(r"^NRVK_EXPORT\s.*?(\w+)\(", re.MULTILINE | re.DOTALL)
EXPORTED_VARIABLE = re.compile(r"^extern\s+NRVK_EXPORT\s.*?(\w+);")
COMPILER_MADE = ("typeinfo for ", "typeinfo name for ", "vtable for ", "VTT for ", "guard variable for ",
                 "non-virtual thunk to ", "virtual thunk to ")

HOST_CLASSES = ["OmciMe", "OmciFrame", "OmciMessage", "OmciMeFactory", "OmciMeManager", "Logger", "NorvikTimer",
                "CRC32", "HALFactory"]
RUNTIME_VERSION = re.compile(r"^(GLIBC|GLIBCXX|CXXABI|GCC)_")
# Hooks that the linker adds to every shared object and nobody has to supply.
LINKER_HOOKS = {"__gmon_start__", "_ITM_deregisterTMCloneTable", "_ITM_registerTMCloneTable"}
RUNTIME_LIBRARIES = re.compile(r"^(libstdc\+\+|libm|libgcc_s|libc|libpthread|ld-linux[\w-]*)\.so\.\d+$")


def without_prefix(name):
    for prefix in COMPILER_MADE:
        if name.startswith(prefix):
            return name[len(prefix):]
    return name


def owner(name):
    """The outermost scope of a demangled name: `OmciMe` of `OmciMe::test(OmciFrame*) const`."""
    name = without_prefix(name)
    match = re.match(r"^(?:[\w:<>,&* ]+? )??(\w+)(?:::|$)", name)
    return match.group(1) if match else name


def member(name):
    """The member's own name: `test` of `OmciMe::test(OmciFrame*) const`."""
    return re.split(r"[(<\[]", without_prefix(name).split("::", 1)[-1])[0]


def offered_by(text):
    """What a header marks: whole classes and variables by name, single members as (class, member)."""
    # Free functions stand in the library's namespace.
    found, current = {("nrvk", name) for name in EXPORTED_FUNCTION.findall(text)}, None
    for line in text.splitlines():
        if match := CLASS.match(line):
            current = match.group(2)
            if match.group(1):
                found.add(current)
        elif match := EXPORTED_VARIABLE.match(line):
            found.add(match.group(1))
        elif match := EXPORTED_MEMBER.match(line):
            found.add((current, match.group(1)))
    return found


def offered():
    return set().union(*(offered_by(header.read_text()) for header in project.public_headers()))


def offers_of(name):
    """The ways in which a header can offer this symbol: its class as a whole, or the member alone."""
    return {owner(name), (owner(name), member(name))}


class NamesOfSymbols(unittest.TestCase):
    """The parsing that the checks below rest on."""

    def test_ownerIsTheOutermostScope(self):
        self.assertEqual(owner("OmciMe::getAttribute(OmciFrame*) const"), "OmciMe")
        self.assertEqual(owner("typeinfo for OmciMe"), "OmciMe")
        self.assertEqual(owner("OmciMeFactory::getInstance()"), "OmciMeFactory")
        self.assertEqual(owner("int Registrar::update<unsigned int>(unsigned short, unsigned int)"), "Registrar")
        self.assertEqual(owner("nrvkHalPtr"), "nrvkHalPtr")
        self.assertEqual(owner("std::vector<OmciMe*, std::allocator<OmciMe*> >::_M_realloc()"), "std")
        self.assertEqual(member("OmciMe::getAttribute(OmciFrame*) const"), "getAttribute")
        self.assertEqual(member("OmciMe::~OmciMe()"), "~OmciMe")
        self.assertEqual(member("OmciMe::dumpME[abi:cxx11](unsigned int) const"), "dumpME")

    def test_marksOfAHeaderAreFound(self):
        text = ("class Forward;\nextern NRVK_EXPORT void* pointer;\nclass NRVK_EXPORT Whole\n{\n    void run();\n};\n"
                "class Part : public Base\n{\n    NRVK_EXPORT static Part* create(int id);\n    void hidden();\n};\n")
        self.assertEqual(offered_by(text), {"pointer", "Whole", ("Part", "create")})

    def test_markedFunctionsOfTheNamespaceAreFound(self):
        text = "namespace nrvk {\n\nNRVK_EXPORT int\nrun(int speed);\nNRVK_EXPORT void stop();\nvoid hidden();\n\n}\n"
        self.assertEqual(offered_by(text), {("nrvk", "run"), ("nrvk", "stop")})

    def test_versionsAreCutOff(self):
        kinds = elf.parse("                 U operator new(unsigned long)@GLIBCXX_3.4\n"
                          "                 U OmciMe::OmciMe()\n"
                          "0000000000001139 T nrvkHalPtr\n"
                          "                 w __cxa_finalize@GLIBC_2.2.5\n")
        self.assertEqual([symbol.version for symbol in kinds], ["GLIBCXX_3.4", "", "", "GLIBC_2.2.5"])
        self.assertEqual([symbol.name for symbol in kinds],
                         ["operator new(unsigned long)", "OmciMe::OmciMe()", "nrvkHalPtr", "__cxa_finalize"])


class ExportedSymbols(unittest.TestCase):
    maxDiff = 2000

    def test_onlyWhatAPublicHeaderMarksIsExported(self):
        marked = offered()
        strangers = [symbol.name for symbol in elf.exported() if not offers_of(symbol.name) & marked]
        self.assertEqual(strangers, [], "exported, but not marked NRVK_EXPORT in a public header")

    def test_everythingMarkedIsExported(self):
        present = set().union(*(offers_of(symbol.name) for symbol in elf.exported()))
        self.assertEqual(sorted(map(str, offered() - present)), [])

    def test_coreRegistrarAndHalPointerAreOffered(self):
        present = {owner(symbol.name) for symbol in elf.exported()}
        for name in ["OmciManagedEntitiesCore", "OmciManagedEntityRegistrar", "nrvkHalPtr"]:
            self.assertIn(name, present)


class UndefinedSymbols(unittest.TestCase):
    def of_the_host(self):
        return [symbol.name for symbol in elf.undefined()
                if not RUNTIME_VERSION.match(symbol.version) and symbol.name not in LINKER_HOOKS]

    def test_onlyTheHostContractAndTheRuntimeAreAskedFor(self):
        strangers = [name for name in self.of_the_host() if owner(name) not in HOST_CLASSES]
        self.assertEqual(strangers, [], "neither host contract nor C/C++ runtime")

    def test_everyMemberAskedForStandsInItsContractHeader(self):
        missing = []
        for name in self.of_the_host():
            if owner(name) in HOST_CLASSES and name == without_prefix(name):
                header = project.HOST_CONTRACT / f"{owner(name)}.h"
                if not re.search(rf"(?<!\w){re.escape(member(name))}\(", header.read_text()):
                    missing.append(name)
        self.assertEqual(missing, [])

    def test_libraryBindsToTheHostByName(self):
        names = {(owner(name), member(name)) for name in self.of_the_host()}
        for wanted in [("OmciMeFactory", "getInstance"), ("Logger", "writeToLog"), ("OmciMe", "~OmciMe")]:
            self.assertIn(wanted, names)

    @unittest.skipIf(elf.word_bits() == 64, "the plain calls are the wide ones")
    def test_filesAreReachedByTheCallsThatKnow64Bits(self):
        narrow = {"open", "openat", "fopen", "freopen", "stat", "fstat", "lstat", "statvfs", "readdir"}
        self.assertEqual([symbol.name for symbol in elf.undefined() if symbol.name in narrow], [],
                         "refuses files with large numbers; is _FILE_OFFSET_BITS=64 gone?")

    def test_onlyTheRuntimeLibrariesAreNeeded(self):
        libraries = elf.needed_libraries()
        self.assertTrue(libraries)
        self.assertEqual([name for name in libraries if not RUNTIME_LIBRARIES.match(name)], [])


class LibraryName(unittest.TestCase):
    def test_sonameCarriesTheNumberOfTheInterface(self):
        self.assertRegex(elf.soname()[0], r"^libnrvk-omci-me\.so\.\d+$")

    def test_fileIsReachableByItsPlainName(self):
        self.assertTrue(project.LIBRARY.exists(), project.LIBRARY)


if __name__ == "__main__":
    unittest.main()
