"""Finds the places of a C++ source where a small fault can be made, and how each could look."""

import re
from dataclasses import dataclass, field

from clang.cindex import Config, CursorKind, Index, TypeKind

Config.set_compatibility_check(False)

LOOPS = (CursorKind.WHILE_STMT, CursorKind.FOR_STMT)
CONSTANT_PLACES = (CursorKind.STATIC_ASSERT, CursorKind.ENUM_DECL)
FUNCTIONS = (CursorKind.FUNCTION_DECL, CursorKind.CXX_METHOD, CursorKind.CONSTRUCTOR, CursorKind.DESTRUCTOR,
             CursorKind.CONVERSION_FUNCTION)
REFERENCES = (TypeKind.LVALUEREFERENCE, TypeKind.RVALUEREFERENCE)
WHOLE_NUMBERS = (TypeKind.CHAR_S, TypeKind.SCHAR, TypeKind.UCHAR, TypeKind.SHORT, TypeKind.USHORT, TypeKind.INT,
                 TypeKind.UINT, TypeKind.LONG, TypeKind.ULONG, TypeKind.LONGLONG, TypeKind.ULONGLONG)
FRACTIONS = (TypeKind.FLOAT, TypeKind.DOUBLE)
NEIGHBOURS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}
ON = "@on@"
SMALL = 16  # Constants up to here are changed by one, larger ones to twice or half.


@dataclass
class Site:
    """A stretch of a source (offsets in bytes) and the texts that could stand there instead."""
    begin: int
    end: int
    variants: list = field(default_factory=list)  # Pairs: what is shown, what is compiled; ON asks whether the fault is on.


