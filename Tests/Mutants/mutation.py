"""Finds the places in the code where a small change can be tried, and writes code with all changes.

Every change has a number, and the program learns at run time which change it has to make:
`a < b` becomes `(isMutant(7) ? a <= b : a < b)`. So one build serves all changes.

Not changed:
- logs and assertions: no user meets them
- `reserve` and `squeeze`: without them the outcome is the same, only slower
- values that only the compiler computes: labels of a switch, enumerators, static assertions,
  arguments of templates
- the step of a loop: the loop would never end, which every test notices
- the order of the arguments of `min` and `max`: the outcome is the same
- the order of the two ends of a range: every test would fail
- the text that a macro expands to: it is not ours
"""

import bisect
import collections
import re

from clang import cindex
from clang.cindex import CursorKind, TypeKind

# A change of the code, as a person reads it.
Mutant = collections.namedtuple("Mutant", "path line offset before after")
# A difference of the copy at one stretch of a file. An edit without a mutant is part of every run:
# it makes the program compute the constant at `span` at its start, so that the constant can be
# changed.
Edit = collections.namedtuple("Edit", "path start end form at_run mutant after span")
# The forms of an edit. If two are at the same stretch, the later one in this list is inside.
FORMS = ("rewritten", "removed", "negated", "either")

