"""Finds in the sources the places where a small change can be made, and writes each source with all of its changes
in it: which one is active is told at run time (see change.h).

A place is a comparison (its boundary), + or -, * or /, && or ||, a number or a named number (one more), or a
statement (left out). What the compiler computes, such as array bounds and case labels, has no place, nor have
assertions and the first values of a record's members.
"""

import dataclasses
import re

import clang.cindex
from clang.cindex import CursorKind, TypeKind

OTHER = {
    "<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==",
    "+": "-", "-": "+", "*": "/", "/": "*", "&&": "||", "||": "&&",
}
COMPARISONS = {"<", "<=", ">", ">=", "==", "!="}
PLAIN = {
    TypeKind.BOOL, TypeKind.CHAR_U, TypeKind.CHAR_S, TypeKind.UCHAR, TypeKind.SCHAR, TypeKind.SHORT, TypeKind.USHORT,
    TypeKind.INT, TypeKind.UINT, TypeKind.LONG, TypeKind.ULONG, TypeKind.LONGLONG, TypeKind.ULONGLONG,
    TypeKind.FLOAT, TypeKind.DOUBLE, TypeKind.LONGDOUBLE,
}
COMPARABLE = PLAIN | {TypeKind.ENUM, TypeKind.POINTER, TypeKind.NULLPTR}
NUMERALS = {CursorKind.INTEGER_LITERAL, CursorKind.FLOATING_LITERAL}
CONSTANT = {CursorKind.ENUM_DECL, CursorKind.STATIC_ASSERT, CursorKind.FIELD_DECL}
# Statements whose own parts are statements, each with the parts that are none (None: all but the last one).
BODIES = {
    CursorKind.COMPOUND_STMT: 0, CursorKind.LABEL_STMT: 0, CursorKind.DEFAULT_STMT: 0, CursorKind.CASE_STMT: 1,
    CursorKind.FOR_STMT: None, CursorKind.CXX_FOR_RANGE_STMT: None, CursorKind.WHILE_STMT: None,
    CursorKind.DO_STMT: 0, CursorKind.IF_STMT: 1,
}


@dataclasses.dataclass
class Place:
    """Where a change is made: the pieces of code, as (offset, text, closes), that let it be active or not."""

    key: str
    where: str
    what: str
    pieces: list


