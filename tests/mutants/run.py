#!/usr/bin/env python3
"""Whether the archive library's tests notice faults that are made on purpose.

    run.py FOLDER [FAULT...]      e.g. tests/mutants/run.py /tmp/mutants 3 17

Copies the tree to FOLDER, puts all of faults.txt in, each to be switched on by its number, builds
the archive's tests once, and runs them with one fault after the other until one test fails. Ends
with the list of the faults that none noticed.
"""

import os
import pathlib
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
# The quick ones first: most faults come no further.
TESTS = ["base/archive_base", "format/archive_format", "reading/archive_reading",
         "codecs/archive_codecs", "archive", "writing/archive_writing",
         "hostile/archive_hostile"]
DEADLINE = 900  # seconds; a fault that makes a test hang is noticed as well
SWITCH = """#include <cstdlib>
[[maybe_unused]] static bool isMutant(int number) {
    static const char* const wanted = std::getenv("MUTANT");
    return wanted != nullptr && std::atoi(wanted) == number;
}
"""


def faults():
    lines = (ROOT / "tests/mutants/faults.txt").read_text().splitlines()
    for number, line in enumerate((line for line in lines if not line.startswith("#")), 1):
        line = line.replace("\\|", "\0")
        path, old, new = (part.strip().replace("\0", "|") for part in line.split(" |"))
        old, new = (text.replace("\\n", "\n").replace("\\\n", "\\n").replace("\\\\", "\\")
                    for text in (old, new))
        yield number, path, old, new or f"if (!MUTANT) {{ {old} }}"


def put_in(number, path, old, new):
    text = path.read_text()
    if text.count(old) != 1:
        sys.exit(f"fault {number}: '{old}' stands {text.count(old)} times in {path}")
    text = text.replace(old, new.replace("MUTANT", f"isMutant({number})"))
    path.write_text(text if text.startswith(SWITCH) else SWITCH + text)


def build(folder):
    quiet = {"check": True, "stdout": subprocess.DEVNULL}
    subprocess.run(["cmake", "--preset", "dev", "-DPELLUMAR_APP=OFF", "-DPELLUMAR_BENCH=OFF"],
                   cwd=folder, **quiet)
    subprocess.run(["ninja", "-C", folder / "build/dev", *(pathlib.Path(t).name + "_test"
                                                          for t in TESTS)], **quiet)


def notices(folder, number):
    """The test that fails with that fault; nothing if none does."""
    environment = os.environ | {"MUTANT": str(number), "GTEST_FAIL_FAST": "1", "GTEST_BRIEF": "1"}
    for test in TESTS:
        try:
            done = subprocess.run([folder / f"build/dev/tests/archive/{test}_test"],
                                  env=environment, capture_output=True, check=False,
                                  timeout=DEADLINE, cwd=folder, stdin=subprocess.DEVNULL)
        except subprocess.TimeoutExpired:
            return f"{test}: takes longer than {DEADLINE} s"
        if done.returncode:
            failed = [line for line in done.stdout.decode(errors="replace").splitlines()
                      if line.startswith("[  FAILED  ]")]
            return failed[0] if failed else f"{test}: ends with {done.returncode}"
    return None


def main():
    folder = pathlib.Path(sys.argv[1])
    wanted = [int(number) for number in sys.argv[2:]]
    chosen = [fault for fault in faults() if not wanted or fault[0] in wanted]
    if not (folder / "src").exists():
        shutil.copytree(ROOT, folder, ignore=shutil.ignore_patterns("build", ".git"))
        for number, path, old, new in faults():
            put_in(number, folder / "src/archive" / path, old, new)
    build(folder)
    if (test := notices(folder, 0)) is not None:
        sys.exit(f"fails without a fault: {test}")
    survived = []
    for number, path, _, new in chosen:
        test = notices(folder, number)
        print(f"{number:3} {path:32} {test or 'NOT NOTICED'}", flush=True)
        if test is None:
            survived.append(f"{number}: {path}: {new}")
    print(f"{len(chosen) - len(survived)} of {len(chosen)} are noticed; not noticed:", *survived,
          sep="\n    ")


if __name__ == "__main__":
    main()
