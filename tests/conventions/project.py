"""Where the tests find the tree and the build; ctest passes the paths by environment."""

import os
import subprocess
from pathlib import Path

SOURCE = Path(os.environ.get("NRVK_SOURCE_DIR", Path(__file__).resolve().parents[2]))
BUILD = Path(os.environ.get("NRVK_BINARY_DIR", SOURCE / "build" / "release"))
LIBRARY = Path(os.environ.get("NRVK_LIBRARY", BUILD / "lib" / "libnrvk-omci-me.so"))
COMPILER = os.environ.get("NRVK_COMPILER", "g++")
LAUNCHER = [word for word in os.environ.get("NRVK_COMPILER_LAUNCHER", "").split(";") if word]
NM = os.environ.get("NRVK_NM", "nm")
READELF = os.environ.get("NRVK_READELF", "readelf")

HOST_CONTRACT = SOURCE / "publicapi" / "omci_host"
LIBRARY_INTERFACE = SOURCE / "publicapi" / "ont_omci_managed_entity"
GENERATED = BUILD / "generated"
GENERATED_INTERFACE = GENERATED / "publicapi" / "ont_omci_managed_entity"

PUBLIC_INCLUDE_PATHS = [HOST_CONTRACT, LIBRARY_INTERFACE, GENERATED_INTERFACE]


def run(command, **options):
    """Standard output of a command that must succeed; its complaint becomes the test's."""
    outcome = subprocess.run([str(word) for word in command], capture_output=True, text=True, **options)
    if outcome.returncode:
        raise AssertionError(f"{' '.join(map(str, command))}\n{outcome.stderr}")
    return outcome.stdout


def public_headers():
    """Every header that is installed, written by hand or generated."""
    headers = [header for folder in PUBLIC_INCLUDE_PATHS for header in sorted(folder.glob("*.h"))]
    assert headers, f"no public headers below {PUBLIC_INCLUDE_PATHS}"
    return headers


def include_options():
    return [f"-I{path}" for path in PUBLIC_INCLUDE_PATHS if path.is_dir()]


def tracked_files():
    """Files of the tree under version control, or about to be; every file when the tree is no working copy."""
    if (SOURCE / ".git").exists():
        names = run(["git", "-C", SOURCE, "ls-files", "--cached", "--others", "--exclude-standard"]).splitlines()
        return [SOURCE / name for name in names if (SOURCE / name).is_file()]
    return [
        path
        for path in sorted(SOURCE.rglob("*"))
        if path.is_file() and not {"build", ".git", "__pycache__"} & set(path.relative_to(SOURCE).parts)
    ]
