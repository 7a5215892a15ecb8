"""Place and type of virtual operations, as the compiler lays them out.

A pointer to a virtual member function holds its place in the table of virtual operations (Itanium C++ ABI: the offset in
bytes plus one). A sample takes such a pointer to every operation, cast to the type that is promised, and prints the
places; a wrong type does not compile. It refers to headers alone and links with nothing.
"""

import re
import tempfile
from pathlib import Path

import project

_PROLOGUE = """
#include <cstdint>
#include <cstdio>
#include <cstring>
{includes}

template <typename Pointer>
void show(const char* name, Pointer pointer)
{{
    std::uintptr_t word = 0;
    std::memcpy(&word, &pointer, sizeof word);
    std::printf("%s %zu\\n", name, static_cast<std::size_t>((word - 1) / sizeof(void*)));
}}

int main()
{{
"""


def _statement(class_name, operation):
    result, name, parameters, constness = operation
    kind = f"{result} ({class_name}::*)({parameters}){' const' if constness else ''}"
    return f'    show("{class_name} {name}", static_cast<{kind}>(&{class_name}::{name}));\n'


def places(classes, includes):
    """`classes`: class name -> operations. Gives class name -> [(operation's name, place)].

    A place counts from 0, the two entries of a destructor included.
    """
    text = _PROLOGUE.format(includes="\n".join(f'#include "{name}"' for name in includes))
    for class_name, operations in classes.items():
        text += "".join(_statement(class_name, operation) for operation in operations)
    with tempfile.TemporaryDirectory() as folder:
        source, program = Path(folder) / "places.cpp", Path(folder) / "places"
        source.write_text(text + "}\n")
        project.run([project.COMPILER, "-std=c++17", "-w", *project.include_options(), source, "-o", program])
        lines = project.run([program]).splitlines()
    found = {class_name: [] for class_name in classes}
    for class_name, name, place in (line.split() for line in lines):
        found[class_name].append((name, int(place)))
    return found


def numbers_of_entries(class_names, includes):
    """Class name -> entries of its table of virtual operations, as the compiler's dump of the classes counts them."""
    with tempfile.TemporaryDirectory() as folder:
        source = Path(folder) / "dump.cpp"
        source.write_text("".join(f'#include "{name}"\n' for name in includes))
        project.run([project.COMPILER, "-std=c++17", "-w", "-fsyntax-only", "-fdump-lang-class",
                     *project.include_options(), source], cwd=folder)
        dump = next(Path(folder).glob("*.class")).read_text()
    found = {}
    for class_name in class_names:
        match = re.search(rf"^Vtable for {re.escape(class_name)}\n.*: (\d+) entries$", dump, re.MULTILINE)
        assert match, f"no table of virtual operations of {class_name} in the compiler's dump"
        # Offset to top and type information come before the operations.
        found[class_name] = int(match.group(1)) - 2
    return found
