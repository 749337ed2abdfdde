"""cautions.py: the guide lists the cautions that are told beside a report, and no others.

The tables headed `| caution | when |` quote what is said, with three dots for what is filled in. Every run of four
words or more that a caution of src/*/*Meaning.cpp is made of stands in a table of the module's pages, and what a table
quotes is put together from texts of the module. Of two texts that a count decides between, one is enough.
"""

import re
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PAGES = {
    "lp": ("linear-programming", "integer-linear-programming"),
    "tableau": ("transportation", "assignment"),
    "network": ("shortest-route", "minimal-spanning-tree"),
    "project": ("pert-cpm",),
    "inventory": ("inventory",),
    "waiting": ("waiting-lines",),
    "decision": ("decision-analysis",),
    "forecasting": ("forecasting",),
    "markov": ("markov-processes",),
}
LITERAL = re.compile(r'"((?:[^"\\]|\\.)*)"')
EITHER = re.compile(r'\?\s*(?:std::string\()?"((?:[^"\\]|\\.)*)"\)?\s*:\s*"((?:[^"\\]|\\.)*)"')
CONSTANT = re.compile(r"(?:constexpr const char\*|const std::string) (\w+) =")
FUNCTION = re.compile(r"(?:^|\s)std::string (\w+)\([^;]*\{$")
NAME = re.compile(r"\b[A-Za-z_]\w*\b")


def statements(source):
    """The source in pieces that end with a semicolon or a brace; braces within parentheses end nothing."""
    found, piece, depth, at = [], "", 0, 0
    token = re.compile(r'//[^\n]*|^#[^\n]*|"(?:[^"\\]|\\.)*"|(?<!\w)\'(?:[^\'\\]|\\.)\'|.', re.S | re.M)
    for match in token.finditer(source, at):
        text = match.group(0)
        if text.startswith(("//", "#")):
            continue
        piece += text
        depth += text in ("(", "[")
        depth -= text in (")", "]")
        if depth == 0 and text in (";", "{", "}"):
            found.append(piece.strip())
            piece = ""
    return found


def runs(text, blanks=3):
    """The runs of so many blanks or more between what is filled in."""
    parts = re.split(r"\{\w+\}|\.\.\.", text.replace('\\"', '"'))
    plain = [re.sub(r"\s+", " ", part).strip() for part in parts]
    return [part for part in plain if part and part.count(" ") >= blanks]


def texts(statement):
    """Groups of literals; the guide needs one of each group."""
    joined = re.sub(r'"\s*"', "", statement)
    groups = [match for match in EITHER.findall(joined)]
    taken = {text for group in groups for text in group}
    return groups + [(text,) for text in LITERAL.findall(joined) if text not in taken]


def definitions(pieces):
    """The texts behind the names of constants and functions."""
    named = {}
    for at, piece in enumerate(pieces):
        constant, function = CONSTANT.match(piece), FUNCTION.search(piece)
        if constant:
            named[constant.group(1)] = texts(piece)
        elif function:
            depth, groups = 1, []
            for inside in pieces[at + 1:]:
                groups += texts(inside)
                depth += inside.endswith("{") - inside.endswith("}")
                if depth == 0:
                    break
            named[function.group(1)] = groups
    return named


def is_start_of_function(piece):
    return re.search(r"\)\s*(const)?\s*\{$", piece) and not re.match(r"\W*(if|for|while|else|switch)", piece)


def cautions(source):
    """Groups of texts of all cautions of a source file."""
    pieces = statements(source)
    named = definitions(pieces)
    groups = []
    for at, piece in enumerate(pieces):
        if not re.search(r"SentenceKind::Caution\b|\bCaution\(", piece):
            continue
        if re.search("SentenceKind kind :|void Caution", piece):
            continue
        groups += texts(piece)
        names, seen = NAME.findall(LITERAL.sub("", piece)), set()
        while names:
            name = names.pop()
            if name in seen:
                continue
            seen.add(name)
            if name in named:
                groups += named[name]
                continue
            for before in reversed(pieces[:at]):
                if is_start_of_function(before):
                    break
                if re.search(rf"(?:^|\W){name} \+?= |std::string {name}[ (]", before):
                    groups += texts(before)
                    names += NAME.findall(LITERAL.sub("", before))
    return groups


def is_made_of(run, parts):
    """Whether the run is a row of parts, with or without a blank between them."""
    ends = {0}
    for at in range(len(run)):
        if at not in ends:
            continue
        begin = at + (run[at] == " ")
        ends.update(begin + len(part) for part in parts if run.startswith(part, begin))
    return len(run) in ends


def quoted(page):
    """The texts in quotes of the tables of cautions of a page."""
    found = []
    inside = False
    for line in (ROOT / "docs/guide" / f"{page}.md").read_text("utf-8").splitlines():
        inside = line == "| caution | when |" or inside and line.startswith("|")
        if inside and line.startswith('| "'):
            cell = line.split(" | ")[0].removeprefix('| "').removesuffix('"')
            found += cell.split('", "')
    return found


def main():
    faults, checked = [], 0
    for module, pages in PAGES.items():
        said, everything = [], []
        for file in sorted((ROOT / "src" / module).glob("*Meaning.cpp")):
            source = file.read_text("utf-8")
            said += cautions(source)
            everything += [text for piece in statements(source) for group in texts(piece) for text in group]
        told = [text for page in pages for text in quoted(page)]
        for group in said:
            wanted = [runs(text) for text in group]
            if not all(wanted):
                continue
            checked += 1
            if not any(all(any(run in text for text in told) for run in texts_) for texts_ in wanted):
                faults.append(f"{pages[0]}.md lists no caution with: {group[0]}")
        parts = {part for text in everything for part in runs(text, 0)}
        for text in told:
            for run in runs(text):
                checked += 1
                if not is_made_of(run, parts):
                    faults.append(f"no caution of src/{module} says: {run}")
    print("\n".join(faults))
    if faults or checked < 100:
        raise SystemExit(f"{len(faults)} faults, {checked} texts compared")


if __name__ == "__main__":
    main()