FLIPPED = {
    "<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"),
    "==": ("!=",), "!=": ("==",), "&&": ("||",), "||": ("&&",),
}
ARITHMETIC = {"+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "&": "|", "|": "&"}
# Types for which the order of a sum counts.
SEQUENCE = re.compile(r"\bQ(String|ByteArray|Latin1String|Char|List)|\bbasic_string")

QUIET = re.compile(
    rb"\bq(C?(Debug|Info|Warning|Critical)|Fatal)\b|\bQ_|\bassert\b|\b(reserve|squeeze)\(")
BEGIN = re.compile(rb"begin\(\w*\)$")
MACRO = re.compile(rb"[A-Z][A-Z0-9_]+\(")
COMMENT = re.compile(rb"//[^\n]*|/\*.*?\*/", re.DOTALL)
TEXT = re.compile(rb'(u8|u|U|L)?"(?:\\.|[^"\\\n])*"(\w*)')
TEXTS = re.compile(rb'(?:(?:u8|u|U|L)?"(?:\\.|[^"\\\n])*"\w*\s*)+')
CHARACTER = re.compile(rb"(?:u8|u|U|L)?'(?:\\.[^']*|[^'\\\n])+'")
NUMBER = re.compile(rb"0[xX][\da-fA-F']+|(?:\d[\d']*\.?[\d']*|\.\d+)(?:[eE][-+]?\d+)?")
SUFFIX = re.compile(rb"\w*")

LITERALS = {
    CursorKind.INTEGER_LITERAL, CursorKind.FLOATING_LITERAL, CursorKind.STRING_LITERAL,
    CursorKind.CHARACTER_LITERAL, CursorKind.CXX_BOOL_LITERAL_EXPR,
}
FUNCTIONS = {
    CursorKind.FUNCTION_DECL, CursorKind.CXX_METHOD, CursorKind.CONSTRUCTOR,
    CursorKind.CONVERSION_FUNCTION, CursorKind.FUNCTION_TEMPLATE, CursorKind.DESTRUCTOR,
}
CLASSES = {CursorKind.CLASS_DECL, CursorKind.STRUCT_DECL, CursorKind.CLASS_TEMPLATE}
WRAPPERS = {CursorKind.UNEXPOSED_EXPR, CursorKind.UNARY_OPERATOR}
# The kinds of nodes that hold statements, and the index of the child that is their first statement.
BODIES = {
    CursorKind.COMPOUND_STMT: 0, CursorKind.IF_STMT: 1, CursorKind.CASE_STMT: 1,
    CursorKind.DEFAULT_STMT: 0, CursorKind.WHILE_STMT: 1, CursorKind.CXX_FOR_RANGE_STMT: -1,
    CursorKind.FOR_STMT: -1, CursorKind.DO_STMT: 0,
}


def _range(cursor):
    return cursor.extent.start.offset, cursor.extent.end.offset


def _in_one_line(code):
    return b" ".join(COMMENT.sub(b"", code).split())


def _is_number(cursor):
    kind = cursor.type.get_canonical().kind
    return TypeKind.BOOL.value <= kind.value <= TypeKind.LONGDOUBLE.value


def _plain(cursor):
    """The expression inside the nodes that the compiler wraps around it."""
    while cursor.kind == CursorKind.UNEXPOSED_EXPR:
        children = list(cursor.get_children())
        if len(children) != 1 or _range(children[0]) != _range(cursor):
            break
        cursor = children[0]
    return cursor


def _operator(children, start, end, text):
    """The operator of an expression, and its two operands."""
    operands = sorted((child for child in children
                       if child.kind.is_expression() and _range(child)[0] < _range(child)[1]),
                      key=_range)
    if len(operands) < 2 or _range(operands[0])[0] != start or _range(operands[-1])[1] != end:
        return None
    left, right = operands[0], operands[-1]
    between = _in_one_line(text[_range(left)[1]:_range(right)[0]]).decode(errors="replace")
    return (between, left, right) if between in FLIPPED or between in ARITHMETIC else None


class Reader:
    """Reads one file as the compiler understood it."""

    def __init__(self, path, text):
        self.path, self.text = path, text
        self.edits = []
        self._lines = [match.end() for match in re.finditer(b"\n", text)]

    def code(self, cursor):
        start, end = _range(cursor)
        return _in_one_line(self.text[start:end])

    def visit(self, cursor, at_run=False):
        """`at_run` is true in code that the compiler may run, too."""
        start, end = _range(cursor)
        kind = cursor.kind
        if (kind in (CursorKind.STATIC_ASSERT, CursorKind.ENUM_DECL)
                or QUIET.match(self.text, start) or MACRO.match(self.text, start)):
            return
        if kind in FUNCTIONS:
            head = self.text[start:end].partition(b"{")[0]
            at_run = re.search(rb"\b(constexpr|consteval)\b", head) is not None
        elif kind == CursorKind.FIELD_DECL:
            at_run = True
        children = list(cursor.get_children())
        self._read_statements(kind, children, at_run)
        self._read_expression(cursor, children, at_run)
        if kind == CursorKind.VAR_DECL:
            self._read_constant(cursor)
        skipped = self._skipped(kind, children)
        for child in children:
            if child not in skipped:
                self.visit(child, at_run)

    def _add(self, form, whole, after, at_run, parts=()):
        """`parts` are the stretches to replace, with their new code, if the change is not one
        stretch."""
        start, end = whole
        before = _in_one_line(self.text[start:end])
        line = bisect.bisect_right(self._lines, start) + 1
        mutant = Mutant(self.path, line, start, before.decode(), after.decode())
        for first, last, code in parts or ((start, end, after),):
            self.edits.append(Edit(self.path, first, last, form, at_run, mutant, code, None))

    def _skipped(self, kind, children):
        if kind == CursorKind.CASE_STMT:
            return children[:1]
        if kind == CursorKind.FOR_STMT:
            return [child for child in children[:-1]
                    if self.text[_range(child)[1]:].lstrip()[:1] == b")"]
        if kind == CursorKind.IF_STMT:
            before = self.text[:_range(children[0])[0]]
            return children[:1] if before.endswith(b"if constexpr (") else []
        return []

    def _read_statements(self, kind, children, at_run):
        """A statement whose value is not used can be removed."""
        if kind not in BODIES:
            return
        for child in children[BODIES[kind]:]:
            start, end = _range(child)
            code = self.text[start:end]
            if (child.kind.is_expression() and self.text[end:end + 1] == b";"
                    and not QUIET.search(code) and not MACRO.match(code)):
                self._add("removed", (start, end + 1), b"", at_run)

    def _read_expression(self, cursor, children, at_run):
        kind = cursor.kind
        if kind in LITERALS or cursor.spelling.startswith('operator""'):
            self._read_literal(cursor, at_run)
        elif kind == CursorKind.INIT_LIST_EXPR:
            self._read_arguments(children, at_run)
        elif kind == CursorKind.CALL_EXPR and cursor.spelling not in ("min", "max"):
            self._read_arguments(list(cursor.get_arguments()), at_run)
        if condition := self._condition(kind, children):
            self._read_truth(condition, at_run)
        if kind == CursorKind.RETURN_STMT and children:
            if children[0].type.get_canonical().kind == TypeKind.BOOL:
                self._read_truth(children[0], at_run)
        start, end = _range(cursor)
        if kind == CursorKind.UNARY_OPERATOR and re.match(b"!(?!=)", self.text[start:start + 2]):
            self._add("negated", (start, end), self.code(cursor)[1:], at_run)
        if kind.is_expression():
            self._read_operator(cursor, children, at_run)

    def _condition(self, kind, children):
        if kind == CursorKind.CONDITIONAL_OPERATOR:
            return children[0]
        if kind not in (CursorKind.IF_STMT, CursorKind.WHILE_STMT):
            return None
        declared = [_range(child) for child in children if not child.kind.is_expression()]
        for child in children[:-1]:
            start, end = _range(child)
            before, after = self.text[:start].rstrip()[-1:], self.text[end:].lstrip()[:1]
            if (child.kind.is_expression() and before in b"(;" and after == b")"
                    and not any(first <= start < last for first, last in declared)):
                return child
        return None

    def _read_truth(self, cursor, at_run):
        """Negates the expression, unless its operator or its literal is flipped anyway."""
        code = self.code(cursor)
        if code in (b"true", b"false") or code.startswith(b"!") or MACRO.match(code):
            return
        if not self._is_comparison(cursor, *_range(cursor)):
            self._add("negated", _range(cursor), b"!(" + code + b")", at_run)

    def _is_comparison(self, cursor, start, end):
        """Whether this is a comparison. The compiler may have wrapped it, for example to make `!=`
        from `==`."""
        children = list(cursor.get_children())
        found = _operator(children, start, end, self.text)
        if found:
            return found[0] in FLIPPED
        return cursor.kind in WRAPPERS and any(
            self._is_comparison(child, start, end) for child in children)

    def _read_operator(self, cursor, children, at_run):
        found = _operator(children, *_range(cursor), self.text)
        if not found:
            return
        operator, left, right = found
        first, second = self.code(left), self.code(right)
        types = [operand.type.get_canonical().spelling for operand in (left, right)]
        if operator in FLIPPED:
            afters = [b"%b %b %b" % (first, other.encode(), second) for other in FLIPPED[operator]]
        elif operator == "+" and any(map(SEQUENCE.search, types)):
            afters = [b"(%b) + (%b)" % (second, first)]
        elif operator in "+-" or (_is_number(left) and _is_number(right)):
            afters = [b"%b %b %b" % (first, ARITHMETIC[operator].encode(), second)]
        else:
            afters = []
        for after in afters:
            self._add("either", _range(cursor), after, at_run)

    def _read_literal(self, cursor, at_run):
        start, _ = _range(cursor)
        text = self.text
        for word, other in ((b"true", b"false"), (b"false", b"true")):
            if text.startswith(word, start):
                self._add("either", (start, start + len(word)), other, at_run)
                return
        if texts := TEXTS.match(text, start):
            found = list(TEXT.finditer(texts[0]))
            suffix = next((match[2] for match in reversed(found) if match[2]), b"")
            empty = all(match[0].endswith(b'""' + match[2]) for match in found)
            after = (found[0][1] or b"") + (b'"mutant"' if empty else b'""') + suffix
            self._add("either", (start, start + len(texts[0].rstrip())), after, at_run)
        elif match := CHARACTER.match(text, start):
            after = b"decltype(%b)(%b + 1)" % (match[0], match[0])
            self._add("either", match.span(), after, at_run)
        elif match := NUMBER.match(text, start):
            whole = match.start(), SUFFIX.match(text, match.end()).end()
            if not text.startswith(b">", whole[1]):
                self._add("either", whole, self._next_number(match[0], text[slice(*whole)]), at_run)

    @staticmethod
    def _next_number(digits, code):
        """One more, in the same unit. Twice as many if one could be lost in the rounding."""
        unit = code[len(digits):]
        if re.fullmatch(rb"h|min|s|ms|us|ns", unit):
            return code + b" + 1" + unit
        if re.fullmatch(rb"[\d.]+[eE].*", digits):
            return b"2 * " + code
        return code + b" + 1"

    def _read_arguments(self, arguments, at_run):
        """Two neighbouring arguments of one type can change places."""
        for left, right in zip(arguments, arguments[1:]):
            if not left or not right:
                continue
            (start, middle), (next_start, end) = _range(left), _range(right)
            if not start < middle < next_start < end:
                continue
            types = {argument.type.get_canonical().spelling.replace("const ", "").rstrip(" &")
                     for argument in (left, right)}
            first, second = self.code(left), self.code(right)
            comma = _in_one_line(self.text[middle:next_start]) == b","
            plain = not (first + second).startswith((b"{", b"[", b".")) and not BEGIN.search(first)
            literal = any(_plain(each).kind in LITERALS for each in (left, right))
            if comma and plain and not literal and len(types) == 1 and first != second:
                self._add("either", (start, end), second + b", " + first, at_run,
                          [(start, middle, second), (next_start, end, first)])

    def _read_constant(self, cursor):
        start, _ = _range(cursor)
        head = self.text[start:cursor.location.offset]
        if word := re.search(rb"\bconstexpr\b", head):
            in_class = cursor.semantic_parent.kind in CLASSES and b"inline" not in head
            self.edits.append(Edit(
                self.path, start + word.start(), start + word.end(), "rewritten", False, None,
                b"inline const" if in_class else b"const", _range(cursor)))


def find(source, arguments, files):
    """The edits in each of those files that the source includes. `files` has the text of each by
    its path; both are named as the compiler names them."""
    unit = cindex.Index.create().parse(source, arguments)
    wrong = [str(each) for each in unit.diagnostics if each.severity >= cindex.Diagnostic.Error]
    if wrong:
        raise SyntaxError("\n".join(wrong))
    readers = {}
    for cursor in unit.cursor.get_children():
        name = cursor.location.file and cursor.location.file.name
        if name not in files:
            continue
        if name not in readers:
            readers[name] = Reader(name, files[name])
        readers[name].visit(cursor)
    return {name: reader.edits for name, reader in readers.items()}


class _Site:
    """The edits of one form at one stretch."""

    def __init__(self, edits):
        self.edits = edits
        self.start, self.end, self.form = edits[0].start, edits[0].end, edits[0].form

    def around(self, numbers):
        """The code to put before and behind the original code."""
        edit = self.edits[0]
        test = b"isMutantAtRun(%d)" if edit.at_run else b"isMutant(%d)"
        tests = [test % numbers[edit.mutant] for edit in self.edits if edit.mutant]
        if self.form == "removed":
            return b"{ if (!%b) " % tests[0], b" }"
        if self.form == "negated":
            return b"(%b != bool(" % tests[0], b"))"
        chain = b"".join(b"%b ? %b : " % (test, edit.after)
                         for test, edit in zip(tests, self.edits))
        return b"(" + chain, b")"


def render(text, edits, numbers):
    """The text of a file with its edits, in which every line keeps its number, and the place of
    each edit: (start, end, edits)."""
    groups = {}
    for edit in edits:
        groups.setdefault((edit.start, -edit.end, FORMS.index(edit.form)), []).append(edit)
    sites = [_Site(groups[key]) for key in sorted(groups)]
    out, places, open_sites = [], [], []
    position = length = 0

    def put(code):
        nonlocal length
        out.append(code)
        length += len(code)

    def close_until(offset):
        nonlocal position
        while open_sites and open_sites[-1][0].end <= offset:
            site, begun, behind = open_sites.pop()
            put(text[position:site.end] + behind)
            position = site.end
            places.append((begun, length, site.edits))

    for site in sites:
        close_until(site.start)
        if open_sites and site.end > open_sites[-1][0].end:
            continue  # It overlaps the end of another one.
        put(text[position:site.start])
        position = site.start
        begun = length
        if site.form == "rewritten":
            put(site.edits[0].after)
            position = site.end
            places.append((begun, length, site.edits))
            continue
        before, behind = site.around(numbers)
        put(before)
        open_sites.append((site, begun, behind))
    close_until(len(text) + 1)
    put(text[position:])
    return b"".join(out), places
