"""The pages name all that the programs have, and the programs explain themselves."""

import os
import re
import subprocess
import unittest
from pathlib import Path

import pages

PROGRAMS = Path(os.environ.get("NRVK_PROGRAMS", pages.BUILD / "bin"))
CONTROL = pages.TREE / "simulator" / "control"
TIMEOUT = 120


def page(name):
    return (pages.TREE / "docs" / name).read_text()


def help_of(program, *words):
    done = subprocess.run([PROGRAMS / program, *words, "--help"], capture_output=True, text=True, timeout=TIMEOUT)
    assert done.returncode == 0, done.stderr
    return done.stdout


def options_in(text):
    """Options that a help text declares, without those that every program has."""
    return set(re.findall(r"^ +(?:-\w,)?(--[a-z][a-z-]*)", text, re.MULTILINE)) - {"--help", "--version"}


def olt_commands():
    groups = help_of("omci-olt").split("\nExamples:")[0].split("\nThe MIB as a whole:")[1]
    return re.findall(r"^  ([a-z][a-z-]*) ", groups, re.MULTILINE)


class ControlSocket(unittest.TestCase):
    def setUp(self):
        self.page = page("control-socket.md")
        self.sources = "\n".join(path.read_text() for path in sorted(CONTROL.glob("*.cpp")))

    def test_each_request_is_told_of(self):
        requests = set(re.findall(r'm_Requests\["([^"]+)"\]', self.sources))
        self.assertGreater(len(requests), 25)
        self.assertEqual(set(), {name for name in requests if f'{{"{name}":' not in self.page})

    def test_each_field_of_a_request_is_told_of(self):
        fields = {field for fields in re.findall(r'RequestFields fields\(request, "[^"]+",\s*\{([^}]*)\}', self.sources)
                  for field in re.findall(r'"([^"]+)"', fields)}
        self.assertGreater(len(fields), 20)
        self.assertEqual(set(), {name for name in fields if f'"{name}"' not in self.page})

    def test_each_setting_of_the_hardware_is_told_of(self):
        text = (pages.TREE / "simulator" / "hardware" / "HardwareSettings.cpp").read_text()
        settings = set(re.findall(r'\{"(\w+)",\s*(?:\[\]\(HardwareSettings|apply)', text))
        self.assertGreater(len(settings), 8)
        self.assertEqual(set(), {name for name in settings if f'"{name}"' not in self.page})


class Programs(unittest.TestCase):
    def test_each_option_of_onu_sim_is_told_of_and_no_other(self):
        told = {option for row in re.findall(r"^\| (`--[^|]*) \|", page("onu-sim.md"), re.MULTILINE)
                for option in re.findall(r"(--[a-z][a-z-]*)", row)}
        self.assertEqual(options_in(help_of("onu-sim")), told)

    def test_each_command_of_omci_olt_is_told_of_and_no_other(self):
        rows = re.findall(r"^\| (`[a-z].*?) \|", page("omci-olt.md").split("## Commands")[1].split("\n## ")[0], re.MULTILINE)
        told = {name for row in rows for name in re.findall(r"`([a-z][a-z-]*)\b(?! or)", row)}
        self.assertEqual(set(olt_commands()), told)

    def test_each_option_of_omci_olt_is_told_of(self):
        text = page("omci-olt.md")
        for words in [(), *((command,) for command in olt_commands())]:
            for option in options_in(help_of("omci-olt", *words)):
                self.assertIn(option, text, words)

    def test_each_help_has_an_example(self):
        for program, words in (("onu-sim", ()), ("omci-olt", ()), *(("omci-olt", (name,)) for name in olt_commands())):
            self.assertRegex(help_of(program, *words), r"\nExamples?:\n  ", words)

    def test_exit_codes_are_told_in_help_and_page(self):
        for program in ("onu-sim", "omci-olt"):
            self.assertIn("Exit codes:", help_of(program))
            self.assertRegex(page(f"{program}.md"), r"Exit codes")

    def test_wrong_options_end_with_2(self):
        for program, *words in (("onu-sim", "--lisen"), ("onu-sim", "word"), ("onu-sim", "--log-level", "8"),
                                ("omci-olt",), ("omci-olt", "get"), ("omci-olt", "--jsn", "classes")):
            done = subprocess.run([PROGRAMS / program, *words], capture_output=True, text=True, timeout=TIMEOUT)
            self.assertEqual(2, done.returncode, words)
            self.assertNotEqual("", done.stderr)

    def test_a_slip_in_a_command_or_an_option_gets_a_hint(self):
        for words, hint in ((["classses"], 'no command "classses"; did you mean classes?'),
                            (["classes", "--jsn"], "no option --jsn; did you mean --json?"),
                            (["--conect", "127.0.0.1:9", "classes"], "no option --conect; did you mean --connect?"),
                            (["mib-upload", "--sav", "x"], "no option --sav; did you mean --save?"),
                            (["classes", "--zzz"], "no option --zzz ("),
                            ([], "a command is required")):
            done = subprocess.run([PROGRAMS / "omci-olt", *words], capture_output=True, text=True, timeout=TIMEOUT)
            self.assertEqual((2, ""), (done.returncode, done.stdout))
            self.assertIn(hint, done.stderr)


if __name__ == "__main__":
    unittest.main()
