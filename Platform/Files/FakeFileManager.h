#pragma once

#include "Platform/Files/FileError.h"
#include "Platform/Files/FileManager.h"

#include <QHash>

#include <utility>

namespace quorvel {

/// A file system in memory. It answers with the scripted folders and failures, and records the
/// folders that it was asked to create and the files that were written.
class FakeFileManager final : public FileManager
{
public:
    explicit FakeFileManager(QStringList applicationSupport)
        : roots(std::move(applicationSupport))
    {}

    [[nodiscard]] QStringList urls(UserDirectory directory) const override
    {
        return directory == UserDirectory::Downloads ? downloads : roots;
    }

    [[nodiscard]] QString homeDirectory() const override { return home; }

    [[nodiscard]] QString url(UserDirectory directory, CreateIfMissing create) const override
    {
        const QStringList places = urls(directory);
        if (places.isEmpty())
            qFatal("FakeFileManager: no root was scripted");
        if (create == CreateIfMissing::Yes)
            make(places.constFirst(), createdRoots);
        return places.constFirst();
    }

    void createPrivateDirectory(const QString &path) const override
    {
        make(path, createdDirectories);
    }

    void writePrivateFile(const QString &path, const QByteArray &content) const override
    {
        throwScripted(path);
        files.insert(path, content);
    }

    QStringList roots;
    QStringList downloads;
    QString home = QStringLiteral("/home/ana");
    /// By requested path.
    QHash<QString, FileError> failures;

    mutable QStringList createdRoots;
    mutable QStringList createdDirectories;
    /// By path.
    mutable QHash<QString, QByteArray> files;

private:
    void make(const QString &path, QStringList &record) const
    {
        throwScripted(path);
        record.append(path);
    }
    void throwScripted(const QString &path) const
    {
        if (const auto failure = failures.constFind(path); failure != failures.constEnd())
            throw FileError(*failure);
    }
};

} // namespace quorvel
