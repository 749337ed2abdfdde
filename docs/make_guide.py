"""Makes the guide's pages for a browser, and one document of all of them for a PDF file.

make_guide.py --out FOLDER --book FILE.html

The pages keep the tree of docs/guide/. Beside them stand an index of words and messages, and all their sections
as a script for the search, which works from a file as well as from a server.
"""

import argparse
import html
import json
import os
import re
import shutil
from pathlib import Path

import markdown

DOCS = Path(__file__).resolve().parent
GUIDE = DOCS / "guide"

# The order of the pages. The book holds all but those for developers.
PARTS = [
    ("Begin", ["index", "getting-started", "which-module", "working", "beside", "no-report"]),
    ("The modules", ["linear-programming", "transportation", "assignment", "integer-linear-programming",
                     "shortest-route", "minimal-spanning-tree", "pert-cpm", "inventory", "waiting-lines",
                     "decision-analysis", "forecasting", "markov-processes"]),
    ("Look it up", ["keys", "samples", "glossary", "references", "word-index"]),
    ("For developers", ["developers/index", "developers/session-scripts", "developers/file-formats",
                        "developers/contributing", "developers/performance", "developers/quality"]),
]
DEVELOPERS = PARTS[-1][1]
WORD_INDEX = "word-index"
TAB = "\ue000"


class Page:
    """A page of the guide: its name is its path below the guide without the extension."""

    def __init__(self, name, source, body):
        self.name = name
        self.source = source
        self.body = body
        self.title = plain(re.search(r"<h1[^>]*>(.*?)</h1>", body, re.S).group(1))

    @property
    def depth(self):
        return "../" * self.name.count("/")


class Section:
    """What stands below a heading, as far as the next one."""

    def __init__(self, page, anchor, heading, body):
        self.page, self.anchor, self.heading = page, anchor, heading
        self.text = " ".join(word for word in plain(body).split() if not re.fullmatch(r"[-*]{3,}", word))

    @property
    def link(self):
        return f"{self.page.name}.html#{self.anchor}"


def plain(markup):
    return " ".join(html.unescape(re.sub(r"<[^>]*>", " ", re.sub(r"<!--.*?-->", "", markup, flags=re.S))).split())


def sources():
    found = {path.relative_to(GUIDE).with_suffix("").as_posix(): path for path in GUIDE.rglob("*.md")}
    for name in ("performance", "quality"):
        found["developers/" + name] = DOCS / (name + ".md")
    listed = {name for _, names in PARTS for name in names} - {WORD_INDEX}
    if listed != set(found):
        raise SystemExit(f"make_guide.py: the order of pages does not match: {sorted(listed ^ set(found))}")
    return found


def without_comments(text):
    """Comments tell tests where a figure comes from; they are no part of a page."""
    parts = re.split(r"(^```.*?^```$)", text, flags=re.S | re.M)
    return "".join(part if part.startswith("```") else re.sub(r"\s*<!--.*?-->", "", part, flags=re.S)
                   for part in parts)


def converted(text):
    # The converter takes one word behind the fence of a block; what follows it is for the tests.
    text = re.sub(r"^```([a-z]+) .*$", r"```\1", without_comments(text), flags=re.M)
    # It would make blanks of tabs, also within blocks.
    body = markdown.markdown(text.replace("\t", TAB), extensions=["tables", "toc", "fenced_code"]).replace(TAB, "\t")
    body = re.sub(r"<table>.*?</table>", lambda table: f'<div class="wide">{table.group(0)}</div>', body, flags=re.S)
    return re.sub(r'<p><img alt="([^"]*)" src="([^"]*)" ?/></p>', figure, body)


def figure(match):
    text, path = match.groups()
    return f'<figure><a href="{path}"><img alt="{text}" src="{path}"></a><figcaption>{text}</figcaption></figure>'


def relinked(name, source, body, pages):
    """Links to pages become links to what is made of them."""

    def target(match):
        attribute, link = match.groups()
        path, hash_mark, anchor = link.partition("#")
        if not path.endswith(".md") or "://" in link:
            return match.group(0)
        file = (source.parent / path).resolve()
        for other, its_source in pages.items():
            if its_source == file:
                relative = os.path.relpath(other, os.path.dirname(name) or ".")
                return f'{attribute}="{relative}.html{hash_mark}{anchor}"'
        raise SystemExit(f"make_guide.py: {source} leads to {link}, which is no page")

    return re.sub(r'(href)="([^"]*)"', target, body)


def sections_of(page):
    parts = re.split(r'<h([1-3]) id="([^"]*)">(.*?)</h\1>', page.body, flags=re.S)
    return [Section(page, parts[at + 1], plain(parts[at + 2]), parts[at + 3]) for at in range(1, len(parts), 4)]


# ---- the index ----

def words_of(glossary):
    """The words of the glossary, each with the anchor of its row."""
    return re.findall(r'<tr>\s*<td id="([^"]*)">(.*?)</td>', glossary.body, re.S)


