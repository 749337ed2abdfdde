"""Builds a copy of the project with every small change in it, and runs the tests against one change after another.

Usage: mutate.py COPY [--again] FOLDER [FILES]; see mutate.sh.
"""

import argparse
import collections
import concurrent.futures
import json
import multiprocessing
import os
import pathlib
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile

import places

ROOT = pathlib.Path(__file__).resolve().parents[2]
TOOL = pathlib.Path("tools", "mutation")
ALL = "basic shell tableau lp network project inventory waiting decision forecasting markov".split()
SCREENS = ("frm", "module")
OTHER_SYSTEMS = "_portable"  # not built here
# What stands beside the reports, and what it is made from.
BESIDE = r"(Picture|Plane|Plan|Steps|Replay|Meaning|Opinion|Facts|Figures|Costs|Chains|Shape|LostNodes|beside)$"
# They walk at random or look at other things than answers.
NOT_RUN = re.compile(r"^(Monkey|Packaging|Structure|Endurance|GuidePages|GuideBook|GuideCautions|GuideFigures)\b|Foreign")
WORKERS = 2
ROOM = 3 << 30  # bytes of memory for one run
MARKS = 1 << 20  # bytes, as in change.cpp

Test = collections.namedtuple("Test", "name command environment folder seconds reached")


def sources():
    for folder in ALL:
        for path in sorted(ROOT.glob(f"src/{folder}/*.cpp")):
            if not path.name.startswith(SCREENS) and not path.stem.endswith(OTHER_SYSTEMS):
                yield path


def found_in(path):
    finder = places.Finder(path, ["-xc++", "-std=c++20", "-DNDEBUG", f"-I{ROOT}/src"], f"{ROOT}/")
    return path, finder.places


def write(path, data):
    """Only what differs, so that little is built anew."""
    if not path.exists() or path.read_bytes() != data:
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(data)


