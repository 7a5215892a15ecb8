"""Makes the generator's modules importable for the tests beside it, and says where the catalogue is."""

import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
CATALOGUE = ROOT / "catalogue"

sys.path.insert(0, str(ROOT / "generator"))
