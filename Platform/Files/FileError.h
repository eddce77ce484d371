#pragma once

#include "Platform/Errors/LocalizedError.h"

namespace quorvel {

/// A folder or file that could not be had, in words that name it and the system's reason.
class FileError final : public LocalizedError
{
public:
    /// What was attempted.
    enum class Operation { CreateFolder, CloseFolder, SaveFolder, WriteFile };

    /// The code is an `errno` value.
    FileError(Operation operation, QString path, int code);

    [[nodiscard]] QString errorDescription() const override;

    friend bool operator==(const FileError &left, const FileError &right);

private:
    Operation m_operation;
    QString m_path;
    int m_code;
};

} // namespace quorvel
