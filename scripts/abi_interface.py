#!/usr/bin/env python3
"""abi_interface.py LIBRARY HEADER_FOLDER...: a C++ source that names all of the library's public interface, for abidw.

The library's own debugging information would not do: a compiler describes a class with virtual operations only where
its virtual table is emitted, and those of the hardware interface and of the host contract are emitted in other people's
programs. So this source names each type of the public headers, and each exported symbol with the type of what it calls.
"""

import re
import subprocess
import sys
from pathlib import Path

TYPE = re.compile(r"^(class|struct)\s+(?:NRVK_EXPORT\s+)?(\w+)(?![\w;])[^;]*$", re.MULTILINE)
FUNCTION = re.compile(r"^((?:\w+::)*\w+)\((.*)\)( const)?$")
VARIABLE = re.compile(r"^(?:\w+::)*\w+$")

HEAD = """\
// What a function with these parameters gives and takes, so that a changed result is seen: no symbol tells it.
template <class... A>
struct With
{
    template <class R>
    static R (*type(R (*)(A...)))(A...);
    template <class R, class C>
    static R (*type(R (C::*)(A...)))(C*, A...);
    template <class R, class C>
    static R (*constType(R (C::*)(A...) const))(const C*, A...);
};
#define EXPORTED extern "C" __attribute__((visibility("default")))
"""


def run(*command, **options):
    return subprocess.run(command, check=True, capture_output=True, text=True, **options).stdout.splitlines()


def exported(library):
    """Mangled and plain name of each exported symbol."""
    mangled = [line.split()[0] for line in run("nm", "--dynamic", "--defined-only", "--format=posix", library)]
    return list(zip(mangled, run("c++filt", input="\n".join(mangled)), strict=True))


def is_instance(name):
    """Instances of templates, and what stands inside of functions, are the compiler's choice."""
    return "<" in name.split("(")[0] or ")::" in name


def type_of(name, templates):
    """C++ for the type of a demangled function or variable; empty for constructors, destructors and tables."""
    if VARIABLE.match(name):
        return f"decltype(&{name})"
    match = FUNCTION.match(name)
    # Where a template has the same name, C++ has no way to choose.
    if not match or match[1].split("::")[-1] in match[1].split("::")[:-1] or match[1] in templates:
        return ""
    function, parameters, const = match.groups()
    return f"decltype(With<{parameters}>::{'constType' if const else 'type'}(&{function}))"


def source(library, folders):
    headers = [header for folder in folders for header in sorted(Path(folder).glob("*.h"))]
    if not headers:
        raise SystemExit(f"abi_interface.py: no headers in {', '.join(folders)}")
    symbols = exported(library)
    if not symbols:
        raise SystemExit(f"abi_interface.py: {library} exports nothing")
    lines = [f'#include "{header.name}"' for header in headers] + ["", HEAD]
    for header in headers:
        lines += [f"EXPORTED void type_{name}({kind} {name}*) {{}}" for kind, name in TYPE.findall(header.read_text())]
    templates = {name.split("<")[0].split()[-1] for _, name in symbols if is_instance(name)}
    lines += [f"EXPORTED void symbol_{symbol}({type_of(name, templates)}) {{}}"
              for symbol, name in symbols if not is_instance(name)]
    return "\n".join(lines) + "\n"


if __name__ == "__main__":
    if len(sys.argv) < 3:
        raise SystemExit(__doc__)
    sys.stdout.write(source(sys.argv[1], sys.argv[2:]))
