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


def tests_of(folder, name):
    """The tests of a file's folder, its own first."""
    tests = sorted(path.stem for path in pathlib.Path("tests", folder).glob("*_test.cpp"))
    return sorted(tests, key=lambda test: not test.startswith(name))


def build(target):
    return succeeds(["cmake", "--build", "--preset", "dev", "--target", target])


def modules_of(folder):
    """The numbers of the modules whose routines the folder has."""
    offered = set(re.findall(r"ModuleRoutines& (\w+)\(", pathlib.Path("src", folder, "module.h").read_text()))
    table = re.findall(r"&(\w+)\(\)", pathlib.Path("src", "modules.cpp").read_text())
    return {number for number, routines in enumerate(table, 1) if routines in offered}


def sessions_of(folder):
    """A pattern of the sessions in which the folder's modules are chosen; for the shell, of all."""
    if not pathlib.Path("src", folder, "module.h").exists() or not modules_of(folder):
        return r"^(Session|Problems|Tour|NumbersOfModules)\."
    chosen = re.compile(r"^choose (%s)$" % "|".join(str(number) for number in modules_of(folder)), re.MULTILINE)
    scripts = pathlib.Path("tests", "sessions").glob("*.play")
    names = sorted(path.stem for path in scripts if chosen.search(path.read_text()))
    return r"^Session\.(%s)$|^(Problems|NumbersOfModules)\." % "|".join(names)


def noticed(folder, name):
    """None: it does not compile."""
    if not build("vantrel_core"):
        return None
    for test in tests_of(folder, name):
        if not build(test) or not succeeds([f"build/dev/tests/{folder}/{test}", "--gtest_brief=1"]):
            return True
    build("numbers_test")
    build("vantrel-play")
    return not succeeds(["ctest", "--preset", "dev", "-R", sessions_of(folder), "--stop-on-failure", "-j2"])


def main():
    folder, share, wanted = sys.argv[1], int(sys.argv[2]), sys.argv[3]
    if noticed(folder, ""):
        sys.exit(f"{folder}: the tests fail as they are")
    tried = survived = number = 0
    for path in sorted(pathlib.Path("src", folder).glob("*.cpp")):
        if path.name.startswith(SCREENS) or not re.search(wanted, path.stem):
            continue
        whole = path.read_text()
        lines = whole.split("\n")
        for at, line in enumerate(lines):
            for changed in changes_of(line):
                number += 1
                if number % share != 0:
                    continue
                path.write_text("\n".join(lines[:at] + [changed] + lines[at + 1:]))
                found = noticed(folder, path.stem)
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
