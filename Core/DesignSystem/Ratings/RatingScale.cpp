#include "Core/DesignSystem/Ratings/RatingScale.h"

#include "Models/WorkRatings.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvel {

int RatingScale::lowest()
{
    return WorkRatings::lowest;
}

int RatingScale::highest()
{
    return WorkRatings::highest;
}

int RatingScale::raised(int score)
{
    return std::min(score + 1, highest());
}

int RatingScale::lowered(int score)
{
    return std::max(score - 1, lowest());
}

int RatingScale::clamped(int score)
{
    return std::clamp(score, lowest(), highest());
}

bool RatingScale::isLit(int place, int score)
{
    return place <= score;
}

QString RatingScale::description(int score)
{
    return u"%1 of %2"_s.arg(score).arg(highest());
}

} // namespace quorvel
