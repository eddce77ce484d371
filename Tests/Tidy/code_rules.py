"""Rules for the shape of C++, QML and Python files."""

import ast
import re

from source import Finding

DESIGN_SYSTEM = "Core/DesignSystem"
LONGEST = {".h": 150, ".cpp": 300, ".qml": 150}

COLOURS = (
    r"#[0-9a-fA-F]{3,8}\"|\bQColor(Constants\b|::from\w+|\s*[({])"
    r"|\bqRgba?\(|\bQt\.(rgba|hsla|hsva)\b"
    r"|\bQt::(white|black|red|green|blue|gray|yellow|cyan|magenta|dark\w+|light\w+)\b"
    r"|\bcolor\w*:\s*\"(?!transparent\")\w+\""
)
FONTS = (
    r"\bQFont\b|\bfont\.(family|pixelSize|pointSize|weight|bold|italic)\b"
    r"|\bfont\s*\{|\bQt\.font\b"
)

AWAIT = re.compile(
    r"(?:(?:const\s+)?auto\s+\w+\s*=\s*)?co_await\s+"
    r"(?:\w+|\w+(?:(?:->|\.|::)\w+)*\(\s*[\w\s,]*\))"
)
AWAITING = r"(?<!\boperator )\bco_await\b"
SLEEPS = r"\bQTest::(qSleep|qWait)\(|\bQThread::\w*sleep\(|\bsleep_(for|until)\("
CLOCKS = r"\bQ(ElapsedTimer|DeadlineTimer)\b(?!>)|\bsteady_clock\b"
IMPATIENT = (
    r"\bqWaitFor\(|\bqWaitForWindow\w+\([^,;]*\)\)"
    r"|\b(QVERIFY2?|QSignalSpy)\([^;]*\.wait\((\d[\d']*)?\)"
)
PATIENCE = ("Tests/Support/Patience.h", "Tests/Support/Session/patience.py")
PYTHON_SLEEPS = {"sleep"}
PYTHON_CLOCKS = {"monotonic", "monotonic_ns", "perf_counter", "perf_counter_ns"}

AWAIT_BANNED = r"\b(waitFor|sleepUntil)\b"


def headers_have_one_shape(tree):
    """A header begins with #pragma once. In the product, it declares its own name in namespace
    quorvel."""
    for source in tree.sources:
        if not source.is_header():
            continue
        if not source.text.startswith("#pragma once\n"):
            yield Finding(source.path, 1, "begins with #pragma once")
        yield from source.findings(r"using namespace .*", "not in a header")
        if source.is_product() and not re.search(r"^namespace quorvel\b", source.code, re.M):
            yield Finding(source.path, 1, "declares nothing in namespace quorvel")
        name = re.sub(r"Models$", r"\\w+", source.stem.split("+")[0])
        if source.is_product() and not re.search(rf"(?i)\b{name}\b", source.code):
            yield Finding(source.path, 1, f"declares nothing of the name {source.stem}")


def includes_name_files_from_the_root(tree):
    """An include in quotes is a path from the root; a file's own header comes first."""
    for source in tree.sources:
        quoted = [(line, target.strip('"')) for line, target in source.includes
                  if target.startswith('"')]
        for line, path in quoted:
            if "/" in path and path not in tree.paths and not path.startswith("moc_"):
                yield Finding(source.path, line, f"there is no {path}")
            if "/" not in path and f"{source.path.rpartition('/')[0]}/{path}" in tree.paths:
                yield Finding(source.path, line, f"{path} is not a path from the root")
        own = re.sub(r"\.cpp$", ".h", source.path)
        if source.name.endswith(".cpp") and own in tree.paths:
            if not source.includes or source.includes[0][1] != f'"{own}"':
                yield Finding(source.path, 1, f"its first include is {own}")


def product_has_one_build(tree):
    """The product has no conditional compilation, neither by system nor for tests."""
    for source in tree.sources:
        if source.is_product() and source.is_cpp():
            yield from source.findings(r"^\s*#\s*(if|ifdef|ifndef|elif)\b.*", "one build for all")


def borrowed_names_are_used(tree):
    """A file uses every name that a using-declaration brings in, except inherited constructors."""
    for source in tree.sources:
        if not source.is_cpp():
            continue
        for borrowed in re.finditer(r"^ *using [\w:]*?\b(\w+)::(?!\1;)(\w+);", source.code, re.M):
            if not re.search(rf"(?<!:)\b{borrowed[2]}\b", source.code[borrowed.end():]):
                line = source.code.count("\n", 0, borrowed.start()) + 1
                yield Finding(source.path, line, f"{borrowed[2]} is not used")


def looks_live_in_the_design_system(tree):
    """Only the design system names colours and fonts."""
    for source in tree.sources:
        if not source.is_product() or source.is_under(DESIGN_SYSTEM):
            continue
        if source.is_cpp() or source.is_qml():
            yield from source.findings(COLOURS, "a colour", source.uncommented)
            yield from source.findings(FONTS, "a font")


