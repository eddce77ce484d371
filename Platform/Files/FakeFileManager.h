#pragma once

#include "Platform/Files/FileError.h"
#include "Platform/Files/FileManager.h"

#include <QHash>

namespace quorvel {

/// A file system of words alone: answers with the scripted folders and failures, notes every folder
/// that it was asked to make.
class FakeFileManager final : public FileManager
{
public:
    explicit FakeFileManager(QStringList applicationSupport)
        : roots(std::move(applicationSupport))
    {}

    [[nodiscard]] QStringList urls(UserDirectory) const override { return roots; }

    [[nodiscard]] QString url(UserDirectory, CreateIfMissing create) const override
    {
        if (roots.isEmpty())
            qFatal("FakeFileManager: no root was scripted");
        if (create == CreateIfMissing::Yes)
            make(roots.constFirst(), createdRoots);
        return roots.constFirst();
    }

    void createPrivateDirectory(const QString &path) const override
    {
        make(path, createdDirectories);
    }

    QStringList roots;
    /// By the path that was asked for.
    QHash<QString, FileError> failures;

    mutable QStringList createdRoots;
    mutable QStringList createdDirectories;

private:
    void make(const QString &path, QStringList &record) const
    {
        if (const auto failure = failures.constFind(path); failure != failures.constEnd())
            throw FileError(*failure);
        record.append(path);
    }
};

} // namespace quorvel
