"""Which headers a C++ file includes, judged by the names in it.

A file that names a class needs its header, unless it declares the class itself. It may also need a
class that it does not name, for example behind a pointer that a call returns. Only the compiler
finds that: see alone.py.
"""

import collections
import functools
import re

from source import Finding
from standard_library import HOMES, STANDARD, WITH_ANY_CONTAINER, pattern_of

# Where the toolkit defines a name that is not, or need not be, a header's.
TOOLKIT_HOMES = {
    "QByteArrayLiteral": "QByteArray", "QCoro": "QCoroTask", "QRgb": "QColor",
    "QStringLiteral": "QString", "QVariantList": "QVariant", "QVariantMap": "QVariant",
    "QX11Application": "QGuiApplication",
}
TOOLKIT_NAMESPACES = {"QDBus", "QNativeInterface", "QtPrivate"}
# Texts and lists come with any of its headers, and a base with what is made of it.
WITH_ANY_OF_TOOLKIT = {"<QByteArray>", "<QByteArrayView>", "<QChar>", "<QLatin1StringView>",
                       "<QList>", "<QString>", "<QStringList>", "<QStringView>"}
BROUGHT = {"<QFile>": "<QIODevice>", "<QSaveFile>": "<QIODevice>", "<QTest>": "<QObject>"}
TOOLKIT_NAME = re.compile(r"\bQ[A-Z]\w*[a-z]\w*")
TEST_MACRO = re.compile(r"\b(?:QVERIFY|QCOMPARE|QTRY_|QFETCH|QSKIP|QFAIL|QTEST_)\w*")
TEXT_LITERAL = re.compile(r"(?<=\s)_(?:s|L1)\b")

OUR_NAME = re.compile(r"(?:(?<![\w.>:])|(?<=quorvel::))[A-Z]\w+")
DEFINITION = r"\b(?:class|struct|enum(?: class)?|union|namespace|concept|using)(?: \[\[\w+\]\])?"
ENUMERATORS = re.compile(r"\benum\b[^;{]*\{([^}]*)\}")
FORWARD = re.compile(r"^(?:class|struct) (\w+);", re.MULTILINE)
INCLUDE_LINE = re.compile(r"^\s*#\s*include.*", re.MULTILINE)

Wanted = collections.namedtuple("Wanted", "name offset homes")


@functools.cache
def code_of(source):
    """The code without its includes."""
    return INCLUDE_LINE.sub(lambda line: " " * len(line[0]), source.code)


def targets_of(source):
    """What it includes; a class of the toolkit without the module before it."""
    return {re.sub(r"^<Qt\w+/(?=Q)", "<", target) for _, target in source.includes}


def own_headers(source):
    """X.h for X.cpp; for X+Part.cpp and X+Part.h as well."""
    folder = source.path.rpartition("/")[0]
    return {f"{folder}/{stem}.h" for stem in (source.stem, source.stem.split("+")[0])
            } - {source.path}


def homes_of_types(tree):
    """The header of each type or namespace of ours that has one of its name to itself."""
    headers = collections.defaultdict(list)
    for source in tree.sources:
        definition = rf"^(?:inline )?{DEFINITION} {re.escape(source.stem)}\b(?!;|::)"
        if source.is_header() and re.search(definition, code_of(source), re.MULTILINE):
            headers[source.stem].append(source.path)
    return {name: paths[0] for name, paths in headers.items() if len(paths) == 1}


def wanted_by(source, types):
    """The names in a file that have a header."""
    code = code_of(source)
    declared = {*re.findall(rf"{DEFINITION} (\w+)\b(?!::)", code),
                *re.findall(r"\w+", " ".join(ENUMERATORS.findall(code)))}
    for match in re.finditer(r"\bstd::(?:ranges::)?(?!ranges\b)(\w+)", code):
        if match[1] not in WITH_ANY_CONTAINER:
            yield Wanted(match[0], match.start(), HOMES.get(match[1], []))
    for match in TOOLKIT_NAME.finditer(code):
        name = match[0]
        if name not in types and name not in TOOLKIT_NAMESPACES and name not in declared:
            homes = [TOOLKIT_HOMES.get(name, name), name]
            yield Wanted(name, match.start(), [f"<{home}>" for home in homes])
    for match in TEXT_LITERAL.finditer(code):
        yield Wanted(match[0], match.start(), ["<QString>"])
    for match in TEST_MACRO.finditer(code):
        yield Wanted(match[0], match.start(), ["<QTest>"])
    for match in OUR_NAME.finditer(code):
        name = match[0]
        if types.get(name, source.path) != source.path and name not in declared:
            yield Wanted(name, match.start(), [f'"{types[name]}"'])


def missing_includes(tree):
    """The names of each file, one a header, whose header it lacks."""
    types = homes_of_types(tree)
    headers = {f'"{source.path}"': source for source in tree.sources if source.is_header()}
    for source in tree.sources:
        if not source.is_cpp():
            continue
        near = targets_of(source) | {f'"{path}"' for path in own_headers(source)}
        for own in own_headers(source):
            near |= targets_of(headers[f'"{own}"']) if f'"{own}"' in headers else set()
        far = near.union(*(targets_of(headers[target]) for target in near if target in headers))
        far |= {BROUGHT[target] for target in far & BROUGHT.keys()}
        if any(target.startswith("<Q") for target in far):
            far |= WITH_ANY_OF_TOOLKIT
        for wanted in wanted_by(source, types):
            have = near if wanted.name.startswith("std::") else far
            if not have.intersection(wanted.homes):
                have.update(wanted.homes)
                yield source, wanted


def files_include_what_they_name(tree):
    """A name of the standard library has its header included by the file or by its own header; a
    class of the toolkit or of ours may come with a header of ours that the file includes."""
    for source, wanted in missing_includes(tree):
        message = f"{wanted.name} wants {wanted.homes[0]}" if wanted.homes else (
            f"{wanted.name} is not in standard_library.py")
        yield Finding(source.path, source.line_at(wanted.offset), message)


@functools.cache
def names_of(header):
    """What a header of ours declares at its outermost level."""
    lines = "\n".join(re.findall(r"^[^\s}{#].*", code_of(header), re.MULTILINE))
    macros = re.findall(r"#\s*define (\w+)", header.code)
    return {*macros, *re.findall(rf"{DEFINITION} (\w+)", lines),
            *re.findall(r"\b(\w+)(?=\(|;| =|\{)", lines)}


def is_used(code, target, headers, forward):
    """Whether a file of that code has a use for an include. Of the toolkit, and of what is only
    declared elsewhere, nobody can tell: a class may be needed whole without being named."""
    if target in headers:
        header = headers[target]
        names = "|".join(map(re.escape, names_of(header)))
        return header.stem in forward or re.search(rf"\b(?:{names})\b", code)
    name = target[1:-1]
    return name not in STANDARD or re.search(pattern_of(name), code)


def files_use_what_they_include(tree):
    """An include of the standard library, or of ours, is there for a name that it defines."""
    headers = {f'"{source.path}"': source for source in tree.sources if source.is_header()}
    forward = {name for source in tree.sources if source.is_cpp()
               for name in FORWARD.findall(source.code)}
    for source in tree.sources:
        if source.is_cpp():
            for line, target in source.includes:
                own = target.strip('"') in own_headers(source)
                if not own and not is_used(code_of(source), target, headers, forward):
                    yield Finding(source.path, line, f"nothing here uses {target}")


RULES = [
    files_include_what_they_name,
    files_use_what_they_include,
]
