"""The right changes are found in a piece of code, and the code with all of them compiles and
runs."""

import pathlib
import subprocess
import tempfile
import unittest

import mutation

HERE = pathlib.Path(__file__).resolve().parent
RENDERED = f'#include "{HERE}/Mutant.h"\n'


def edits_of(code):
    with tempfile.TemporaryDirectory() as folder:
        path = f"{folder}/sample.cpp"
        pathlib.Path(path).write_text(code, encoding="utf-8")
        return mutation.find(path, ["-std=c++20"], {path: code.encode()})[path]


def changes(code):
    """Each change as a person reads it: before and after."""
    mutants = dict.fromkeys(edit.mutant for edit in edits_of(code) if edit.mutant)
    return [f"{mutant.before} -> {mutant.after}" for mutant in mutants]


def rendered(code):
    edits = edits_of(code)
    mutants = list(dict.fromkeys(edit.mutant for edit in edits if edit.mutant))
    numbers = {mutant: number for number, mutant in enumerate(mutants, 1)}
    text, places = mutation.render(code.encode(), edits, numbers)
    return text.decode(), numbers, places


def outputs(code, main):
    """The output of a program without a change, and its output with each change."""
    text, numbers, _ = rendered(code)
    with tempfile.TemporaryDirectory() as folder:
        source = pathlib.Path(folder, "sample.cpp")
        source.write_text(f"#include <cstdio>\n{RENDERED}{text}\n{main}", encoding="utf-8")
        program = source.with_suffix("")
        subprocess.run(["clang++", "-std=c++20", "-w", source, "-o", program], check=True)
        said = [subprocess.run([program], env={"QUORVEL_MUTANT": str(number)}, check=True,
                               capture_output=True, text=True).stdout
                for number in range(len(numbers) + 1)]
    return said[0], {f"{mutant.before} -> {mutant.after}": said[number]
                     for mutant, number in numbers.items()}


class Changes(unittest.TestCase):
    def test_a_comparison_loses_its_bound_and_its_direction(self):
        self.assertEqual(changes("bool f(int a, int b) { return a < b; }"),
                         ["a < b -> a <= b", "a < b -> a >= b"])

    def test_an_equality_is_turned_round(self):
        self.assertEqual(changes("bool f(int a, int b) { return a == b; }"), ["a == b -> a != b"])

    def test_a_comparison_of_objects_is_turned_round(self):
        code = "struct S { bool operator==(const S &) const; };"
        self.assertEqual(changes(code + "bool f(S a, S b) { return a != b; }"),
                         ["a != b -> a == b"])

    def test_an_and_becomes_an_or(self):
        self.assertEqual(changes("bool f(bool a, bool b) { return a && b; }"),
                         ["a && b -> a || b"])

    def test_a_condition_is_negated(self):
        for code in ("if (a) return;", "while (a) return;", "a ? void() : void();"):
            self.assertIn("a -> !(a)", changes(f"void f(bool a) {{ {code} }}"), code)

    def test_a_negation_is_taken_away(self):
        self.assertEqual(changes("bool f(bool a) { return !a; }"), ["!a -> a"])

    def test_a_declared_condition_stays(self):
        self.assertEqual(changes("int *g(); void f() { if (int *a = g()) return; }"), [])

    def test_a_returned_boolean_is_negated(self):
        self.assertEqual(changes("bool f(bool a) { return a; }"), ["a -> !(a)"])
        self.assertEqual(changes("bool f() { return true; }"), ["true -> false"])

    def test_a_sum_becomes_a_difference(self):
        self.assertEqual(changes("int f(int a, int b) { return a + b; }"), ["a + b -> a - b"])

    def test_a_constant_grows(self):
        self.assertEqual(changes("const int a = 0777;"), ["0777 -> 0777 + 1"])
        self.assertEqual(changes("const double a = 2.5e3;"), ["2.5e3 -> 2 * 2.5e3"])
        self.assertEqual(changes("const double a = 0.5;"), ["0.5 -> 0.5 + 1"])
        self.assertEqual(changes("const char a = 'x';"), ["'x' -> decltype('x')('x' + 1)"])

    def test_a_duration_grows_in_its_unit(self):
        code = "#include <chrono>\nusing namespace std::chrono_literals;\n"
        self.assertEqual(changes(code + "const auto a = 10min;"), ["10min -> 10min + 1min"])

    def test_a_text_is_emptied_and_an_empty_text_is_filled(self):
        self.assertEqual(changes('const char *a = "x";'), ['"x" -> ""'])
        self.assertEqual(changes('const char *a = "";'), ['"" -> "mutant"'])

    def test_a_text_in_two_parts_is_changed_as_one(self):
        self.assertEqual(changes('const char16_t *a = u"x"\n    u"y";'), ['u"x" u"y" -> u""'])

    def test_a_call_is_removed(self):
        self.assertEqual(changes("void g(); void f() { g(); }"), ["g(); -> "])

    def test_an_assignment_is_removed(self):
        self.assertEqual(changes("void f(int &a, int b) { a = b; }"), ["a = b; -> "])

    def test_two_arguments_of_one_type_change_places(self):
        self.assertIn("a, b -> b, a",
                      changes("int g(int, int); int f(int a, int b) { return g(a, b); }"))

    def test_two_arguments_of_different_types_stay(self):
        self.assertEqual(changes("int g(int, char); int f(int a, char b) { return g(a, b); }"), [])

    def test_the_arguments_of_min_keep_their_order(self):
        code = "int min(int, int); int f(int a, int b) { return min(a, b); }"
        self.assertEqual(changes(code), [])

    def test_logs_assertions_and_calls_of_reserve_stay(self):
        code = ("#define Q_ASSERT(x) ((void)(x))\n"
                "struct S { void reserve(int); S &operator<<(int); }; S qWarning();\n")
        for statement in ("Q_ASSERT(a < b);", "s.reserve(a);", "qWarning() << a;"):
            self.assertEqual(changes(code + f"void f(S s, int a, int b) {{ {statement} }}"), [])

    def test_values_that_only_the_compiler_computes_stay(self):
        for code in ("static_assert(1 < 2);", "enum E { A = 1 };",
                     "template <int> struct T; using U = T<1>;",
                     "void f(int a) { switch (a) { case 1: return; } }"):
            self.assertEqual(changes(code), [], code)

    def test_the_step_of_a_loop_stays(self):
        self.assertEqual(changes("void f(int n) { for (int i = n; i != n; i += 2) {} }"),
                         ["i != n -> i == n"])