class Copy:
    """The project with its changes."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder).resolve()
        self.build_folder = self.folder / "build" / "dev"
        self.refused_file = self.folder / "refused.json"  # what the compiler does not take
        self.refused = set(json.loads(self.refused_file.read_text())) if self.refused_file.exists() else set()
        with multiprocessing.Pool(WORKERS) as pool:
            self.places_of = dict(pool.map(found_in, list(sources()), chunksize=1))
        keys = dict.fromkeys(place.key for found in self.places_of.values() for place in found)
        self.number_of = {key: number for number, key in enumerate(keys)}

    def write_all(self):
        files = subprocess.run(["git", "ls-files", "-zco", "--exclude-standard"], cwd=ROOT, capture_output=True, check=True).stdout
        for name in filter(None, files.decode().split("\0")):
            if (ROOT / name).is_file() and ROOT / name not in self.places_of and name != "src/CMakeLists.txt":
                target = self.folder / name
                write(target, (ROOT / name).read_bytes())
                shutil.copymode(ROOT / name, target)
        for path in self.places_of:
            self.write_changes(path)
        tool = f"${{PROJECT_SOURCE_DIR}}/{TOOL}"
        added = (f"target_sources(vantrel_core PRIVATE {tool}/change.cpp)\n"
                 f"target_compile_options(vantrel_core PRIVATE -O1 -w -Wno-narrowing -include {tool}/change.h)\n")
        write(self.folder / "src/CMakeLists.txt", (ROOT / "src/CMakeLists.txt").read_bytes() + added.encode())

    def taken(self, path):
        return [place for place in self.places_of[path] if place.key not in self.refused]

    def write_changes(self, path):
        write(self.folder / path.relative_to(ROOT),
              places.written(path.read_bytes(), self.taken(path), self.number_of))

    def build(self):
        if not (self.build_folder / "build.ninja").exists():
            launcher = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else []
            linker = ["-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=mold"] if shutil.which("mold") else []
            subprocess.run(["cmake", "--preset", "dev", "-DCMAKE_CXX_FLAGS_DEBUG=-O0", *launcher, *linker],
                           cwd=self.folder, stdout=subprocess.DEVNULL, check=True)
        while True:
            done = subprocess.run(["cmake", "--build", "--preset", "dev", "--", "-k", "0"], cwd=self.folder,
                                  capture_output=True, text=True)
            if done.returncode == 0:
                return
            if not self.refuse(done.stdout):
                sys.exit(done.stdout[-5000:])

    def refuse(self, complaints):
        """Takes out what stands in the lines that the compiler complains about."""
        before = len(self.refused)
        for name, line in set(re.findall(r"(src/[\w/]+\.cpp):(\d+):\d+: (?:required from|.*error)", complaints)):
            path = ROOT / name
            code = path.read_bytes()
            for place in self.taken(path):
                lines = [code[:offset].count(b"\n") + 1 for offset, _, _ in place.pieces]
                if lines[0] <= int(line) <= lines[-1] and (lines[0] == lines[-1] or place.what != "left out"):
                    self.refused.add(place.key)
            self.write_changes(path)
        self.refused_file.write_text(json.dumps(sorted(self.refused)))
        return len(self.refused) > before


# A changed program may write anywhere: it gets no rights that it does not need.
UNPRIVILEGED = {"user": "nobody", "group": "nogroup", "extra_groups": []} if os.geteuid() == 0 else {}


def run(command, environment, seconds, **settings):
    """Runs a test in a folder of its own; whether it passed. What takes too long has failed."""
    with tempfile.TemporaryDirectory(prefix="vantrel_mutate_") as scratch:
        os.chmod(scratch, 0o777)
        environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "TMPDIR": scratch, "TEST_TMPDIR": scratch + "/",
                       "HOME": scratch, **environment, **settings}
        process = subprocess.Popen(command, cwd=scratch, env=environment, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL, start_new_session=True, **UNPRIVILEGED)
        try:
            return process.wait(timeout=seconds) == 0
        except subprocess.TimeoutExpired:
            return False
        finally:
            try:
                os.killpg(process.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
            process.wait()


def tests_of(copy):
    told = subprocess.run(["ctest", "--show-only=json-v1"], cwd=copy.build_folder, capture_output=True, check=True)
    return [test for test in json.loads(told.stdout)["tests"] if not NOT_RUN.search(test["name"])]


def with_marks(tests):
    """The tests that pass, with what each of them reaches."""
    with concurrent.futures.ThreadPoolExecutor(WORKERS) as pool:
        passed = [test for test in pool.map(measured, tests) if test]
    if tests and not passed:
        sys.exit("no test passes without a change: may nobody read the copy?")
    return [test for test in passed if test.reached]


def measured(test):
    properties = {entry["name"]: entry["value"] for entry in test["properties"]}
    environment = dict(entry.split("=", 1) for entry in properties.get("ENVIRONMENT", []))
    with tempfile.NamedTemporaryFile(prefix="vantrel_marks_") as marks:
        marks.truncate(MARKS)
        os.chmod(marks.name, 0o666)
        began = os.times().elapsed
        if not run(test["command"], environment, 120, VANTREL_REACHED=marks.name):
            print(f"not used, as it fails without a change: {test['name']}", file=sys.stderr, flush=True)
            return None
        seconds = os.times().elapsed - began
        bytes_read = marks.read()
    reached = {found.start() for found in re.finditer(rb"\x01", bytes_read)}
    return Test(test["name"], test["command"], environment, test_folder(test), seconds, reached)


def test_folder(test):
    return pathlib.Path(test["command"][0]).parent.name


def grouped(tests):
    """Tests of one program run together: (command, environment, seconds), the quickest first."""
    programs = collections.defaultdict(list)
    alone = []
    for test in tests:
        if any(word.startswith("--gtest_filter=") for word in test.command):
            programs[test.command[0]].append(test)
        else:
            alone.append((test.command, test.environment, test.seconds))
    for program, parts in programs.items():
        names = ":".join(word.split("=", 1)[1] for part in parts for word in part.command if "gtest_filter" in word)
        environment = {name: value for part in parts for name, value in part.environment.items()}
        alone.append(([program, f"--gtest_filter={names}", "--gtest_fail_fast", "--gtest_brief=1"], environment,
                      sum(part.seconds for part in parts)))
    return sorted(alone, key=lambda group: group[2])


class Trials:
    """Tries changes against tests, several at a time."""

    def __init__(self, changes):
        self.left = dict(changes)  # not noticed so far
        self.reached = set()

    def run(self, tests, belongs):
        """Tries all that are left against the tests that belong to their folder."""
        self.reached.update(*(test.reached for test in tests))

        def survives(entry):
            number, place = entry
            folder = folder_of(place)
            return not is_noticed(number, [test for test in tests if belongs(test, folder)])

        with concurrent.futures.ThreadPoolExecutor(WORKERS) as pool:
            survived = list(pool.map(survives, self.left.items()))
        self.left = dict(entry for entry, left in zip(self.left.items(), survived) if left)


def is_noticed(number, tests):
    for command, environment, seconds in grouped([test for test in tests if number in test.reached]):
        if not run(command, environment, 3 + 10 * seconds, VANTREL_CHANGE=str(number)):
            return True
    return False


def chosen(copy, folder, files):
    """The changes that are to be tried, by number."""
    result = {}
    for path, found in copy.places_of.items():
        for place in found:
            name = pathlib.Path(place.where.split(":")[0])
            if place.key in copy.refused or folder not in ("all", name.parent.name):
                continue
            if re.search(files, name.stem) if files else not re.search(BESIDE, name.stem):
                result[copy.number_of[place.key]] = place
    return result


def folder_of(place):
    return pathlib.Path(place.where).parent.name


def told(place):
    name, line = place.where.split(":")
    return f"{place.where}: {place.what}: {(ROOT / name).read_text().splitlines()[int(line) - 1].strip()}"


def arguments():
    parser = argparse.ArgumentParser()
    parser.add_argument("copy")
    parser.add_argument("--again", action="store_true")
    parser.add_argument("folder")
    parser.add_argument("files", nargs="?")
    return parser.parse_args()


def limit_runs():
    """A changed program may ask for all memory, or never end."""
    os.nice(5)
    resource.setrlimit(resource.RLIMIT_AS, (ROOM, ROOM))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def main():
    given = arguments()
    copy = Copy(given.copy)
    copy.write_all()
    copy.build()
    limit_runs()
    changes = chosen(copy, given.folder, given.files)
    last = copy.folder / f"survivors-{given.folder}.txt"
    if given.again:
        survivors = set(last.read_text().splitlines())
        changes = {number: place for number, place in changes.items() if told(place) in survivors}
    trials = Trials(changes)
    try_all(trials, tests_of(copy), set(map(folder_of, changes.values())))
    last.write_text("".join(f"{told(place)}\n" for place in trials.left.values()))
    tell(changes, trials)


def try_all(trials, tests, folders):
    """The quick tests of the folders first: few changes are left for the sessions."""
    own = with_marks([test for test in tests if test_folder(test) in folders])
    trials.run(own, lambda test, folder: test.folder == folder)
    print(f"{len(trials.left)} not noticed by the tests of their folder", file=sys.stderr, flush=True)
    others = with_marks([test for test in tests if test_folder(test) not in folders])
    trials.run(own + others, lambda test, folder: test.folder != folder)


def tell(changes, trials):
    for number, place in trials.left.items():
        print(f"{'not noticed' if number in trials.reached else 'not reached'}: {told(place)}")
    tried = collections.Counter(map(folder_of, changes.values()))
    survived = collections.Counter(map(folder_of, trials.left.values()))
    for folder, count in tried.items():
        share = 100 * (count - survived[folder]) / count
        print(f"{folder}: {count} changes, {count - survived[folder]} noticed, {share:.1f} %")


if __name__ == "__main__":
    main()
