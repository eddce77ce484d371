"""The search for flaky tests reads and compares the reports of ctest."""

import unittest

from flakes import FAILED, PASSED, SKIPPED, differences, outcomes

REPORT = """<?xml version="1.0" encoding="UTF-8"?>
<testsuite name="Linux-clang++" tests="4" failures="1" disabled="0" skipped="1">
  <testcase name="cup" classname="cup" time="0.1" status="run">
    <system-out>full</system-out>
  </testcase>
  <testcase name="spoon" classname="spoon" time="2" status="fail">
    <failure message=""/><system-out>bent</system-out>
  </testcase>
  <testcase name="sugar" classname="sugar" time="0" status="notrun">
    <skipped message="SKIP_RETURN_CODE=77"/>
  </testcase>
  <testcase name="saucer" classname="saucer" time="0" status="run"/>
</testsuite>
"""


class FlakesTest(unittest.TestCase):
    def test_a_report_tells_how_each_test_ended(self):
        self.assertEqual(
            outcomes(REPORT),
            {"cup": PASSED, "spoon": FAILED, "sugar": SKIPPED, "saucer": PASSED},
        )

    def test_a_test_with_one_good_outcome_is_not_listed(self):
        self.assertEqual(differences([{"cup": PASSED, "sugar": SKIPPED}] * 3), [])

    def test_a_test_with_a_different_outcome_is_listed_with_its_round(self):
        rounds = [{"cup": PASSED, "sugar": SKIPPED}, {"cup": FAILED, "sugar": PASSED},
                  {"cup": PASSED, "sugar": SKIPPED}]
        self.assertEqual(differences(rounds), [
            "cup: passed 2 of 3 (failed in round 2)",
            "sugar: passed 1 of 3 (skipped in round 1, skipped in round 3)",
        ])

    def test_a_test_that_always_fails_is_listed(self):
        self.assertEqual(differences([{"cup": FAILED}] * 2),
                         ["cup: passed 0 of 2 (failed in round 1, failed in round 2)"])

    def test_a_test_that_is_missing_in_a_round_is_listed(self):
        self.assertEqual(differences([{"cup": PASSED}, {}]),
                         ["cup: passed 1 of 2 (did not run in round 2)"])


if __name__ == "__main__":
    unittest.main()