class Rendering(unittest.TestCase):
    def test_each_number_makes_one_change(self):
        unchanged, said = outputs("int f(int a, int b) { return a < b ? a + 10 : b; }",
                                  'int main() { std::printf("%d %d", f(1, 2), f(2, 2)); }')
        self.assertEqual(unchanged, "11 2")
        self.assertEqual(said, {"a < b -> a <= b": "11 12", "a < b -> a >= b": "2 12",
                                "a + 10 -> a - 10": "-9 2", "10 -> 10 + 1": "12 2"})

    def test_a_compile_time_constant_can_be_changed(self):
        code = "constexpr int a = 5; struct S { static constexpr int b = 7; };"
        unchanged, said = outputs(code, 'int main() { std::printf("%d %d", a, S::b); }')
        self.assertEqual(unchanged, "5 7")
        self.assertEqual(said, {"5 -> 5 + 1": "6 7", "7 -> 7 + 1": "5 8"})

    def test_a_constexpr_function_changes_only_for_calls_at_run_time(self):
        code = "constexpr int f(int a) { return a + 1; } static_assert(f(1) == 2);"
        unchanged, said = outputs(code, 'int main(int n, char **) { std::printf("%d", f(n)); }')
        self.assertEqual(unchanged, "2")
        self.assertEqual(said, {"a + 1 -> a - 1": "0", "1 -> 1 + 1": "3"})

    def test_a_removed_statement_keeps_its_branch(self):
        code = "int n = 0; void f(bool a) { if (a) n += 4; else n -= 4; }"
        unchanged, said = outputs(code, 'int main() { f(false); std::printf("%d", n); }')
        self.assertEqual(unchanged, "-4")
        self.assertEqual(said["n += 4; -> "], "-4")
        self.assertEqual(said["n -= 4; -> "], "0")
        self.assertEqual(said["a -> !(a)"], "4")

    def test_both_places_of_a_swap_have_one_number(self):
        code = "int g(int a, int b) { return a - b; } int f(int a, int b) { return g(a, b); }"
        _, said = outputs(code, 'int main() { std::printf("%d", f(3, 1)); }')
        self.assertEqual(said["a, b -> b, a"], "-2")

    def test_lines_stay_where_they_were(self):
        code = "bool f(int a,\n       int b)\n{\n    return a <\n           b;\n}\n"
        self.assertEqual(rendered(code)[0].count("\n"), code.count("\n"))

    def test_a_place_spans_its_change(self):
        text, _, places = rendered("bool f(int a, int b) { return a == b; }")
        (start, end, edits), = places
        self.assertEqual(text[start:end], "(isMutant(1) ? a != b : a == b)")
        self.assertEqual([edit.after for edit in edits], [b"a != b"])


if __name__ == "__main__":
    unittest.main()
