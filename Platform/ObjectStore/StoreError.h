#pragma once

#include "Platform/Errors/LocalizedError.h"

namespace quorvel {

/// The object store could not be opened, read or saved, and why.
class StoreError final : public LocalizedError
{
public:
    enum class Code {
        CannotOpen, ///< no file can be opened or made at that place
        NotAStore,  ///< a file that another program wrote
        WrongVersion,
        Corrupt,
        Busy, ///< another process kept the store locked for too long
        Full,
        ReadOnly,
        Duplicate, ///< a second row for a unique attribute
        Decoding,  ///< a stored value is missing or of the wrong type
        Encoding,  ///< a value that no column can hold
        Failed,
    };

    StoreError(Code code, QString description);

    [[nodiscard]] Code code() const { return m_code; }
    [[nodiscard]] QString errorDescription() const override { return m_description; }

private:
    Code m_code;
    QString m_description;
};

} // namespace quorvel
