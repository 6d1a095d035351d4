#!/usr/bin/env python3
"""A journey with the program under the thread sanitizer, and in whose code the races are that it reports.

    cmake --preset tsan && cmake --build build/tsan --target corvane
    scripts/journey_races.py [JOURNEY] [PROGRAM]

Libraries are not built for the sanitizer, which does not see how they order their accesses: a report counts as ours if
either access lies in our own code. Nothing is suppressed, since a suppressed library would hide all that it calls.
"""
import collections
import glob
import os
import platform
import re
import subprocess
import sys
import tempfile

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))


def place_of(stack):
    """The innermost frame of an access that is not the sanitizer's: the module and the frame's text."""
    for frame in re.findall(r"#\d+ (.*)", stack):
        module = re.search(r"\((\S+?)\+0x", frame)
        if module and "libtsan" not in module[1]:
            return module[1], frame
    return "unknown", ""


def races(folder):
    for path in glob.glob(os.path.join(folder, "report.*")):
        with open(path, encoding="utf-8", errors="replace") as file:
            for report in file.read().split("=================="):
                if "WARNING: ThreadSanitizer" in report:
                    yield report, [place_of(stack) for stack in re.split(r"\n\s*\n", report)[:2]]


def main():
    journey = sys.argv[1] if len(sys.argv) > 1 else "play"
    program = os.path.abspath(sys.argv[2] if len(sys.argv) > 2 else os.path.join(ROOT, "build/tsan/bin/corvane"))
    with tempfile.TemporaryDirectory() as folder:
        env = dict(os.environ, JOURNEY_PATIENCE="8",
                   TSAN_OPTIONS=f"log_path={folder}/report halt_on_error=0 exitcode=0 history_size=4")
        command = ["setarch", platform.machine(), "-R", sys.executable,
                   os.path.join(ROOT, "tests/journeys", journey + ".py"), program, os.path.join(folder, "pictures")]
        code = subprocess.run(command, env=env, check=False).returncode
        found = list(races(folder))
    ours = [report for report, places in found if any(module == "corvane" for module, _ in places)]
    for report in ours:
        print(report)
    kinds = collections.Counter(tuple(sorted({module for module, _ in places})) for _, places in found)
    for modules, count in kinds.most_common():
        print(f"{count:4}  {' and '.join(modules)}")
    print(f"{len(found)} reports, {len(ours)} of them in our code; the journey ended with {code}")
    return 1 if ours or code else 0


if __name__ == "__main__":
    sys.exit(main())