class Finder:
    """The places of one source, in the order of its syntax tree: what is around comes before what is within."""

    def __init__(self, path, arguments, root):
        self.path = str(path)
        self.root = root
        self.code = path.read_bytes()
        self.places = []
        self.seen = set()
        unit = clang.cindex.Index.create().parse(self.path, args=arguments)
        for cursor in unit.cursor.get_children():
            if self.is_here(cursor):
                self.visit(cursor)

    def is_here(self, cursor):
        file = cursor.extent.start.file
        return file is not None and file.name == self.path

    def text(self, start, end):
        return self.code[start:end].decode()

    def add(self, cursor, what, pieces, told=None):
        """Implicit copies of the same code stand in the tree as well: each place counts once. A place that is told
        elsewhere changes together with all others that are told there."""
        start, end = extent(cursor)
        once = (start, end, cursor.kind)
        if once in self.seen:
            return
        self.seen.add(once)
        where = self.line_of(told or cursor)
        key = f"{where} {what}" if told else f"{where} {start} {end}"
        self.places.append(Place(key, where, what, pieces))

    def line_of(self, cursor):
        start = cursor.extent.start
        return f"{start.file.name[len(self.root):]}:{start.line}"

    def visit(self, cursor):
        if cursor.kind in CONSTANT or is_constant(cursor):
            return
        children = [child for child in cursor.get_children() if self.is_here(child)]
        if cursor.kind == CursorKind.BINARY_OPERATOR and len(children) == 2:
            self.operator(cursor, *children)
        elif cursor.kind in NUMERALS:
            self.numeral(cursor)
        elif cursor.kind == CursorKind.DECL_REF_EXPR:
            self.named_number(cursor)
        if cursor.kind in BODIES:
            for statement in bodies(cursor, children):
                self.statement(statement)
        begins_constant = cursor.kind == CursorKind.CASE_STMT or self.is_constant_if(cursor)
        for child in children[1:] if begins_constant else children:
            self.visit(child)

    def is_constant_if(self, cursor):
        start, end = extent(cursor)
        return cursor.kind == CursorKind.IF_STMT and re.match(r"if\s+constexpr", self.text(start, end))

    def operator(self, cursor, left, right):
        (start, middle), (behind, end) = extent(left), extent(right)
        sign = re.sub(r"/\*.*?\*/|//.*", "", self.text(middle, behind)).strip() if middle <= behind else ""
        if sign not in OTHER:
            return
        kinds = {left.type.get_canonical().kind, right.type.get_canonical().kind}
        what = f"{sign} -> {OTHER[sign]}"
        if sign in ("&&", "||"):
            # a && b is !(!a || !b), and the other way round.
            flip = "change::On<@>() != "
            self.add(cursor, what, [(start, f"({flip}(({flip}bool(", False), (middle, "))", True),
                                    (behind, f"({flip}bool(", False), (end, "))))", True)])
        elif kinds <= PLAIN or (sign in COMPARISONS and kinds <= COMPARABLE) or (
            sign in "+-" and left.type.get_canonical().kind == TypeKind.POINTER
            and right.type.get_canonical().kind in PLAIN
        ):
            self.add(cursor, what, [(start, "change::Left<@>(", False), (middle, ")", True)])

    def numeral(self, cursor):
        start, end = extent(cursor)
        in_type = self.code[:start].rstrip().endswith(b",") and re.match(rb"\s*>[^=>]", self.code[end:end + 9])
        if re.fullmatch(r"[\d.'][\w.'+-]*", self.text(start, end)) and not in_type:
            self.add(cursor, f"{self.text(start, end)} + 1",
                     [(start, "change::Number<@>(", False), (end, ")", True)])

    def named_number(self, cursor):
        """The uses of a constant change together."""
        constant = cursor.referenced
        if constant is None or not is_named_number(constant, self.root):
            return
        start, end = extent(cursor)
        self.add(cursor, f"{constant.spelling} + 1", [(start, "change::Number<@>(", False), (end, ")", True)], constant)

    def statement(self, cursor):
        start, end = extent(cursor)
        closing = re.compile(rb"\s*;").match(self.code, end)
        if closing and not self.code.startswith(b"assert(", start):
            self.add(cursor, "left out", [(start, "{ if (change::Kept<@>()) ", False), (closing.end(), " }", True)])


def extent(cursor):
    return cursor.extent.start.offset, cursor.extent.end.offset


def bodies(cursor, children):
    first = BODIES[cursor.kind]
    parts = children[-1:] if first is None else children[first:]
    return [part for part in parts if part.kind.is_expression()]


def is_constant(cursor):
    """Whether the compiler computes what is declared here."""
    if cursor.kind != CursorKind.VAR_DECL:
        return False
    words = [token.spelling for token in cursor.get_tokens()]
    head = words[: words.index("=")] if "=" in words else words
    return "constexpr" in head or "constinit" in head


def is_named_number(cursor, root):
    """A constant of the project whose value is written there as a number."""
    if cursor.kind != CursorKind.VAR_DECL or cursor.location.file is None:
        return False
    if not cursor.location.file.name.startswith(root) or not is_constant(cursor):
        return False
    if cursor.type.get_canonical().kind not in PLAIN - {TypeKind.BOOL}:
        return False
    words = [token.spelling for token in cursor.get_tokens()]
    value = "".join(words[words.index("=") + 1:]) if "=" in words else ""
    return bool(re.fullmatch(r"-?[\d.][\w.'+-]*", value))


def written(code, places, number_of):
    """The code with all places in it."""
    pieces = []
    for order, place in enumerate(places):
        for offset, text, closes in place.pieces:
            # At one offset: what closes, from within, then what opens, from without.
            rank = (offset, 0, -order) if closes else (offset, 1, order)
            pieces.append((rank, text.replace("@", str(number_of[place.key])).encode()))
    parts, at = [], 0
    for (offset, _, _), text in sorted(pieces):
        parts += [code[at:offset], text]
        at = offset
    return b"".join(parts + [code[at:]])
