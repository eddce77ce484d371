#pragma once

#include <QObject>
#include <QString>

namespace quorvel {

/// One line in the log of the diagnostics.
struct LogLine
{
    Q_GADGET
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(bool isSuccess READ isSuccess)
    Q_PROPERTY(bool isError READ isError)
    Q_PROPERTY(bool isSeparator READ isSeparator)

public:
    enum class Kind { Normal, Success, Error, Separator };

    int number = 0; ///< from the launch on
    QString text = {};
    Kind kind = Kind::Normal;
    /// The same text without private data; see ShareableText.
    QString shareableText = {};

    [[nodiscard]] int id() const { return number; }
    [[nodiscard]] bool isSuccess() const { return kind == Kind::Success; }
    [[nodiscard]] bool isError() const { return kind == Kind::Error; }
    /// The heading of one action's steps.
    [[nodiscard]] bool isSeparator() const { return kind == Kind::Separator; }

    friend bool operator==(const LogLine &, const LogLine &) = default;
};

} // namespace quorvel