def with_anchors(glossary):
    def row(match):
        word = plain(match.group(1))
        return f'<tr>\n<td id="word-{slug(word)}">{match.group(1)}</td>'

    glossary.body = re.sub(r"<tr>\s*<td>(.*?)</td>", row, glossary.body, flags=re.S)


def slug(text):
    return re.sub(r"[^a-z0-9]+", "-", text.lower()).strip("-")


def sought(word):
    """A pattern for a word of the glossary in running text: without its letter, also in the plural."""
    bare = re.sub(r"\s*\([^)]*\)", "", word)
    names = [re.escape(name.strip()) for name in bare.split(",")]
    return re.compile(r"\b(?:" + "|".join(names) + r")(?:s|es)?\b", re.I)


def places_of_word(word, sections):
    """The sections that use the word most, in the order of the pages."""
    pattern = sought(word)
    counts = [(len(pattern.findall(section.heading)) * 5 + len(pattern.findall(section.text)), section)
              for section in sections]
    best = sorted((entry for entry in counts if entry[0] > 0), key=lambda entry: -entry[0])[:4]
    chosen = {id(section) for _, section in best}
    return [section for section in sections if id(section) in chosen]


def messages_of(page):
    """The messages that a page explains in tables headed "message": (text, anchor)."""
    found = []
    for at, table in enumerate(re.findall(r"<th>message</th>.*?</table>", page.body, re.S)):
        for cell in re.findall(r"<tr>\s*<td>(.*?)</td>", table, re.S):
            without_title = re.sub(r'\(title.*', "", plain(cell))
            found += [text.strip() for text in re.findall(r'"([^"]{4,})"', without_title)]
    return found


def index_entries(pages, sections):
    glossary = next(page for page in pages if page.name == "glossary")
    used = [section for section in sections
            if section.page.name not in DEVELOPERS and section.page.name not in ("glossary", "references", "samples",
                                                                                 "index", "which-module")]
    words = []
    for anchor, word in words_of(glossary):
        words.append((plain(word), [(f"glossary.html#{anchor}", "the words")] +
                      [(section.link, place_name(section)) for section in places_of_word(plain(word), used)]))
    messages = {}
    for page in pages:
        if page.name in DEVELOPERS or page.name == "no-report":
            continue
        anchor = message_anchor(page)
        for text in messages_of(page):
            places = messages.setdefault(text, [])
            if (page.name, anchor) not in [place[:2] for place in places]:
                places.append((page.name, anchor, page.title))
    return (sorted(words, key=lambda entry: entry[0].lower()),
            sorted(((text, [(f"{name}.html#{anchor}", title) for name, anchor, title in places])
                    for text, places in messages.items()), key=lambda entry: entry[0].lower()))


def message_anchor(page):
    before = page.body.split("<th>message</th>")
    if len(before) < 2:
        return ""
    anchors = re.findall(r'<h[1-3] id="([^"]*)">', before[-2] if len(before) == 2 else "".join(before[:-1]))
    return anchors[-1]


def place_name(section):
    return section.page.title if section.heading == section.page.title else f"{section.page.title}: {section.heading}"


def index_page(words, messages):
    lines = ['<h1 id="index">Index</h1>', '<h2 id="words-a-to-z">Words</h2>', '<dl class="index">']
    for word, places in words:
        lines.append(f"<dt>{html.escape(word)}</dt><dd>{links(places)}</dd>")
    lines += ["</dl>", '<h2 id="messages-a-to-z">Messages</h2>', '<dl class="index">']
    for text, places in messages:
        lines.append(f"<dt>{html.escape(text)}</dt><dd>{links(places)}</dd>")
    lines.append("</dl>")
    return Page(WORD_INDEX, None, "\n".join(lines))


def links(places):
    return " ".join(f'<a href="{html.escape(link)}">{html.escape(name)}</a>' for link, name in places)


# ---- the pages ----

def navigation(page, titles):
    lines = []
    for part, names in PARTS:
        inside = page.name in names
        developers = names is DEVELOPERS
        lines.append(f'<details class="part"{" open" if inside or not developers else ""}><summary>{part}</summary><ul>')
        for name in names:
            here = ' aria-current="page"' if name == page.name else ""
            lines.append(f'<li><a href="{page.depth}{name}.html"{here}>{html.escape(titles[name])}</a></li>')
        lines.append("</ul></details>")
    return "\n".join(lines)


def neighbours(page, titles):
    order = [name for _, names in PARTS for name in names]
    at = order.index(page.name)
    lines = ['<nav class="neighbours" aria-label="Pages before and behind">']
    if at > 0:
        lines.append(f'<a rel="prev" href="{page.depth}{order[at - 1]}.html">← {html.escape(titles[order[at - 1]])}</a>')
    if at + 1 < len(order):
        lines.append(f'<a rel="next" href="{page.depth}{order[at + 1]}.html">{html.escape(titles[order[at + 1]])} →</a>')
    return "\n".join(lines + ["</nav>"])


