// SPDX-License-Identifier: MIT
#include "host/app/files/filelistmodel.h"

#include "host/app/commands/picturefile.h"
#include "host/app/files/filedrag.h"
#include "host/app/widgets/plaintooltip.h"

#include <QMimeData>
#include <QUrl>

#include <utility>

namespace {

constexpr int thumbnailBytes = 96 * 1024 * 1024;
constexpr int entryOverhead = 64;  // bytes of bookkeeping, roughly

}  // namespace

FileListModel::FileListModel(QObject* parent)
    : QAbstractListModel(parent)
    , m_thumbnails(thumbnailBytes)
{
}

void FileListModel::setFiles(const QVector<qint64>& ids)
{
    const QList<qint64> loaded = m_thumbnails.keys();
    m_outdated = QSet<qint64>(loaded.begin(), loaded.end());
    // Tags change more often than files: the same rows keep their layout.
    if (ids == m_ids)
        return;
    beginResetModel();
    m_ids = ids;
    const QHash<qint64, KnownFile> before = std::exchange(m_paths, {});
    for (int row = 0; row < m_ids.size() && !before.isEmpty(); ++row) {
        const auto known = before.constFind(m_ids.at(row));
        if (known != before.constEnd() && !known->path.isEmpty())
            m_paths.insert(known.key(), {row, known->path});
    }
    endResetModel();
}

qint64 FileListModel::askForPath(int row)
{
    m_paths.insert(m_ids.at(row), {row, {}});
    return m_ids.at(row);
}

void FileListModel::setPaths(const QVector<qint64>& ids, const QVector<FileRow>& files)
{
    for (const FileRow& file : files) {
        const auto known = m_paths.find(file.id);
        if (known == m_paths.end())
            continue;
        known->path = file.path;
        if (file.isAway)
            setThumbnail(file.id, {Thumbnail::Missing, {}});
        changed(known->row);
    }
    for (const qint64 id : ids) {
        const auto known = m_paths.constFind(id);
        if (known != m_paths.constEnd() && known->path.isEmpty())
            setThumbnail(id, {Thumbnail::Missing, {}});
    }
}

void FileListModel::setThumbnail(qint64 id, const Thumbnail& thumbnail)
{
    const auto known = m_paths.constFind(id);
    if (known == m_paths.constEnd())
        return;
    m_outdated.remove(id);
    if (thumbnail.state == Thumbnail::Unchanged)
        return;
    const int cost = static_cast<int>(thumbnail.image.sizeInBytes()) + entryOverhead;
    m_thumbnails.insert(id, new Thumbnail(thumbnail), cost);
    changed(known->row);
}

void FileListModel::forgetThumbnails()
{
    if (m_ids.isEmpty())
        return;
    m_thumbnails.clear();
    emit dataChanged(index(0), index(m_ids.size() - 1), {ThumbnailRole});
}

bool FileListModel::needsThumbnail(int row) const
{
    const qint64 file = m_ids.at(row);
    // The path of a file whose root is not mounted is relative and would be resolved in the working directory.
    return path(row).startsWith('/') && (!m_thumbnails.contains(file) || m_outdated.contains(file));
}

Thumbnail::Source FileListModel::thumbnailSource(int row) const
{
    const Thumbnail* known = m_thumbnails.object(m_ids.at(row));
    return known ? known->source : Thumbnail::Source();
}

int FileListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_ids.size();
}

Qt::ItemFlags FileListModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractListModel::flags(index);
    return index.isValid() ? flags | Qt::ItemIsDragEnabled : flags;
}

QMimeData* FileListModel::mimeData(const QModelIndexList& indexes) const
{
    QVector<qint64> ids;
    QList<QUrl> urls;
    for (const QModelIndex& index : indexes) {
        ids.append(id(index.row()));
        const QByteArray file = path(index.row());
        if (file.startsWith('/'))
            urls.append(QUrl::fromEncoded("file://" + file.toPercentEncoding("/")));
    }
    auto* const data = new QMimeData;
    filedrag::setFiles(*data, ids);
    data->setUrls(urls);
    return data;
}

QVariant FileListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return PictureFile::displayName(path(index.row()));
    case Qt::ToolTipRole:
        return plainToolTip(QString::fromUtf8(path(index.row())));
    case PathRole:
        return path(index.row());
    case ThumbnailRole: {
        const Thumbnail* thumbnail = m_thumbnails.object(m_ids.at(index.row()));
        return QVariant::fromValue(thumbnail ? *thumbnail : Thumbnail());
    }
    default:
        return {};
    }
}

void FileListModel::changed(int row)
{
    const QModelIndex changedIndex = index(row);
    emit dataChanged(changedIndex, changedIndex);
}
