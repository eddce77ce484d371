#include "Benchmarks/Comparison.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace quorvel::benchmarks {

namespace {

Milliseconds median(std::vector<Milliseconds> times)
{
    const auto middle = times.begin() + std::ptrdiff_t(times.size() / 2);
    std::ranges::nth_element(times, middle);
    return *middle;
}

std::string text(double value, std::string_view unit)
{
    char buffer[32];
    const int digits = value < 1 ? 3 : value < 100 ? 2 : 0;
    const int size = std::snprintf(buffer, sizeof buffer, "%.*f", digits, value);
    return std::string(buffer, size_t(size)).append(unit);
}

void printCells(std::string_view what, const std::string &ours, const std::string &reference,
                const std::string &ratio, const std::string &aim)
{
    std::printf("%-46.*s | %10s | %10s | %6s | %s\n", int(what.size()), what.data(), ours.c_str(),
                reference.c_str(), ratio.c_str(), aim.c_str());
}

void printTimes(std::string_view what, const Comparison &times, const std::string &aim)
{
    printCells(what, text(times.ours.count(), " ms"), text(times.reference.count(), " ms"),
               text(times.ours / times.reference, ""), aim);
}

} // namespace

Milliseconds timeOf(const std::function<void()> &action)
{
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::steady_clock::now() - start;
}

Comparison interleaved(int rounds, const std::function<Milliseconds()> &ours,
                       const std::function<Milliseconds()> &reference)
{
    std::vector<Milliseconds> oursTimes;
    std::vector<Milliseconds> referenceTimes;
    for (int round = 0; round < rounds; ++round) {
        oursTimes.push_back(ours());
        referenceTimes.push_back(reference());
    }
    return {median(std::move(oursTimes)), median(std::move(referenceTimes))};
}

void printHeading(std::string_view title)
{
    std::printf("%.*s\n", int(title.size()), title.data());
    printCells("what", "ours", "reference", "ratio", "aim");
}

void printRow(std::string_view what, const Comparison &times, double aimedRatio)
{
    printTimes(what, times, "<= " + text(aimedRatio, ""));
}

void printRow(std::string_view what, const Comparison &times)
{
    printTimes(what, times, "");
}

void printRow(std::string_view what, double ours, std::string_view unit, std::string_view aim)
{
    printCells(what, text(ours, std::string(" ").append(unit)), "", "", std::string(aim));
}

} // namespace quorvel::benchmarks
