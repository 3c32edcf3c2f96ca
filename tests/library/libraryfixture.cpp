// SPDX-License-Identifier: MIT
#include "tests/library/libraryfixture.h"

#include "host/library/readonlylibrary.h"

#include <ilibrarydataprovider.h>

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>

#include <algorithm>

namespace {

/// What a computer knows about libraries is kept away from the person who runs the tests.
void useDataFolderOfTest()
{
    static const QTemporaryDir folder;
    qputenv("XDG_DATA_HOME", folder.path().toUtf8());
}

QString listed(QVector<qint64> ids)
{
    std::sort(ids.begin(), ids.end());
    QStringList texts;
    for (qint64 id : ids)
        texts.append(QString::number(id));
    return texts.join(QLatin1Char(' '));
}

QString tagLine(qint64 id, const QString& name, int color, int files)
{
    return QStringLiteral("tag %1 \"%2\" color %3 files %4").arg(id).arg(name).arg(color).arg(files);
}

QString categoryLine(qint64 id, const QString& name, const QVector<qint64>& tags)
{
    return QStringLiteral("category %1 \"%2\": %3").arg(id).arg(name, listed(tags));
}

QVector<qint64> tagIds(const ITagGroupDataProvider& group)
{
    QHash<qint64, QSharedPointer<ITagDataProvider>> tags;
    if (group.tags(&tags) != tags.size() || group.tagCount(1) != tags.size())
        return {-1};
    return {tags.keyBegin(), tags.keyEnd()};
}

}  // namespace

LibraryFixture::LibraryFixture()
    : m_path(m_folder.filePath(QStringLiteral("library.vellum")))
{
    reopen();
}

LibraryFixture::LibraryFixture(const QString& path)
    : m_path(path)
{
    reopen();
}

LibraryFixture::~LibraryFixture() = default;

void LibraryFixture::close()
{
    m_followed.clear();
    m_followedTags.clear();
    m_library.reset();
}

bool LibraryFixture::reopen()
{
    useDataFolderOfTest();
    close();
    QString error;
    m_library = Library::open(path(), &error);
    if (!m_library)
        qWarning() << error;
    else
        listen();
    return isOpen();
}

void LibraryFixture::listen()
{
    const auto keep = [this](qint64 id, const QSharedPointer<const IResponseInfo>& response) {
        m_answers.insert(id, response);
        m_log.append(QStringLiteral("answer %1").arg(response->status()));
    };
    QObject::connect(tags().data(), &ITagAction::signalTagResult, m_library.get(), keep);
    QObject::connect(categories().data(), &ITagGroupAction::signalTagGroupResult, m_library.get(), keep);
    const auto* all = manager().data();
    QObject::connect(all, &ITagManagerDataProvider::signalAddTagGroups, m_library.get(),
                     [this](const QVector<qint64>& ids) { m_log.append("add categories: " + listed(ids)); });
    QObject::connect(all, &ITagManagerDataProvider::signalRemoveTagGroups, m_library.get(),
                     [this](const QVector<qint64>& ids) { m_log.append("remove categories: " + listed(ids)); });
}

QSharedPointer<ITagAction> LibraryFixture::tags() const
{
    return m_library->dataProvider()->tagAction();
}

QSharedPointer<ITagGroupAction> LibraryFixture::categories() const
{
    return m_library->dataProvider()->tagGroupAction();
}

QSharedPointer<ITagManagerDataProvider> LibraryFixture::manager() const
{
    return m_library->dataProvider()->tagManagerDataProvider();
}

QSharedPointer<ITagGroupDataProvider> LibraryFixture::group(qint64 id) const
{
    return manager()->tagGroup(id);
}

QSharedPointer<ITagDataProvider> LibraryFixture::tag(qint64 id) const
{
    QHash<qint64, QSharedPointer<ITagDataProvider>> found;
    group(-1)->tagsByIds({id}, &found);
    return found.value(id);
}

QSharedPointer<const IResponseInfo> LibraryFixture::answerTo(qint64 requestId, int timeout)
{
    return QTest::qWaitFor([&] { return m_answers.contains(requestId); }, timeout)
               ? m_answers.value(requestId)
               : QSharedPointer<const IResponseInfo>();
}

int LibraryFixture::statusOf(const QSharedPointer<const IResponseInfo>& response)
{
    return response ? response->status() : -1;
}

LibraryResult LibraryFixture::import(const QVector<ImportedFile>& files)
{
    return m_library->importAndWait(m_library->addRootAndWait("/p").rootId, files);
}

bool LibraryFixture::createTags(const QStringList& names)
{
    QVector<NewTagRecord> records;
    for (const QString& name : names)
        records.append({name, 0, 0});
    return statusOf(tags()->createTags(records)) == 0;
}

bool LibraryFixture::createCategories(const QStringList& names)
{
    return std::all_of(names.cbegin(), names.cend(),
                       [this](const QString& name) { return statusOf(categories()->addTagGroup(name)) == 0; });
}

