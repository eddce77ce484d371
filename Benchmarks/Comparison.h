#pragma once

#include <chrono>
#include <functional>
#include <string_view>

namespace quorvel::benchmarks {

using Milliseconds = std::chrono::duration<double, std::milli>;

/// What an action takes.
[[nodiscard]] Milliseconds timeOf(const std::function<void()> &action);

/// Medians of the same thing done in two ways.
struct Comparison
{
    Milliseconds ours{};
    Milliseconds reference{};
};

/// Takes the two in turns, so that a machine that slows down slows both: only their ratio counts.
/// Each answers with the time of the part that is compared.
[[nodiscard]] Comparison interleaved(int rounds, const std::function<Milliseconds()> &ours,
                                     const std::function<Milliseconds()> &reference);

/// One table on standard output, a row at a time.
void printHeading(std::string_view title);
void printRow(std::string_view what, const Comparison &times, double aimedRatio);
/// A row without an aim of its own.
void printRow(std::string_view what, const Comparison &times);
void printRow(std::string_view what, double ours, std::string_view unit, std::string_view aim);

} // namespace quorvel::benchmarks
