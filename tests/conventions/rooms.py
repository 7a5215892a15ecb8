"""The rooms of the tree, and which room may include which."""

import re
import sys
from pathlib import PurePosixPath

import project

CODEC = "host/codec"
HOST_HEADERS = "publicapi/omci_host"
LIBRARY_HEADERS = "publicapi/ont_omci_managed_entity"
PUBLIC = {HOST_HEADERS, LIBRARY_HEADERS}
SRC = {"src", "src/impl", "src/adapter", "src/implExtended", "src/adapterExtended"}
ANY = None

# No arrow runs upwards. A room may always include itself.
MAY_INCLUDE = {
    "catalogue": set(),
    "generator": set(),
    HOST_HEADERS: set(),
    LIBRARY_HEADERS: {HOST_HEADERS},
    "src/impl": PUBLIC,
    "src/adapter": PUBLIC | {"src/impl"},
    "src/implExtended": PUBLIC | {"src/impl"},
    "src/adapterExtended": PUBLIC | {"src/adapter", "src/impl"},
    "src": PUBLIC | SRC,
    CODEC: {HOST_HEADERS},
    "host": PUBLIC | {CODEC},
    "capture": {CODEC},
    "simulator": PUBLIC | {"host", CODEC, "capture"},
    "olt": {CODEC, "capture"},
    "docs": PUBLIC | {"host", CODEC},
    "tests": ANY,
    "bench": ANY,
    "fuzz": ANY,
}

# Libraries of others that a room may use, by the first part of the header's path; what is not named is the language's
# own or the operating system's.
THIRD_PARTY = {"SimpleIni.h", "spdlog", "fmt", "CLI", "nlohmann", "pcap", "pcap.h", "openssl", "gtest", "gmock",
               "benchmark"}
MAY_USE = {
    HOST_HEADERS: set(),
    LIBRARY_HEADERS: set(),
    "src": {"SimpleIni.h"},
    "src/impl": set(),
    "src/adapter": set(),
    "src/implExtended": set(),
    "src/adapterExtended": {"SimpleIni.h"},
    CODEC: {"openssl"},
    "host": {"spdlog", "fmt", "openssl"},
    "capture": {"pcap", "pcap.h"},
    "simulator": {"SimpleIni.h", "spdlog", "fmt", "CLI", "nlohmann"},
    "olt": {"CLI", "nlohmann"},
}

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]+)[>"]', re.MULTILINE)
CODEC_TARGET = re.compile(r"add_library\(\s*nrvk_omci_codec\b([^)]*)\)")


def codec_stems():
    """Names, without suffix, of the files of the frame codec, which the host shares with the OLT's side.

    Its sources as the build lists them, and those headers without a source of their own that they include.
    """
    folder = project.SOURCE / "host"
    found = CODEC_TARGET.search((folder / "CMakeLists.txt").read_text())
    stems = {PurePosixPath(word).stem for word in found.group(1).split() if word.endswith(".cpp")} if found else set()
    for stem in sorted(stems):
        for path in (folder / f"{stem}.cpp", folder / f"{stem}.h"):
            if path.exists():
                stems |= {PurePosixPath(include).stem for _, include in INCLUDE.findall(path.read_text())
                          if (folder / include).is_file() and not (folder / include).with_suffix(".cpp").exists()}
    return stems


def room_of(path, codec=frozenset()):
    """The room of a path relative to the tree (or to the generated tree, which mirrors it)."""
    path = PurePosixPath(path)
    if path.parts[0] == "host" and path.stem in codec:
        return CODEC
    room = max((room for room in MAY_INCLUDE if path.is_relative_to(room)), key=len, default=None)
    # Sources of src/ proper stand in src/ itself; a folder that the table does not know is no room.
    if room == "src" and len(path.parts) > 2:
        return None
    return room


def sources():
    """Relative path -> text of each C++ file of the tree and of the generated tree."""
    found = {}
    for path in project.tracked_files():
        if path.suffix in (".h", ".cpp", ".hpp"):
            found[path.relative_to(project.SOURCE).as_posix()] = path.read_text()
    if project.GENERATED.is_dir():
        for path in sorted(project.GENERATED.rglob("*")):
            if path.suffix in (".h", ".cpp"):
                found[path.relative_to(project.GENERATED).as_posix()] = path.read_text()
    return found


def by_name(paths):
    """File name -> the paths that end in it."""
    index = {}
    for path in paths:
        index.setdefault(PurePosixPath(path).name, []).append(path)
    return index


def targets(include, includer, index):
    """Paths that a quoted include can mean: the includer's own neighbour, else each file whose path ends like it."""
    neighbour = PurePosixPath(includer).parent / include
    candidates = index.get(neighbour.name, [])
    if neighbour.as_posix() in candidates:
        return [neighbour.as_posix()]
    return [path for path in candidates if path == include or path.endswith("/" + include)]


def offences(files, codec=frozenset()):
    """One line for each include that breaks the table."""
    index, lines = by_name(files), []
    for path, text in files.items():
        room = room_of(path, codec)
        if room is None:
            lines.append(f"{path}: stands in no room")
            continue
        for mark, include in INCLUDE.findall(text):
            lines += complaints(path, room, mark, include, index, codec)
    return lines


def complaints(path, room, mark, include, index, codec):
    allowed = MAY_INCLUDE[room]
    if allowed is ANY:
        return []
    first = include.split("/")[0]
    if mark == "<" or first in THIRD_PARTY:
        foreign = first in THIRD_PARTY and first not in MAY_USE.get(room, set())
        return [f"{path}: {room} may not use <{include}>"] if foreign else []
    rooms = {room_of(target, codec) for target in targets(include, path, index)}
    if not rooms:
        return [f"{path}: no such file in the tree: {include}"]
    if rooms & (allowed | {room}) or builds_its_own_behaviour(path, include):
        return []
    return [f"{path}: {room} may not include {include} ({', '.join(sorted(map(str, rooms)))})"]


def builds_its_own_behaviour(path, include):
    """A class's generated store is the one place that names the hand-written type, because it builds it."""
    name = PurePosixPath(path)
    return (name.suffix == ".cpp" and name.parent.as_posix() == "src/impl"
            and include == f"implExtended/{name.stem}Extended.h")


def python_offences():
    """The generator needs Jinja2 beside Python's own library and its neighbours, and nothing else."""
    folder = project.SOURCE / "generator"
    own = {path.stem for path in folder.glob("*.py")} | {"jinja2"}
    pattern = re.compile(r"^\s*(?:from\s+(\w+)[\w.]*\s+import|import\s+(\w+))", re.MULTILINE)
    lines = []
    for path in sorted(folder.glob("*.py")):
        for names in pattern.findall(path.read_text()):
            module = names[0] or names[1]
            if module not in own and module not in sys.stdlib_module_names:
                lines.append(f"{path.name}: {module}")
    return lines
