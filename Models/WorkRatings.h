#pragma once

#include "Platform/ObjectStore/Schema/Composite.h"

namespace quorvel {

/// The user's scores for a visit. The rating control limits each to 1 to 5; the record accepts any
/// number.
struct WorkRatings
{
    qint64 wifiSpeed = 0;
    qint64 outlets = 0;
    qint64 noise = 0;
    qint64 quietForCalls = 0;

    static constexpr auto codingKeys()
    {
        return std::tuple(CodingKey{"wifiSpeed", &WorkRatings::wifiSpeed},
                          CodingKey{"outlets", &WorkRatings::outlets},
                          CodingKey{"noise", &WorkRatings::noise},
                          CodingKey{"quietForCalls", &WorkRatings::quietForCalls});
    }

    friend bool operator==(const WorkRatings &, const WorkRatings &) = default;
};

} // namespace quorvel