class Finder:
    def __init__(self, path, source):
        self.path = path
        self.source = source
        self.sites = {}
        self.last_throws = set()  # Where those throws begin that a procedure ends with.

    def run(self, arguments):
        unit = Index.create().parse(self.path, arguments)
        for cursor in unit.cursor.get_children():
            if cursor.location.file and cursor.location.file.name == self.path:
                self.visit(cursor, None)
        return sorted(self.sites.values(), key=lambda site: (site.begin, -site.end))

    def is_here(self, cursor):
        """Not in a header: defaults of arguments stand where their procedure is declared."""
        return cursor.extent.start.file is not None and cursor.extent.start.file.name == self.path

    def text(self, cursor):
        return self.between(cursor.extent.start.offset, cursor.extent.end.offset)

    def between(self, begin, end):
        return self.source[begin:end].decode("utf-8", "replace")

    def add(self, cursor, shown, compiled):
        text = self.text(cursor)
        if not self.is_here(cursor) or not text or "\n#" in text or ("\n" in text and "//" in text):
            return
        place = (cursor.extent.start.offset, cursor.extent.end.offset)
        variants = self.sites.setdefault(place, Site(*place)).variants
        if shown not in [known for known, _ in variants]:
            variants.append((shown, compiled))

    def choose(self, cursor, other):
        """The fault is another expression of the same type."""
        self.add(cursor, other, f"({ON} ? {other} : {self.text(cursor)})")

    def calculate(self, cursor, other):
        """The fault is another value, made to be of the same type."""
        text = self.text(cursor)
        self.add(cursor, other, f"({ON} ? static_cast<std::decay_t<decltype({text})>>({other}) : {text})")

    # The walk

    def visit(self, cursor, function):
        kind, children = cursor.kind, list(cursor.get_children())
        if kind in CONSTANT_PLACES or self.is_constant(cursor):
            return
        if kind in FUNCTIONS:
            function = cursor
            self.note_last_throw(children)
        elif kind == CursorKind.LAMBDA_EXPR:
            function = None
        if kind in LOOPS and children:
            children = [child for child in children if not self.is_endless(child)]
        self.offer(cursor, children, function)
        for child in self.visited(cursor, children):
            self.visit(child, function)

    def visited(self, cursor, children):
        if cursor.kind == CursorKind.CASE_STMT or self.text(cursor).startswith("if constexpr"):
            return children[1:]
        if cursor.kind in (CursorKind.VAR_DECL, CursorKind.FIELD_DECL):
            return children[-1:] if children and children[-1].kind.is_expression() else []
        if cursor.kind in (CursorKind.DECL_REF_EXPR, CursorKind.MEMBER_REF_EXPR):  # Numbers here are template arguments.
            return [child for child in children if child.kind != CursorKind.INTEGER_LITERAL]
        return children

    # A procedure that comes to its end without a result may do anything: no fault lets it.

    def note_last_throw(self, children):
        statements = list(children[-1].get_children()) if children else []
        if statements and self.text(statements[-1]).startswith("throw "):
            self.last_throws.add(statements[-1].extent.start.offset)

    def is_endless(self, condition):
        return condition.kind == CursorKind.CXX_BOOL_LITERAL_EXPR and self.text(condition) == "true"

    def is_constant(self, cursor):
        if cursor.kind not in FUNCTIONS + (CursorKind.VAR_DECL,):
            return False
        head = self.between(cursor.extent.start.offset, cursor.location.offset)
        return re.search(r"\bconst(expr|eval)\b", head) is not None

    def offer(self, cursor, children, function):
        kind = cursor.kind
        if kind in (CursorKind.COMPOUND_STMT, CursorKind.DEFAULT_STMT):
            self.drop_statements(children)
        elif kind == CursorKind.CASE_STMT or kind in LOOPS or kind == CursorKind.CXX_FOR_RANGE_STMT:
            self.drop_statements(children[-1:])
        if kind == CursorKind.IF_STMT:
            self.offer_if(children)
        elif kind in LOOPS:
            self.offer_loop(cursor, children)
        elif kind == CursorKind.CONDITIONAL_OPERATOR:
            self.negate(children[0])
        elif kind == CursorKind.BINARY_OPERATOR and len(children) == 2:
            self.offer_operator(cursor, *children)
        elif kind == CursorKind.RETURN_STMT:
            self.offer_return(cursor, children, function)
        elif kind in (CursorKind.BREAK_STMT, CursorKind.CONTINUE_STMT):
            self.drop_jump(cursor)
        elif kind == CursorKind.CALL_EXPR:
            self.offer_call(cursor)
        else:
            self.offer_constant(cursor)

    # Conditions

    def negate(self, cursor):
        text = self.text(cursor)
        self.add(cursor, f"!({text})", f"({ON} ? !({text}) : static_cast<bool>({text}))")

    def offer_if(self, children):
        if not children[0].kind.is_expression():  # A statement or a variable stands first.
            first = children.pop(0)
            if not children or children[0].extent.start.offset < first.extent.end.offset:
                return
        self.negate(children[0])
        self.drop_statements(children[1:])

    def offer_loop(self, cursor, children):
        """A loop is not entered; the other way round it might never end."""
        conditions = [child for child in children[:-1] if child.kind.is_expression() and is_truth(child)]
        if conditions:
            self.choose(conditions[0], "false")

    def offer_operator(self, cursor, left, right):
        sign = self.between(left.extent.end.offset, right.extent.start.offset).strip()
        if sign in ("&&", "||"):
            self.calculate(cursor, self.text(left))
            self.calculate(cursor, self.text(right))
        elif sign in NEIGHBOURS:
            self.choose(cursor, f"{self.text(left)} {NEIGHBOURS[sign]} {self.text(right)}")

    def offer_call(self, cursor):
        text = self.text(cursor)
        for name, other in (("std::min", "std::max"), ("std::max", "std::min")):
            if re.match(name + r"\b", text):
                self.choose(cursor, other + text[len(name):])

    # Statements

    def drop_statements(self, statements):
        for statement in statements:
            text = self.text(statement)
            if statement.extent.start.offset in self.last_throws:
                continue
            if statement.kind.is_expression() and ".reserve(" not in text:  # That one only saves time.
                self.add(statement, "", f"({ON} ? static_cast<void>(0) : static_cast<void>({text}))")

    def drop_jump(self, cursor):
        self.add(cursor, "", f"({{ if (!{ON}) {self.text(cursor)}; }})")

    def offer_return(self, cursor, children, function):
        if not children:
            self.drop_jump(cursor)
        elif function is None or function.result_type.kind not in REFERENCES:
            self.offer_result(cursor, children[0], function)

    def offer_result(self, cursor, result, function):
        text, kind = self.text(result), result.type.get_canonical().kind
        if is_truth(result):
            self.negate(result)
        elif kind in WHOLE_NUMBERS:
            self.calculate(result, f"{text} + 1")
        elif kind == TypeKind.RECORD and function is not None and not text.endswith(("{}", "()", "nullopt")):
            self.add(cursor, "return {}", f"{{ if ({ON}) return {{}}; {self.text(cursor)}; }}")

    # Constants

    def offer_constant(self, cursor):
        kind, text = cursor.kind, self.text(cursor)
        if kind == CursorKind.INTEGER_LITERAL and text[:1].isdigit():
            self.change_number(cursor, whole_number(text))
        elif kind == CursorKind.CHARACTER_LITERAL and text.startswith("'"):
            self.change_number(cursor, 0)
        elif kind == CursorKind.FLOATING_LITERAL:
            self.calculate(cursor, f"{text} * 2 + 1")
        elif kind == CursorKind.CXX_BOOL_LITERAL_EXPR:
            self.choose(cursor, "true" if text == "false" else "false")
        elif kind == CursorKind.STRING_LITERAL and text.startswith('"') and text.endswith('"'):
            self.choose(cursor, '"?"' if text == '""' else '""')
        elif kind == CursorKind.DECL_REF_EXPR:
            self.offer_named_constant(cursor)

    def offer_named_constant(self, cursor):
        named, kind = cursor.referenced, cursor.type.get_canonical().kind
        if named is None or named.kind != CursorKind.VAR_DECL or kind not in WHOLE_NUMBERS + FRACTIONS:
            return
        tokens = [token.spelling for token in named.get_tokens()]
        if "constexpr" in tokens:
            self.change_number(cursor, whole_number(tokens[-1]))

    def change_number(self, cursor, value):
        text = self.text(cursor)
        changes = ["+ 1", "- 1"] if value is not None and value <= SMALL else ["* 2", "/ 2"]
        for change in changes[:1] if value == 0 else changes:
            self.calculate(cursor, f"{text} {change}")


def is_truth(cursor):
    return cursor.type.get_canonical().kind == TypeKind.BOOL


def whole_number(text):
    """The value of a literal; nothing for what is none."""
    match = re.fullmatch(r"(0[xX][0-9a-fA-F]+|[0-9]+)[uUlLzZ]*", text.replace("'", ""))
    return int(match[1], 0 if match[1][:2] in ("0x", "0X") else 10) if match else None


def find_sites(path, arguments):
    """The sites of one source, in order. `arguments` are the compiler's."""
    with open(path, "rb") as file:
        source = file.read()
    return Finder(path, source).run(arguments)
