"""Writing generated files: text in, file out, untouched where nothing changed so that builds stay incremental."""

from pathlib import Path


def write_if_changed(path, text: str) -> bool:
    """Write `text` as UTF-8, making the directory where needed. False when the file already holds it."""
    path = Path(path)
    data = text.encode("utf-8")
    if path.is_file() and path.read_bytes() == data:
        return False
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(data)
    return True