def contents(page):
    """The headings of a long page."""
    headings = re.findall(r'<h2 id="([^"]*)">(.*?)</h2>', page.body, re.S)
    if len(headings) < 4 or page.name in ("index", WORD_INDEX):
        return ""
    items = "".join(f'<li><a href="#{anchor}">{text}</a></li>' for anchor, text in headings)
    return f'<nav class="contents" aria-label="On this page"><ul>{items}</ul></nav>'


def document(page, titles):
    heading_ends = page.body.index("</h1>") + len("</h1>")
    body = page.body[:heading_ends] + contents(page) + page.body[heading_ends:]
    return f"""<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>{html.escape(page.title)} - Vantrel</title>
<link rel="stylesheet" href="{page.depth}guide.css">
</head>
<body data-root="{page.depth}">
<a class="skip" href="#content">To the text</a>
<header><a href="{page.depth}index.html">Vantrel</a><div id="search"></div></header>
<div class="columns">
<nav class="parts" aria-label="Pages">
{navigation(page, titles)}
</nav>
<main id="content">
{body}
{neighbours(page, titles)}
</main>
</div>
<script src="{page.depth}sections.js"></script>
<script src="{page.depth}search.js"></script>
</body>
</html>
"""


# ---- the book ----

def chapter_id(name):
    return "page-" + name


def in_book(page):
    """A page as a chapter: its anchors carry the page's name, links between pages lead within the book, and those
    to pages that it does not hold are text."""
    here = chapter_id(page.name)

    def target(match):
        link, text = match.groups()
        path, _, anchor = link.partition("#")
        if "://" in path:
            return match.group(0)
        other = path.removesuffix(".html") or page.name
        if other in DEVELOPERS:
            return text
        return f'<a href="#{chapter_id(other)}{"--" + anchor if anchor else ""}">{text}</a>'

    body = re.sub(r'<figure><a [^>]*>(<img[^>]*>)</a>', r"<figure>\1", page.body)
    body = re.sub(r'<a href="([^"]*)">(.*?)</a>', target, body, flags=re.S)
    body = re.sub(r' id="([^"]*)"', rf' id="{here}--\1"', body)
    return f'<section class="chapter" id="{here}">\n{body}\n</section>'


def book(pages, titles, version):
    by_name = {page.name: page for page in pages}
    lines = [f"""<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<title>Vantrel - The Guide</title>
</head>
<body>
<section class="cover"><p class="name">Vantrel</p><p class="what">The Guide</p>
<p class="version">Version {html.escape(version)}</p></section>
<nav class="toc"><h1>Contents</h1>"""]
    parts = PARTS[:-1]
    for part, names in parts:
        lines.append(f"<h2>{part}</h2><ul>")
        lines += [f'<li><a href="#{chapter_id(name)}">{html.escape(titles[name])}</a></li>'
                  for name in names if name != "index"]
        lines.append("</ul>")
    lines.append("</nav>")
    for part, names in parts:
        lines.append(f'<section class="part"><h1 class="part-title">{part}</h1></section>')
        lines += [in_book(by_name[name]) for name in names]
    return "\n".join(lines + ["</body>", "</html>", ""])


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--out", type=Path, required=True)
    parser.add_argument("--book", type=Path, required=True)
    parser.add_argument("--version", required=True)
    arguments = parser.parse_args()

    found = sources()
    pages = [Page(name, found[name], relinked(name, found[name], converted(found[name].read_text("utf-8")), found))
             for _, names in PARTS for name in names if name != WORD_INDEX]
    with_anchors(next(page for page in pages if page.name == "glossary"))
    sections = [section for page in pages for section in sections_of(page)]
    at = [name for _, names in PARTS for name in names].index(WORD_INDEX)
    pages.insert(at, index_page(*index_entries(pages, sections)))
    titles = {page.name: page.title for page in pages}

    (arguments.out / "developers").mkdir(parents=True, exist_ok=True)
    for page in arguments.out.rglob("*.html"):  # of texts that have moved since
        page.unlink()
    for page in pages:
        (arguments.out / (page.name + ".html")).write_text(document(page, titles), "utf-8")
    entries = [[section.page.name + ".html#" + section.anchor, section.page.title, section.heading, section.text]
               for section in sections]
    (arguments.out / "sections.js").write_text(
        "const SECTIONS = " + json.dumps(entries, ensure_ascii=False, separators=(",", ":")) + ";\n", "utf-8")
    for name in ("guide.css", "search.js"):
        shutil.copy(DOCS / name, arguments.out / name)
    shutil.copy(DOCS / "performance.svg", arguments.out / "developers/performance.svg")
    shutil.rmtree(arguments.out / "pictures", ignore_errors=True)
    shutil.copytree(GUIDE / "pictures", arguments.out / "pictures")
    arguments.book.write_text(book(pages, titles, arguments.version), "utf-8")


if __name__ == "__main__":
    main()
