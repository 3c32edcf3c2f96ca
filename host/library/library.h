// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/filequery.h"
#include "host/library/records/importoutcome.h"
#include "host/library/records/libraryrecords.h"

#include <QObject>
#include <QSharedPointer>

#include <functional>
#include <memory>

class ILibraryDataProvider;

/// An open library of files and their tags: one SQLite file behind the host interfaces.
///
/// Everything that a provider reads comes from memory (tags, categories, which tag is in which category, and a file
/// count per tag; not the files), which open() fills with a handful of queries: the cost is that of reading every tag
/// and counting every link once. Requests and imports run in the order sent on a thread of the library's own, each in
/// one transaction. For each of them, once it is committed, and on the thread that opened the library: memory is
/// brought up to date, then the data signals of the providers are emitted, for up to 200 tags at once, then
/// the request is answered, exactly once. A request that fails changes nothing and is answered with the reason. A
/// library that another program holds locked is waited for up to 5 seconds, on that thread.
///
/// What other programs commit to the same file is noticed before the next request, or within about a second, and told
/// as a request's change is. A library in a folder that is read-only is shown, and requests are answered so; other
/// programs' changes are not noticed then.
///
/// Names are kept as typed, without white space at their ends, and compared in normalisation form C, case-sensitively.
///
/// Lives on the GUI thread, where open() was called. Destroying it waits until the requests sent so far are
/// committed; their answers and signals are not delivered any more. Providers that somebody still holds stay readable.
class Library : public QObject
{
    Q_OBJECT

public:
    using ImportCallback = std::function<void(const ImportOutcome& outcome)>;
    using FileIdsCallback = std::function<void(const QVector<qint64>& ids, const QString& error)>;
    using FilesCallback = std::function<void(const QVector<FileRow>& files, const QString& error)>;

    /// Opens the library in the file \a path, creating it when there is none (readable by its owner alone). Null when
    /// it cannot be opened, is of a newer version or is no library of ours; the file is left as it was then, and
    /// \a error, when given, says why.
    static std::unique_ptr<Library> open(const QString& path, QString* error = nullptr);
    ~Library() override;

    /// Absolute path of the database file.
    [[nodiscard]] QString path() const;
    /// What the tag manager window is given. The same object at every call; never null.
    [[nodiscard]] QSharedPointer<ILibraryDataProvider> dataProvider() const;

    /// Writes a batch in one transaction. A file's tags become those that its keywords name (matched by name, created
    /// when missing, coloured by a hash of the name); a file without any change costs look-ups only. A tag that was
    /// renamed keeps the files that do not change; a file that changes is filed by its keywords again.
    /// \a callback, when given, is called on the GUI thread after the data signals, unless \a context is gone by then.
    void requestImport(const QVector<ImportedFile>& files, QObject* context = nullptr, ImportCallback callback = {});
    /// Removes files from the library (not from the disk) together with their tag links. Unknown paths are ignored;
    /// tags stay. Runs and answers as requestImport() does.
    void requestForget(const QVector<QByteArray>& paths, QObject* context = nullptr, ImportCallback callback = {});
    /// The same two, waiting for the commit; for an importer's own thread, and for programs without an event loop.
    /// Callable on any thread while the library lives. The data signals follow from the event loop of the GUI thread.
    ImportOutcome importAndWait(const QVector<ImportedFile>& files);
    ImportOutcome forgetAndWait(const QVector<QByteArray>& paths);

    /// Asks for the ids of files, ordered by path; answered on the GUI thread unless \a context is gone by then. Runs
    /// on a thread for reading, beside the requests, and sees what is committed when it runs. 8 bytes for each file.
    void queryFileIds(const FileQuery& query, QObject* context, FileIdsCallback callback);
    /// Asks for the files with these ids, in that order, without tag ids; files that are gone are left out. Answered
    /// like queryFileIds(). Meant for the page of files that is looked at.
    void queryFiles(const QVector<qint64>& ids, QObject* context, FilesCallback callback);

    /// From now on holds back the signals of what other programs and imports change, so that nothing that is shown
    /// changes while a person types a name: for up to \a longest milliseconds after the first such change. The answer
    /// to a request comes after the signals of what was committed before it, in that order, as ever.
    void holdNews(int longest);
    /// Ends that; what was held back follows from the event loop.
    void releaseNews();

signals:
    /// Files joined or left the library, or their tags changed, by an import, a removal or a deleted tag.
    void filesChanged();

private:
    struct Private;

    explicit Library(std::unique_ptr<Private> members);

    template <typename Read, typename Callback>
    void query(Read read, QObject* context, Callback callback);

    std::unique_ptr<Private> d;
};
