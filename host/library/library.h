// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/query/filequery.h"
#include "host/library/records/libraryresult.h"
#include "host/library/requests/librarycommand.h"

#include <QObject>
#include <QSharedPointer>

#include <atomic>
#include <functional>
#include <memory>

class ILibraryDataProvider;

/// An open library of files and their tags: one SQLite file behind the host interfaces.
///
/// Everything that a provider reads comes from memory (tags, categories, which tag is in which category, and a file
/// count per tag; not the files), which open() fills with a handful of queries: the cost is that of reading every tag.
/// Requests and imports run in the order sent on a thread of the library's own, each in one transaction. For each of
/// them, once it is committed, and on the thread that opened the library: memory is brought up to date, then the data
/// signals of the providers are emitted, for up to 200 tags at once, then the request is answered, exactly once. A
/// request that fails changes nothing and is answered with the reason. A library that another program holds locked is
/// waited for up to 5 seconds, on that thread. A library whose file was moved, deleted, replaced or written over
/// meanwhile refuses every request.
///
/// What other programs commit to the same file is noticed before the next request, or within about a second, and
/// emitted as a request's change is. A library in a folder that is read-only is shown, and requests are answered so;
/// other programs' changes are not noticed then.
///
/// Names are kept as typed, without white space at their ends, and compared in normalisation form C, case-sensitively.
///
/// Lives on the GUI thread, where open() was called. Destroying it waits until the requests sent so far are
/// committed; their answers and signals are not delivered any more. Providers that somebody still holds stay readable.
class Library : public QObject
{
    Q_OBJECT

public:
    using FileIdsCallback = std::function<void(const LibraryAnswer<QVector<qint64>>& ids)>;
    using TagSharesCallback = std::function<void(const LibraryAnswer<QVector<TagShare>>& shares)>;
    using ResultCallback = std::function<void(const LibraryResult& result)>;
    using FilesCallback = std::function<void(const LibraryAnswer<QVector<FileRow>>& files)>;

    /// Opens the library in the file \a path, creating it when there is none (readable by its owner alone). Null when
    /// it cannot be opened, is of a newer version or is no library of ours; the file is left as it was then, and
    /// \a error, when given, says why.
    static std::unique_ptr<Library> open(const QString& path, QString* error = nullptr);
    ~Library() override;

    /// Absolute path of the database file, without links.
    [[nodiscard]] QString path() const;
    /// Unlike that of any other library; names what this computer knows of it (ComputerState).
    [[nodiscard]] QString id() const;
    /// For the person: what was changed to bring the library to this version, such as names that cannot be kept. Kept
    /// in the library until it was taken once, by any program.
    [[nodiscard]] QStringList takeUpgradeNotices();
    /// What the tag manager window is given. The same object at every call; never null.
    [[nodiscard]] QSharedPointer<ILibraryDataProvider> dataProvider() const;

    /// The requests of an importer, waiting for the commit: for its own thread, and for programs without an event loop.
    /// Callable on any thread while the library lives. The data signals follow from the event loop of the GUI thread.
    /// With \a cancelled a lock of another program is waited for until that is set.

    /// The root for \a folder, an absolute path: LibraryResult::rootId, and in folderInRoot where in it the folder is.
    /// That is a root that is mounted there or above on this computer, else a new one, which takes over the files of
    /// roots that are mounted below, and the files there of a root whose mount was guessed.
    [[nodiscard]] LibraryResult addRootAndWait(const QByteArray& folder, const std::atomic_bool* cancelled = nullptr);
    /// Writes a batch in one transaction. A file's tags become those that its keywords lead to (a keyword that is new
    /// leads to the tag of its name, which is made when missing and coloured by a hash of the name) and those that a
    /// person gave it, without those that a person took away. A file without any change costs look-ups only.
    [[nodiscard]] LibraryResult importAndWait(qint64 rootId, const QVector<ImportedFile>& files,
                                              const std::atomic_bool* cancelled = nullptr);
    /// To be called at the end of each import: decides about keywords of libraries that were made by version 1.
    [[nodiscard]] LibraryResult settleAndWait(const std::atomic_bool* cancelled = nullptr);
    /// Removes files from the library (not from the disk) together with their tag links. Unknown paths are ignored;
    /// tags stay.
    [[nodiscard]] LibraryResult forgetAndWait(qint64 rootId, const QVector<QByteArray>& paths,
                                              const std::atomic_bool* cancelled = nullptr);

    enum class Mode
    {
        Commit,
        Rehearsal  ///< Carry it out as far as the answer tells, and commit nothing.
    };

    /// Carries out a command and waits for its commit: for programs without an event loop. The data signals follow as
    /// above.
    [[nodiscard]] LibraryResult carryOutAndWait(const LibraryCommand& command, Mode mode = Mode::Commit);
    /// Carries out a command; \a callback is called as a request is answered, unless \a context is gone by then.
    void carryOut(const LibraryCommand& command, QObject* context, ResultCallback callback);

    /// Asks for the ids of files, ordered by path; answered on the GUI thread unless \a context is gone by then. Runs
    /// on a thread for reading, beside the requests, and sees what is committed when it runs. 8 bytes for each file.
    void queryFileIds(const FileQuery& query, QObject* context, FileIdsCallback callback);
    /// Asks for the files with these ids, in that order, without tag ids; files that are gone are left out. Answered
    /// like queryFileIds(). Meant for the page of files that is looked at.
    void queryFiles(const QVector<qint64>& ids, QObject* context, FilesCallback callback);

    /// Asks for the tags that these files have: those of most of them first. Answered like queryFileIds().
    void queryTagShares(const QVector<qint64>& fileIds, QObject* context, TagSharesCallback callback);

    /// From now on holds back the signals of what other programs and imports change, so that nothing that is shown
    /// changes while a person types a name: for up to \a longest milliseconds after the first such change. The answer
    /// to a request comes after the signals of what was committed before it, in that order, as ever.
    void holdNotifications(int longest);
    /// Ends that; what was held back follows from the event loop.
    void releaseNotifications();

signals:
    /// Files joined or left the library, or their tags changed, by an import, a removal or a deleted tag.
    void filesChanged();
    /// Tags were made, changed or deleted, or joined or left a category: after the signals of the providers.
    void tagsChanged();
    /// What other programs change cannot be read; \a reason is for the person. Once for each reason.
    void failed(const QString& reason);

private:
    struct Private;

    explicit Library(std::unique_ptr<Private> members);

    template <typename Answer, typename Read>
    void query(Read read, QObject* context, std::function<void(const Answer&)> callback);

    std::unique_ptr<Private> d;
};
