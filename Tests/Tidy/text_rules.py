"""Rules for every text file of the tree, and for its folders."""

import posixpath
import re

from source import Finding

COLUMNS = 100
PROSE = (".md", ".svg", ".json", ".xml", ".desktop")
VAGUE_FOLDERS = {"utils", "util", "helpers", "helper", "misc", "common", "manager", "managers"}
MAP = "ARCHITECTURE.md"
MAP_LINES = 150
CODE = r"`[^`]*`"
# The target of a link or of a picture, unless it is on the web.
LINK = r"\]\((?!https?:)([^)\s]+)\)|\bsrc(?:set)?=\"(?!https?:)([^\"]+)\""
MAPPED_LAYERS = ("Platform", "Core", "Services", "Features")

# Put together from pieces, so that this file passes its own rule.
MARKS = r"\b(" + "TO" + r"DO|FIX" + r"ME|XX" + r"X|HA" + r"CK)\b"
UNSPOKEN = (
    r"\b[Pp]art [0-9]+\." + r"[0-9]|\b[Ss]pec\." + r"md\b|\b[Tt]he [Ss]" + r"pec\b"
    r"|\b[Ii]ssue #?" + r"[0-9]"
)


def lines_fit(tree):
    """Lines of code have at most 100 columns, no tabs and no blanks at their ends."""
    for source in tree.sources:
        for number, line in enumerate(source.text.split("\n"), 1):
            if len(line) > COLUMNS and not source.name.endswith(PROSE):
                yield Finding(source.path, number, f"{len(line)} columns, at most {COLUMNS}")
            if "\t" in line:
                yield Finding(source.path, number, "a tab")
            if line != line.rstrip():
                yield Finding(source.path, number, "blanks at the end")


def files_end_in_one_newline(tree):
    """The last line ends, and nothing follows it."""
    for source in tree.sources:
        if source.text and (not source.text.endswith("\n") or source.text.endswith("\n\n")):
            yield Finding(source.path, source.text.count("\n"), "ends in one newline")


def nothing_is_left_for_later(tree):
    """Open work is noted where work is planned, not in the code."""
    for source in tree.sources:
        yield from source.findings(MARKS, "a mark for later", source.text)


def the_tree_speaks_for_itself(tree):
    """A comment gives its reason; it does not point at a document or machine elsewhere."""
    for source in tree.sources:
        yield from source.findings(UNSPOKEN, "points outside the tree", source.text)


def folders_have_names_of_their_own(tree):
    """A folder is named after its contents."""
    for path in sorted(tree.paths):
        if path.rpartition("/")[2].lower() in VAGUE_FOLDERS:
            yield Finding(path, 1, "a name that says nothing")


def the_map_is_true(tree):
    """Every path that ARCHITECTURE.md names exists, and the file stays short enough to be read."""
    for source in tree.sources:
        if source.path != MAP:
            continue
        for match in re.finditer(r"`([\w.-]+/[\w./+-]*)`", source.text):
            if match[1].rstrip("/") not in tree.paths:
                yield Finding(MAP, source.line_at(match.start()), f"there is no {match[1]}")
        lines = source.text.count("\n")
        if lines > MAP_LINES:
            yield Finding(MAP, MAP_LINES, f"{lines} lines, at most {MAP_LINES}")


def the_map_is_complete(tree):
    """ARCHITECTURE.md names every folder that stands directly in a layer."""
    for source in tree.sources:
        if source.path != MAP:
            continue
        named = re.findall(r"`([\w.-]+/[\w.-]+)[\w./+-]*`", source.text)
        for folder in sorted(tree.folders):
            layer, _, name = folder.partition("/")
            if layer in MAPPED_LAYERS and name and "/" not in name and folder not in named:
                yield Finding(MAP, 1, f"does not name {folder}/")


def anchors_of(source):
    """The headings of a document, in the form in which a link names them behind “#”."""
    headings = re.findall(r"^#+ (.+)$", source.text, re.MULTILINE)
    return {re.sub(r"[^\w -]", "", heading.lower()).replace(" ", "-") for heading in headings}


def is_target(tree, path, anchor):
    """Whether the path is in the tree and, if an anchor is given, the heading in that document."""
    documents = {source.path: source for source in tree.sources if source.name.endswith(".md")}
    if not anchor:
        return path in tree.paths
    return path in documents and anchor in anchors_of(documents[path])


def links_lead_somewhere(tree):
    """The links and pictures of a document lead to existing files and headings."""
    for source in tree.sources:
        if not source.name.endswith(".md"):
            continue
        prose = re.sub(CODE, lambda code: re.sub(r"[^\n]", " ", code[0]), source.text)
        for match in re.finditer(LINK, prose):
            link = match[1] or match[2]
            path, _, anchor = link.partition("#")
            beside = posixpath.normpath(posixpath.join(posixpath.dirname(source.path), path))
            if not is_target(tree, beside if path else source.path, anchor):
                yield Finding(source.path, source.line_at(match.start()), f"leads nowhere: {link}")


def documents_name_what_exists(tree):
    """Every path of the tree that a document names exists."""
    tops = {folder for folder in tree.folders if "/" not in folder}
    for source in tree.sources:
        if not source.name.endswith(".md") or source.path == MAP:
            continue
        for match in re.finditer(r"`([\w.-]+)(/[\w./+-]*)`", source.text):
            path = match[1] + match[2].rstrip("/")
            if match[1] in tops and path not in tree.paths:
                yield Finding(source.path, source.line_at(match.start()), f"there is no {path}")


RULES = [
    lines_fit,
    files_end_in_one_newline,
    nothing_is_left_for_later,
    the_tree_speaks_for_itself,
    folders_have_names_of_their_own,
    the_map_is_true,
    the_map_is_complete,
    links_lead_somewhere,
    documents_name_what_exists,
]
