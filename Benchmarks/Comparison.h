#pragma once

#include <chrono>
#include <functional>
#include <ratio>
#include <string_view>

namespace quorvel::benchmarks {

using Milliseconds = std::chrono::duration<double, std::milli>;

/// The time of an action.
[[nodiscard]] Milliseconds timeOf(const std::function<void()> &action);

/// The median times of the same work done in two ways.
struct Comparison
{
    Milliseconds ours{};
    Milliseconds reference{};
};

/// Runs both in turns, so that a machine that slows down slows both. Only their ratio counts. Each
/// returns the time of the part to compare.
[[nodiscard]] Comparison interleaved(int rounds, const std::function<Milliseconds()> &ours,
                                     const std::function<Milliseconds()> &reference);

/// Prints one table on standard output, row by row.
void printHeading(std::string_view title);
void printRow(std::string_view what, const Comparison &times, double aimedRatio);
/// A row without an aim.
void printRow(std::string_view what, const Comparison &times);
void printRow(std::string_view what, double ours, std::string_view unit, std::string_view aim);

} // namespace quorvel::benchmarks
