#include "Platform/Files/FileError.h"

#include "Platform/Errors/SystemReason.h"

#include <utility>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

QString sentence(FileError::Operation operation)
{
    switch (operation) {
    case FileError::Operation::CreateFolder:
        return u"The folder “%1” could not be created: %2"_s;
    case FileError::Operation::CloseFolder:
        return u"The folder “%1” could not be closed to other users: %2"_s;
    case FileError::Operation::SaveFolder:
        return u"The folder “%1” could not be saved to disk: %2"_s;
    case FileError::Operation::WriteFile:
        return u"The file “%1” could not be written: %2"_s;
    }
    Q_UNREACHABLE();
}

} // namespace

FileError::FileError(Operation operation, QString path, int code)
    : m_operation(operation)
    , m_path(std::move(path))
    , m_code(code)
{}

QString FileError::errorDescription() const
{
    return sentence(m_operation).arg(m_path, systemReason(m_code));
}

bool operator==(const FileError &left, const FileError &right)
{
    return left.m_operation == right.m_operation && left.m_path == right.m_path &&
           left.m_code == right.m_code;
}

} // namespace quorvel
