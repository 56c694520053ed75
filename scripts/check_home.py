#!/usr/bin/env python3
"""The project's own rules about its sources, which no compiler knows.

Prints one line for each place that breaks a rule and exits 1 if there is any.
"""

import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
LONGEST_SOURCE = 500

# Qt signals enter the program's code through one guard. The serial device stands below the shell; its
# port is handed a way in of its own.
RAW_CONNECT = re.compile(r"\bconnect\s*\(|\bconnectSlotsByName\b|\bSLOT\s*\(")
MAY_CONNECT = {"src/shell/gate/guarded_connect.h", "src/platform/serial_port_windows.cpp"}

# The program's tables, its link and its pages live on the one event thread.
THREAD = re.compile(r"\bstd::(thread|jthread|async)\b|#include <(thread|future)>|\.detach\s*\(|"
                    r"\bpthread_create\b|\bCreateThread\b|\bQThread|\bQtConcurrent\b")

# Where the user's data folder is, the environment alone tells.
ENVIRONMENT = re.compile(r"\b(qputenv|getenv|qEnvironmentVariable)\b")
MAY_ASK_ENVIRONMENT = {"src/platform/data_folder_linux.cpp"}

UMBRELLA = re.compile(r"#include\s*<Qt(Core|Gui|Widgets|Test)>")
SKIPPED = re.compile(r"\bGTEST_SKIP\b|\bDISABLED_|\bQSKIP\b|\bQEXPECT_FAIL\b")
BANNER = re.compile(r"^//\s*(={4,}|-{4,}|\*{4,}|#{4,})")
PAGE_INCLUDE = re.compile(r'#include "(link/|pages/(?!frm_info|program_pages|.*/)|platform/)')


def tracked():
    """Files that git tracks or would track, below the root."""
    listed = subprocess.run(
        ["git", "ls-files", "--cached", "--others", "--exclude-standard"],
        cwd=ROOT, check=True, capture_output=True, text=True).stdout
    return [pathlib.PurePosixPath(line) for line in listed.splitlines() if (ROOT / line).is_file()]


def targets_text(files):
    return "\n".join((ROOT / f).read_text() for f in files if f.name == "CMakeLists.txt")


def check_source(path, text):
    name = str(path)
    product = path.parts[0] in ("src", "simulator", "tools")
    lines = text.splitlines()
    if len(lines) > LONGEST_SOURCE:
        yield len(lines), f"more than {LONGEST_SOURCE} lines"
    for number, line in enumerate(lines, 1):
        if product and name not in MAY_CONNECT and RAW_CONNECT.search(line):
            yield number, "raw connect: use ConnectGuarded"
        if product and THREAD.search(line):
            yield number, "a thread: the program has one"
        if UMBRELLA.search(line):
            yield number, "umbrella include"
        if SKIPPED.search(line):
            yield number, "a test that is skipped"
        if BANNER.search(line):
            yield number, "banner comment"
        if name.startswith("src/pages/") and PAGE_INCLUDE.search(line):
            yield number, "a page includes board and shell only"
        if name.startswith("src/pages/") and "setEnabled(" in line:
            yield number, "a control closes by SetOpen, which looks after the focus"
        if product and name not in MAY_ASK_ENVIRONMENT and ENVIRONMENT.search(line):
            yield number, "the program reads no environment variable"
    if path.suffix == ".h" and "#pragma once" not in text:
        yield 1, "no #pragma once"


def check_targets(files, cmake):
    """Every source, test files above all, is built by some target."""
    for path in files:
        if path.suffix == ".cpp" and not re.search(rf"(?<![\w]){re.escape(path.name)}\b", cmake):
            yield path, 1, "in no target"


def main():
    files = tracked()
    sources = [f for f in files if f.suffix in (".cpp", ".h") and f.parts[0] != "build"]
    found = []
    for path in sources:
        text = (ROOT / path).read_text()
        found += [f"{path}:{line}: {words}" for line, words in check_source(path, text)]
    found += [f"{path}:{line}: {words}"
              for path, line, words in check_targets(sources, targets_text(files))]
    if not sources:
        found.append("no sources found")
    print("\n".join(found) or f"{len(sources)} sources keep the rules of the house")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
