"""What is wrong with a catalogue: all of it is collected, so that one run shows everything."""

import sys
from pathlib import Path


class CatalogueError(Exception):
    """A catalogue that can't be used; `messages` has one line per problem."""

    def __init__(self, messages):
        super().__init__("\n".join(messages))
        self.messages = tuple(messages)


class Place:
    """Where a problem is: file, class, attribute. Prints as `catalogue/onu.toml: AniG.SrIndication`."""

    def __init__(self, messages: list[str], path: Path, entity: str = "", attribute: str = ""):
        self._messages = messages
        self._path = path
        self._entity = entity
        self._attribute = attribute

    def of_class(self, entity: str) -> "Place":
        return Place(self._messages, self._path, entity)

    def of_attribute(self, attribute: str) -> "Place":
        return Place(self._messages, self._path, self._entity, attribute)

    def object_to(self, text: str) -> None:
        self._messages.append(f"{self}: {text}")

    def __str__(self) -> str:
        parts = ".".join(part for part in (self._entity, self._attribute) if part)
        file = f"{self._path.parent.name}/{self._path.name}"
        return f"{file}: {parts}" if parts else file


def exit_with(error: CatalogueError) -> None:
    """Print every problem to the standard error output and end the program with 1."""
    for message in error.messages:
        print(message, file=sys.stderr)
    plural = "" if len(error.messages) == 1 else "s"
    print(f"{len(error.messages)} problem{plural} in the catalogue", file=sys.stderr)
    sys.exit(1)
