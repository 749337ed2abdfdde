"""Runs inside the copy that mutate.sh makes: one change at a time, built, tested, taken back."""

import pathlib
import re
import subprocess
import sys

COMPARISONS = {" < ": " <= ", " <= ": " < ", " > ": " >= ", " >= ": " > ", " == ": " != ", " != ": " == "}
OPERATORS = {" + ": " - ", " - ": " + ", " * ": " / ", " / ": " * ", " && ": " || ", " || ": " && "}
TIMEOUT = 60  # seconds for the tests of one change: what then still runs has been noticed
SCREENS = ("frm", "module")


def code_of(line):
    """The line without its comment, its texts blanked out."""
    line = re.sub(r'"(\\.|[^"\\])*"', lambda text: '"' + "~" * (len(text.group()) - 2) + '"', line)
    return line.split("//")[0]


def changes_of(line):
    """Every line that a small change makes of this one."""
    code = code_of(line)
    if code.lstrip().startswith(("#", "using", "namespace", "template")):
        return
    for table in (COMPARISONS, OPERATORS):
        for old, new in table.items():
            for found in re.finditer(re.escape(old), code):
                yield line[: found.start()] + new + line[found.end():]
    for found in re.finditer(r"(?<![\w.'])\d+(\.\d+)?(?![\w.'])", code):
        number = found.group()
        more = str(int(number) + 1) if "." not in number else str(float(number) + 1)
        yield line[: found.start()] + more + line[found.end():]
    statement = code.strip()
    if re.fullmatch(r"[\w:.()\[\]>-]+(\(.*\)| [-+*/|&]?= .*);|(\+\+|--)[\w.]+;", statement) and not re.match(
        r"(return|const|static|auto|int|double|bool|std::\w+(<.*>)? \w+ =)\b", statement
    ):
        yield line[: len(line) - len(line.lstrip())] + ";"


def succeeds(command):
    try:
        done = subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=TIMEOUT)
    except subprocess.TimeoutExpired:
        return False
    return done.returncode == 0


def tests_of(folder):
    listed = pathlib.Path("tests", folder, "CMakeLists.txt").read_text()
    return [path.split("/")[-1] for path in re.findall(r"vantrel_(?:qt_)?test\((\S+?)\)", listed)]


def build(*targets):
    return succeeds(["cmake", "--build", "--preset", "dev", "--target", *targets])


def noticed(folder, tests):
    """None: it does not compile."""
    if not build("vantrel_core", *tests):
        return None
    for test in tests:
        if not succeeds([f"build/dev/tests/{folder}/{test}", "--gtest_brief=1"]):
            return True
    build("vantrel-play")
    return not succeeds(["ctest", "--preset", "dev", "-R", r"^(Session|Problems|Tour)\.", "--stop-on-failure", "-j2"])


def main():
    folder, share = sys.argv[1], int(sys.argv[2])
    tests = tests_of(folder)
    tried = survived = number = 0
    for path in sorted(pathlib.Path("src", folder).glob("*.cpp")):
        if path.name.startswith(SCREENS):
            continue
        whole = path.read_text()
        lines = whole.split("\n")
        for at, line in enumerate(lines):
            for changed in changes_of(line):
                number += 1
                if number % share != 0:
                    continue
                path.write_text("\n".join(lines[:at] + [changed] + lines[at + 1:]))
                found = noticed(folder, tests)
                path.write_text(whole)
                if found is None:
                    continue
                tried += 1
                if not found:
                    survived += 1
                    print(f"{path}:{at + 1}: {line.strip()}  ->  {changed.strip()}", flush=True)
    share_killed = 100 * (tried - survived) / tried if tried else 100
    print(f"{folder}: {tried} changes, {tried - survived} noticed, {share_killed:.1f} %")


main()
