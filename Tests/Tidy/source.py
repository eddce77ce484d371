"""The tree as the rules read it: its text files, and their code without comments and texts."""

import collections
import functools
import pathlib
import re

Finding = collections.namedtuple("Finding", "path line message")

TEXT_ENDINGS = {
    ".cpp", ".h", ".qml", ".py", ".cmake", ".txt", ".md", ".json", ".xml", ".svg", ".sh", ".in",
    ".supp", ".desktop", ".qrc",
}
TEXT_NAMES = {"dev", "run", ".clang-format", ".clang-tidy", ".gitignore", "LICENSE"}
SKIPPED_FOLDERS = {"build", ".git", ".cache", "__pycache__"}

PRODUCT_FOLDERS = ("Quorvel", "Features", "_Probes", "Core", "Services", "Models", "Platform")

_COMMENT = r"//[^\n]*|/\*.*?\*/"
_RAW_TEXT = r'R"\(.*?\)"'
_TEXT = r'"(?:\\.|[^"\\\n])*"|(?<![0-9a-fA-F])\'(?:\\.|[^\'\\\n])*\''
_TOKENS = re.compile(f"({_RAW_TEXT}|{_TEXT})|({_COMMENT})", re.DOTALL)


def _blank(text):
    return re.sub(r"[^\n]", " ", text)


class Source:
    """One text file, named by its path from the root of the tree."""

    def __init__(self, path, text):
        self.path = path
        self.text = text
        self.name = path.rpartition("/")[2]
        self.stem = self.name.partition(".")[0]

    @functools.cached_property
    def uncommented(self):
        """The text with its comments blanked out. Every line keeps its number."""
        return _TOKENS.sub(lambda token: token[1] or _blank(token[2]), self.text)

    @functools.cached_property
    def code(self):
        """The text with comments and quoted texts blanked out."""
        return _TOKENS.sub(lambda token: _blank(token[0]), self.text)

    @functools.cached_property
    def includes(self):
        """The line and the target, with its quotes or angles, of each include."""
        pattern = re.compile(r'^\s*#\s*include\s+(["<][^">]+[">])', re.MULTILINE)
        return [(self.line_at(match.start(1)), match[1]) for match in
                pattern.finditer(self.uncommented)]

    def is_cpp(self):
        return self.name.endswith((".cpp", ".h"))

    def is_header(self):
        return self.name.endswith(".h")

    def is_qml(self):
        return self.name.endswith(".qml")

    def is_product(self):
        return self.is_under(*PRODUCT_FOLDERS)

    def is_under(self, *folders):
        return any(self.path.startswith(f"{folder}/") for folder in folders)

    def line_at(self, offset):
        return self.text.count("\n", 0, offset) + 1

    def findings(self, pattern, message, text=None):
        """A finding for every match of the pattern, in the code or in the given text."""
        for match in re.finditer(pattern, self.code if text is None else text, re.MULTILINE):
            said = " ".join(match[0].split())
            yield Finding(self.path, self.line_at(match.start()), f"{message}: {said}")


class Tree:
    """All text files of the tree, and the names of the others, for rules that look across files."""

    def __init__(self, texts, others=()):
        self.sources = [Source(path, text) for path, text in sorted(texts.items())]
        self._others = set(others)

    @functools.cached_property
    def paths(self):
        """Every file and folder that exists, by its path from the root."""
        return {source.path for source in self.sources} | self._others | self.folders

    @functools.cached_property
    def folders(self):
        files = {source.path for source in self.sources} | self._others
        return {str(parent) for path in files for parent in pathlib.PurePath(path).parents}

    @functools.cached_property
    def live_backends(self):
        """The live backends: the final classes that implement an interface of Platform/."""
        code = "\n".join(source.code for source in self.sources if source.is_under("Platform"))
        interfaces = set(re.findall(r"^class (\w+)(?: : public [\w, ]+)?\n\{", code, re.MULTILINE))
        players = re.findall(r"^class (\w+) final : public (\w+)", code, re.MULTILINE)
        return {player for player, base in players if base in interfaces
                and not player.startswith("Fake") and not player.endswith("Error")}


def read_tree(root):
    root = pathlib.Path(root)
    texts, others = {}, []
    for path in root.rglob("*"):
        relative = path.relative_to(root)
        if SKIPPED_FOLDERS & set(relative.parts) or not path.is_file():
            continue
        if path.suffix in TEXT_ENDINGS or path.name in TEXT_NAMES:
            texts[relative.as_posix()] = path.read_text(encoding="utf-8")
        else:
            others.append(relative.as_posix())
    return Tree(texts, others)
