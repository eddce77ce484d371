#pragma once

#include "Platform/Errors/LocalizedError.h"

#include <QLatin1StringView>

namespace quorvel {

/// Posted after a check-in is stored, so that an open history reloads.
inline constexpr QLatin1StringView checkInDidSave("com.zantho.quorvel.checkInDidSave");

/// The errors that services throw to view models: every failure that a screen shows, with its
/// sentence for the user.
class AppError final : public LocalizedError
{
public:
    enum class Case { LocationFailed, Network, Decoding, LocationDenied, NoCafeFound };

    /// The message is the platform's description of the failure.
    [[nodiscard]] static AppError locationFailed(QString message);
    [[nodiscard]] static AppError network(QString message);
    [[nodiscard]] static AppError decoding(QString message);
    [[nodiscard]] static AppError locationDenied();
    [[nodiscard]] static AppError noCafeFound();

    [[nodiscard]] Case kind() const { return m_kind; }
    /// Empty for cases without a message.
    [[nodiscard]] const QString &message() const { return m_message; }
    [[nodiscard]] QString errorDescription() const override;

    friend bool operator==(const AppError &left, const AppError &right);

private:
    explicit AppError(Case kind, QString message = {});

    Case m_kind;
    QString m_message;
};

} // namespace quorvel
