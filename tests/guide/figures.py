"""figures.py PLAYER SCRIPT: the figures of the guide's running text that are marked with a part of the tour.

Behind a figure stands a comment, which no reader sees: <!-- NAME [KIND]: HEADING / ... / LABEL [#N] [* FACTOR] -->.
NAME is the script of the tour. KIND is where the figure stands: in the report on screen (nothing), in the text file
(printed), beside the report (picture, steps, meaning) or in the problem file (problem). Each part of the path is
looked for below the line of the one before; the figure is the first number behind the last part on its line, or the
N-th. It is compared as the text rounds it, without its sign, and times 100 where the text gives per cent.
"""

import re
import shutil
import subprocess
import sys
import tempfile
from decimal import ROUND_HALF_UP, Decimal
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
KINDS = ("picture", "steps", "meaning")
MARKER = re.compile(r"<!--\s*(\S+?)(?:\s+(printed|picture|steps|meaning|problem))?:\s+(.*?)\s*-->", re.S)
FIGURE = re.compile(r"((?:\d[\d,]*)?\.?\d+)(\s*(?:%|per\s+cent))?[*`]*$")
NUMBER = re.compile(r"(?:\d[\d,]*)?\.?\d+")


def played(player, script):
    """What the script shows, by kind: lists of lines."""
    with tempfile.TemporaryDirectory() as folder:
        scratch = Path(folder)
        shutil.copytree(ROOT / "Problems", scratch / "Problems")
        text = script.read_text("utf-8")
        longer = scratch / script.name
        longer.write_text(text + "".join(kind + "\n" for kind in KINDS), "utf-8")
        run = subprocess.run([player, "--folder", folder, longer], capture_output=True, text=True, check=False)
        if run.returncode != 0:
            raise SystemExit(run.stdout + run.stderr)
        shown = {kind: [] for kind in ("",) + KINDS}
        into = None
        for line in run.stdout.splitlines():
            if line.startswith("> "):
                step = line[2:].split()[0]
                into = shown.get("" if step == "report" else step)
            elif into is not None:
                into.append(line.removeprefix("|"))
        printed = scratch / (script.stem + ".OUT")
        shown["printed"] = printed.read_text("utf-8").splitlines() if printed.exists() else []
        opened = re.search(r'^file "(Problems/[^"]*)"', text, re.M)
        shown["problem"] = (ROOT / opened.group(1)).read_text("utf-8").splitlines() if opened else []
        return shown


def label_in(line, label):
    words = r"\s+".join(re.escape(word) for word in label.split())
    return re.search(r"(?<![\w.])" + words + r"(?![\w.])", line)


def line_of(lines, begin, label):
    """The first line from there on that begins with the label, or else holds it."""
    for at in range(begin, len(lines)):
        match = label_in(lines[at], label)
        if match and not lines[at][:match.start()].strip():
            return at, match.end()
    for at in range(begin, len(lines)):
        match = label_in(lines[at], label)
        if match:
            return at, match.end()
    raise LookupError(f'no line holds "{label}"')


def value_at(lines, path):
    path, _, factor = path.partition(" * ")
    path, _, count = path.partition(" #")
    at, end = -1, 0
    for label in path.split(" / "):
        at, end = line_of(lines, at + 1, label)
    numbers = list(NUMBER.finditer(lines[at], end))
    wanted = int(count or 1)
    if len(numbers) < wanted:
        raise LookupError(f'only {len(numbers)} numbers stand behind it in "{lines[at]}"')
    number = numbers[wanted - 1]
    percent = lines[at][number.end():].lstrip().startswith("%")
    return Decimal(number.group().replace(",", "")) * Decimal(factor or 1), percent


def difference(before, lines, path):
    """Why the figure is not what its marker finds; nothing where it is."""
    figure = FIGURE.search(before)
    if figure is None:
        return "no figure stands before the marker"
    told = Decimal(figure.group(1).replace(",", ""))
    try:
        value, percent = value_at(lines, path)
    except LookupError as error:
        return str(error)
    if figure.group(2) and not percent:
        value *= 100
    places = Decimal(1).scaleb(told.as_tuple().exponent)
    if abs(value).quantize(places, ROUND_HALF_UP) != told:
        return f"the text has {figure.group(0)}, but it is {value}"
    return ""


def main():
    player, script = sys.argv[1], Path(sys.argv[2])
    markers = [(page.name, text[:match.start()], match)
               for page in sorted((ROOT / "docs/guide").glob("*.md")) for text in [page.read_text("utf-8")]
               for match in MARKER.finditer(text) if match.group(1) == script.stem]
    if not markers:
        return
    shown = played(player, script)
    wrong = 0
    for page, before, match in markers:
        path = " ".join(match.group(3).split())
        why = difference(before, shown[match.group(2) or ""], path)
        if why:
            wrong += 1
            print(f"{page}: {match.group(0)}: {why}")
    print(f"{len(markers)} figures, {wrong} wrong")
    raise SystemExit(1 if wrong else 0)


if __name__ == "__main__":
    main()
