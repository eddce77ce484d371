#pragma once

#include "Platform/ObjectStore/Schema/Composite.h"

#include <QStringView>

#include <array>

namespace quorvel {

/// The user's scores for a visit. The rating control limits each to `lowest` to `highest`; the
/// record accepts any number.
struct WorkRatings
{
    static constexpr int lowest = 1;
    static constexpr int highest = 5;

    qint64 wifiSpeed = 0;
    qint64 outlets = 0;
    qint64 noise = 0;
    qint64 quietForCalls = 0;

    static constexpr std::array<CodingKey<WorkRatings, qint64>, 4> codingKeys();

    friend bool operator==(const WorkRatings &, const WorkRatings &) = default;
};

/// One of the scores, with its name in each place that shows it.
struct WorkCriterion
{
    qint64 WorkRatings::*score;
    const char *key;        ///< in the store and in exports
    QStringView title;      ///< in the form
    QStringView hint;       ///< below the title; may be empty
    QStringView cardLabel;  ///< on the card of a visit
    QStringView rowLabel;   ///< in a row of the history
    QStringView option;     ///< in the terminal
    QStringView optionHelp; ///< in the terminal's help
};

/// All scores, in the order in which every place shows them.
inline constexpr std::array workCriteria{
    WorkCriterion{.score = &WorkRatings::wifiSpeed,
                  .key = "wifiSpeed",
                  .title = u"WiFi speed",
                  .hint = u"Fast enough for calls",
                  .cardLabel = u"WiFi speed",
                  .rowLabel = u"Wifi",
                  .option = u"--wifi-speed",
                  .optionHelp = u"1 to 5, as the next three; 3 if not given."},
    WorkCriterion{.score = &WorkRatings::outlets,
                  .key = "outlets",
                  .title = u"Power outlets",
                  .hint = {},
                  .cardLabel = u"Power outlets",
                  .rowLabel = u"Power",
                  .option = u"--outlets",
                  .optionHelp = u"Power outlets."},
    WorkCriterion{.score = &WorkRatings::noise,
                  .key = "noise",
                  .title = u"Noise level",
                  .hint = u"Lower = quieter",
                  .cardLabel = u"Quiet",
                  .rowLabel = u"Quiet",
                  .option = u"--noise",
                  .optionHelp = u"Lower is quieter."},
    WorkCriterion{.score = &WorkRatings::quietForCalls,
                  .key = "quietForCalls",
                  .title = u"Quiet for calls",
                  .hint = {},
                  .cardLabel = u"Calls",
                  .rowLabel = u"Calls",
                  .option = u"--quiet-for-calls",
                  .optionHelp = u"Quiet enough for calls."}};

constexpr std::array<CodingKey<WorkRatings, qint64>, 4> WorkRatings::codingKeys()
{
    std::array<CodingKey<WorkRatings, qint64>, workCriteria.size()> keys{};
    for (std::size_t index = 0; index < keys.size(); ++index)
        keys[index] = {workCriteria[index].key, workCriteria[index].score};
    return keys;
}

} // namespace quorvel