def awaits_stand_alone(tree):
    """A statement with co_await is only `[auto x =] co_await name` or `co_await f(names)`."""
    for source in tree.sources:
        if not source.is_cpp():
            continue
        offset = 0
        for statement in re.split(r"(?<=[;{}])", source.code):
            body = statement.rstrip("; \n{}")
            if re.search(AWAITING, body) and not AWAIT.fullmatch(body.strip()):
                line = source.line_at(offset + statement.index("co_await"))
                yield Finding(source.path, line, "a co_await has its statement to itself")
            offset += len(statement)
        if source.is_product():
            yield from source.findings(AWAIT_BANNED, "blocks, or cannot be cancelled")


def product_has_no_locks(tree):
    """Values travel between threads; nothing is shared under a lock."""
    for source in tree.sources:
        if source.is_product() and source.is_cpp():
            yield from source.findings(r"\bstd::(recursive_|shared_)?mutex\b|\bQMutex\b", "a lock")


def product_knows_no_test(tree):
    """No class of the product has a test as its friend."""
    for source in tree.sources:
        if source.is_product() and source.is_cpp():
            yield from source.findings(r"friend (class|struct) \w*Tests?\b", "a test's friend")


def tests_do_not_sleep(tree):
    """A test waits for facts, never for time."""
    for source in test_sources(tree):
        if source.is_cpp():
            yield from source.findings(SLEEPS, "a sleep")
        else:
            yield from uses_of_time(source, PYTHON_SLEEPS, "a sleep")


def tests_measure_no_time(tree):
    """Only Benchmarks/ measure time, and the search for mutants: its patience with a change depends
    on how long the tests take without it."""
    for source in test_sources(tree):
        if source.is_cpp():
            yield from source.findings(CLOCKS, "measures time")
        elif not source.is_under("Tests/Mutants"):
            yield from uses_of_time(source, PYTHON_CLOCKS, "measures time")


def tests_are_patient(tree):
    """Tests wait as long as Patience.h says. The toolkit's own waits give up after five seconds."""
    for source in test_sources(tree):
        if not source.is_cpp():
            continue
        yield from source.findings(IMPATIENT, "waits with less than Patience.h")
        includes = {target for _, target in source.includes}
        if "QTRY_" in source.code and f'"{PATIENCE[0]}"' not in includes:
            yield Finding(source.path, 1, f"waits without {PATIENCE[0]}")


def test_sources(tree):
    """The C++ and Python files of the tests, except the two that define how to wait."""
    return [source for source in tree.sources if source.is_under("Tests")
            and source.path not in PATIENCE and (source.is_cpp() or source.name.endswith(".py"))]


def uses_of_time(source, names, message):
    """The places where a Python file uses or imports one of those names of the module `time`."""
    for node in ast.walk(ast.parse(source.text)):
        if isinstance(node, ast.Attribute) and ast.unparse(node.value) == "time":
            used = {node.attr}
        elif isinstance(node, ast.ImportFrom) and node.module == "time":
            used = {alias.name for alias in node.names}
        else:
            continue
        for name in sorted(used & names):
            yield Finding(source.path, node.lineno, f"{message}: time.{name}")


def qml_binds_its_components(tree):
    """Components bind the names inside them, and properties have types."""
    for source in tree.sources:
        if source.is_qml():
            if "pragma ComponentBehavior: Bound" not in source.code:
                yield Finding(source.path, 1, "lacks pragma ComponentBehavior: Bound")
            yield from source.findings(r"\bproperty var\b", "a property has a type")


def qml_data_is_plain_text(tree):
    """Only the design system makes texts. Its texts never read data as rich text."""
    for source in tree.sources:
        if source.is_qml() and not source.is_under(DESIGN_SYSTEM):
            yield from source.findings(
                r"\b(Text|Label|TextEdit)\s*\{|\btextFormat\b", "use the design system's text"
            )


def files_stay_readable(tree):
    """A file that is longer than this has to be divided."""
    for source in tree.sources:
        limit = LONGEST.get(source.name[source.name.rfind("."):])
        lines = source.text.count("\n")
        if source.is_product() and limit and lines > limit:
            yield Finding(source.path, limit, f"{lines} lines, at most {limit}")


RULES = [
    headers_have_one_shape,
    includes_name_files_from_the_root,
    product_has_one_build,
    borrowed_names_are_used,
    looks_live_in_the_design_system,
    awaits_stand_alone,
    product_has_no_locks,
    product_knows_no_test,
    tests_do_not_sleep,
    tests_measure_no_time,
    tests_are_patient,
    qml_binds_its_components,
    qml_data_is_plain_text,
    files_stay_readable,
]
