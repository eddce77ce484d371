#pragma once

#include "Platform/SingleInstance/SingleInstance.h"

namespace quorvel {

/// A claim with the answer that a test sets. The test emits `activated` for the later start.
class FakeSingleInstance final : public SingleInstance
{
    Q_OBJECT

public:
    explicit FakeSingleInstance(Claim scripted = Claim::Primary, QObject *parent = nullptr)
        : SingleInstance(parent)
        , answer(scripted)
    {}

    [[nodiscard]] Claim claim() override
    {
        ++claims;
        return answer;
    }

    Claim answer;
    int claims = 0;
};

} // namespace quorvel
