#pragma once

#include "Platform/Errors/LocalizedError.h"

namespace quorvel {

/// An operation on a folder or file failed. The description names the file and the system's reason.
class FileError final : public LocalizedError
{
public:
    /// The operation that failed.
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