void LibraryFixture::follow(const QVector<qint64>& groupIds)
{
    for (qint64 id : groupIds) {
        const auto provider = group(id);
        m_followed.append(provider);
        const auto log = [this, id](const char* verb) {
            return [this, id, verb](const QVector<qint64>& ids) {
                m_log.append(QStringLiteral("%1 %2: %3").arg(QLatin1String(verb)).arg(id).arg(listed(ids)));
            };
        };
        QObject::connect(provider.data(), &ITagGroupDataProvider::signalAddTags, m_library.get(), log("add"));
        QObject::connect(provider.data(), &ITagGroupDataProvider::signalRemoveTags, m_library.get(), log("remove"));
        QObject::connect(provider.data(), &IDataProvider::signalUpdated, m_library.get(),
                         [this, id] { m_log.append(QStringLiteral("updated category %1").arg(id)); });
        followTags(provider);
    }
}

void LibraryFixture::followTags(const QSharedPointer<ITagGroupDataProvider>& group)
{
    QHash<qint64, QSharedPointer<ITagDataProvider>> all;
    group->tags(&all);
    for (auto tag = all.cbegin(); tag != all.cend(); ++tag) {
        if (m_followedTags.contains(tag.value()))
            continue;
        m_followedTags.append(tag.value());
        QObject::connect(tag.value().data(), &IDataProvider::signalUpdated, m_library.get(),
                         [this, id = tag.key()] { m_log.append(QStringLiteral("updated tag %1").arg(id)); });
    }
}

QStringList LibraryFixture::takeLog()
{
    return std::exchange(m_log, {});
}

QStringList LibraryFixture::logUntil(qint64 requestId)
{
    answerTo(requestId);
    return takeLog();
}

QStringList LibraryFixture::shown() const
{
    QStringList lines;
    QHash<qint64, QSharedPointer<ITagDataProvider>> all;
    group(-1)->tags(&all);
    QList<qint64> ids = all.keys();
    std::sort(ids.begin(), ids.end());
    for (qint64 id : ids) {
        const auto record = all.value(id)->tagInfo();
        lines.append(tagLine(record->id(), record->name(), record->colorIndex(), all.value(id)->fileCount(1)));
    }
    QVector<QSharedPointer<ITagGroupDataProvider>> groups;
    manager()->tagGroups(groups);
    groups.prepend(group(1));
    groups.prepend(group(0));
    for (const auto& category : qAsConst(groups))
        lines.append(categoryLine(category->groupId(), category->groupInfo()->name(), tagIds(*category)));
    return lines;
}

QMap<QByteArray, KnownFile> LibraryFixture::knownFiles(qint64 rootId, const QByteArray& folder) const
{
    QMap<QByteArray, KnownFile> files;
    (void)ReadOnlyLibrary::open(path())->forEachFileBelow(rootId, folder, [&files](const FileRow& file) {
        files.insert(file.relativePath, file.known);
        return true;
    });
    return files;
}

bool LibraryFixture::openOnce(const QString& path)
{
    useDataFolderOfTest();
    QString error;
    const auto library = Library::open(path, &error);
    if (!library)
        qWarning() << error;
    return library != nullptr;
}

QStringList LibraryFixture::stored() const
{
    return storedIn(path());
}

QStringList LibraryFixture::storedIn(const QString& path)
{
    useDataFolderOfTest();
    const auto reader = ReadOnlyLibrary::open(path);
    if (!reader)
        return {};
    QStringList lines;
    QVector<qint64> uncategorized;
    const QVector<TagRow> tags = reader->tags().value;
    for (const TagRow& tag : tags) {
        lines.append(tagLine(tag.id, tag.name, tag.colorIndex, tag.fileCount));
        uncategorized.append(tag.id);
    }
    QHash<qint64, QVector<qint64>> links;
    const QVector<TagLink> tagLinks = reader->tagLinks().value;
    for (const TagLink& link : tagLinks) {
        links[link.categoryId].append(link.tagId);
        if (link.categoryId > 1)
            uncategorized.removeAll(link.tagId);
    }
    lines.append(categoryLine(0, QStringLiteral("Unsorted"), uncategorized));
    const QVector<CategoryRow> categories = reader->categories().value;
    for (const CategoryRow& category : categories)
        lines.append(categoryLine(category.id, category.name, links.value(category.id)));
    return lines;
}

QStringList LibraryFixture::rowsOf(const QString& path, const QStringList& queries)
{
    const QString connection = QStringLiteral("rows");
    QStringList lines;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        database.setDatabaseName(path);
        database.open();
        for (const QString& sql : queries) {
            QSqlQuery query(database);
            if (!query.exec(sql))
                lines.append("failed: " + sql);
            while (query.next())
                lines.append(query.value(0).toString());
        }
    }
    QSqlDatabase::removeDatabase(connection);
    return lines;
}

QString LibraryFixture::integrity(const QString& path)
{
    return rowsOf(path, {"PRAGMA integrity_check", "PRAGMA foreign_key_check"}).join(QStringLiteral(", "));
}
