"""The one Jinja2 environment of the generator: templates look like their output, and a missing variable is an error."""

from pathlib import Path

import jinja2

TEMPLATES = Path(__file__).parent / "templates"


def environment(**filters) -> jinja2.Environment:
    """An environment over generator/templates; `filters` are added by name."""
    env = jinja2.Environment(
        loader=jinja2.FileSystemLoader(TEMPLATES),
        undefined=jinja2.StrictUndefined,
        autoescape=False,
        trim_blocks=True,
        lstrip_blocks=True,
        keep_trailing_newline=True,
    )
    env.filters.update(filters)
    return env
