// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/library.h"
#include "tests/support/patience.h"

#include <iresponseinfo.h>
#include <itagaction.h>
#include <itagdataprovider.h>
#include <itaggroupaction.h>
#include <itaggroupdataprovider.h>
#include <itagmanagerdataprovider.h>

#include <QMap>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

/// A library in a folder of its own that is removed with the fixture, and what tests do with it: requests that wait for
/// their answer, a log of everything the library tells, and its content as text.
class LibraryFixture
{
public:
    /// Opens a new library; isOpen() tells whether that went well.
    LibraryFixture();
    /// The library of another fixture opened once more, as another program would.
    explicit LibraryFixture(const QString& path);
    ~LibraryFixture();

    [[nodiscard]] QString path() const { return m_path; }
    [[nodiscard]] Library* library() const { return m_library.get(); }
    [[nodiscard]] bool isOpen() const { return m_library != nullptr; }
    void close();
    bool reopen();

    [[nodiscard]] QSharedPointer<ITagAction> tags() const;
    [[nodiscard]] QSharedPointer<ITagGroupAction> categories() const;
    [[nodiscard]] QSharedPointer<ITagManagerDataProvider> manager() const;
    [[nodiscard]] QSharedPointer<ITagGroupDataProvider> group(qint64 id) const;
    [[nodiscard]] QSharedPointer<ITagDataProvider> tag(qint64 id) const;

    /// Waits up to \a timeout milliseconds for the answer to the request; null without one.
    QSharedPointer<const IResponseInfo> answerTo(qint64 requestId, int timeout = 20000);
    /// The status of that answer, or -1 without one.
    int statusOf(qint64 requestId) { return statusOf(answerTo(requestId)); }
    static int statusOf(const QSharedPointer<const IResponseInfo>& response);
    /// Writes a batch of files of the root "/p", which is nowhere on the disk.
    LibraryResult import(const QVector<ImportedFile>& files);

    /// Creates tags with the colour 0; their ids go up from 1 in a new library. True on success.
    bool createTags(const QStringList& names);
    bool createCategories(const QStringList& names);

    /// Begins to log what the category and its tags tell, such as "add 0: 1 2", "remove 1: 7", "updated category 3",
    /// "updated tag 5", "add categories: 2" and "answer 0".
    void follow(const QVector<qint64>& groupIds);
    /// The log so far, cleared by reading it.
    QStringList takeLog();
    /// Waits for the answer to the request; the log until then, cleared by reading it.
    QStringList logUntil(qint64 requestId);

    /// The files that the library knows of the root, in \a folder if that is given, by path.
    [[nodiscard]] QMap<QByteArray, KnownFile> knownFiles(qint64 rootId, const QByteArray& folder = {}) const;

    /// Opens the library file and closes it again; false when that fails.
    static bool openOnce(const QString& path);

    /// Everything in the providers' memory, one line for each tag and category.
    [[nodiscard]] QStringList shown() const;
    /// The same as it is stored, read past the library's memory.
    [[nodiscard]] QStringList stored() const;
    /// What another program reads in a database: the first column, one line for each row of each query.
    [[nodiscard]] static QStringList rowsOf(const QString& path, const QStringList& queries);
    /// Result of "PRAGMA integrity_check" and "PRAGMA foreign_key_check" in one line; "ok" when all is well.
    [[nodiscard]] static QString integrity(const QString& path);
    /// The content of a library file as text, in the form of shown().
    [[nodiscard]] static QStringList storedIn(const QString& path);

private:
    void listen();
    void followTags(const QSharedPointer<ITagGroupDataProvider>& group);

    QTemporaryDir m_folder;
    QString m_path;
    std::unique_ptr<Library> m_library;
    QMultiHash<qint64, QSharedPointer<const IResponseInfo>> m_answers;
    QStringList m_log;
    QVector<QSharedPointer<ITagGroupDataProvider>> m_followed;
    QVector<QSharedPointer<ITagDataProvider>> m_followedTags;
};
