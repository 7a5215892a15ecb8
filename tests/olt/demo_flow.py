"""The OLT's commands of scripts/demo, taken from the script itself, so that a capture of them is one of the demo."""

import os
import re
import shlex

DEMO = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "scripts", "demo")
IMAGES = {"APP1_SW_VERSION": "V1.0", "APP1_COMMIT": 1, "APP1_ACTIVE": 1, "APP1_VALID": 1, "APP1_PART_SEL": 1,
          "APP2_SW_VERSION": "", "APP2_COMMIT": 0, "APP2_ACTIVE": 0, "APP2_VALID": 0, "APP2_PART_SEL": 2}


def functions():
    """The script's functions by name; what stands outside of them is under ''."""
    bodies, name = {"": []}, ""
    with open(DEMO, encoding="utf-8") as script:
        for line in script:
            begun = re.match(r"(\w+)\(\) \{$", line)
            if begun:
                name = begun.group(1)
                bodies[name] = []
            elif line == "}\n":
                name = ""
            else:
                bodies[name].append(line)
    return bodies


def commands(*names):
    """The arguments of each `olt` line of these functions, in order; files of the demo's folder go by their name."""
    bodies = functions()
    lines = [line.strip() for name in names for line in bodies[name]]
    texts = [line.split(" | ")[0].removeprefix("olt ") for line in lines if line.startswith("olt ")]
    return [shlex.split(text.replace("$DEMO/", "").replace("$image", "image.bin")) for text in texts]


def describe_images(state_directory):
    """What the demo's board tells of its image slots at the start."""
    directory = os.path.join(state_directory, "opt", "addons", "etc")
    os.makedirs(directory)
    with open(os.path.join(directory, "appinfo.ini"), "w", encoding="utf-8") as file:
        file.write("".join(f"{key}={value}\n" for key, value in IMAGES.items()))
