#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Larchfield
# SPDX-License-Identifier: GPL-3.0-or-later
"""Builds the Debian package from the build folder and checks what it holds against
expected-package-files.txt and the dependencies below; checks that the manual pages format
cleanly and list every sub-command, option and environment variable the programs know."""
import argparse
import re
import subprocess
import sys
import tempfile
from pathlib import Path

# Packages the programs cannot start without: found by dpkg-shlibdeps, or listed for Qt's plugins.
REQUIRED_DEPENDENCIES = ["libqt6widgets6", "libqt6charts6", "libqt6printsupport6", "libqt6network6",
                         "libsqlite3-0", "qt6-qpa-plugins", "libqt6svg6"]
# Sections each manual page has.
SECTIONS = ["NAME", "SYNOPSIS", "DESCRIPTION", "ENVIRONMENT", "FILES", "EXIT STATUS", "SEE ALSO"]


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def roff(text):
    return text.replace("-", "\\-")


def check_manual_pages(args, failures):
    variables = set()
    for source in Path(args.sources).rglob("*.h"):
        variables.update(re.findall(r'EnvironmentVariable\s*=\s*"(\w+)"', source.read_text(encoding="utf-8")))
    if not variables:
        failures.append("no environment variables found in the sources")
    # What the command line knows: each sub-command, and each option its --help lists.
    commands = re.findall(r"^  ([a-z][a-z-]+)", run(args.cli, "--help"), re.M)
    expected = {"quillmere-cli.1": [f"quillmere\\-cli {roff(c)}" for c in commands],
                "quillmere.1": [roff(o) for o in re.findall(r"^\s+(?:-\w, )?(--[a-z-]+)", run(args.gui, "--help"), re.M)]}
    for command in commands:
        options = re.findall(r"^\s+(?:-\w, )?(--[a-z-]+)", run(args.cli, command, "--help"), re.M)
        expected["quillmere-cli.1"] += [roff(option) for option in options]
    for page, words in expected.items():
        path = Path(args.man_dir) / page
        text = path.read_text(encoding="utf-8")
        warnings = subprocess.run(["groff", "-man", "-ww", "-z", str(path)], capture_output=True, text=True).stderr
        if warnings:
            failures.append(f"{page}: groff warns: {warnings.strip()}")
        words += [f".SH {section}" for section in SECTIONS] + [roff(variable) for variable in sorted(variables)]
        failures += [f"{page} lacks {word!r}" for word in words if word not in text]


def check_package(args, failures):
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(["cpack", "-G", "DEB", "-B", folder, "--config", args.cpack_config],
                       check=True, capture_output=True)
        (deb,) = Path(folder).glob("quillmere_*.deb")
        listing = run("dpkg-deb", "--contents", str(deb))
        depends = run("dpkg-deb", "--field", str(deb), "Depends")
    files = {line.split()[-1].removeprefix(".") for line in listing.splitlines() if not line.startswith("d")}
    wanted = {line.strip() for line in Path(args.expected).read_text().splitlines()
              if line.strip() and not line.startswith("#")}
    failures += [f"package lacks {path}" for path in sorted(wanted - files)]
    failures += [f"package holds unexpected {path}" for path in sorted(files - wanted)]
    names = {re.split(r"[\s(]", item.strip())[0] for item in depends.split(",")}
    failures += [f"package does not depend on {name}" for name in REQUIRED_DEPENDENCIES if name not in names]


def main():
    parser = argparse.ArgumentParser()
    for option in ("--cli", "--gui", "--man-dir", "--sources", "--cpack-config", "--expected"):
        parser.add_argument(option, required=True)
    args = parser.parse_args()
    failures = []
    check_manual_pages(args, failures)
    check_package(args, failures)
    for failure in failures:
        print(failure)
    print(f"{len(failures)} problems")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
