"""Checks the rules of the tree that a program can check. usage: tidy.py ROOT"""

import sys

import code_rules
import include_rules
import layer_rules
import text_rules
from source import read_tree

RULES = [*layer_rules.RULES, *code_rules.RULES, *include_rules.RULES, *text_rules.RULES]


def findings_of(rule, tree):
    """The findings of the rule, one line each."""
    return [f"{path}:{line}: {message} ({rule.__name__})" for path, line, message in rule(tree)]


def main(root):
    tree = read_tree(root)
    findings = [finding for rule in RULES for finding in findings_of(rule, tree)]
    print(*findings, sep="\n", end="\n" if findings else "")
    print(f"tidy: {len(tree.sources)} files, {len(RULES)} rules, {len(findings)} findings")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
