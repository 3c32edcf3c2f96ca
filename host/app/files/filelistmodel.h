// SPDX-License-Identifier: MIT
#pragma once

#include "host/app/files/thumbnail.h"
#include "host/library/records/libraryrecords.h"

#include <QAbstractListModel>
#include <QByteArray>
#include <QCache>
#include <QHash>
#include <QSet>
#include <QVector>

/// The files that are shown, one row each. GUI thread only.
///
/// Holds ids at first; paths and thumbnails are filled in for the rows in sight. Thumbnails are cached up to a number
/// of bytes; the least recently shown are evicted and become Pending again.
class FileListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    /// Qt::DisplayRole is the file's name; Qt::ToolTipRole its path, escaped.
    enum Role
    {
        PathRole = Qt::UserRole,  ///< QByteArray, the path in the file system's bytes; empty while not known.
        ThumbnailRole             ///< Thumbnail.
    };

    explicit FileListModel(QObject* parent = nullptr);

    /// Replaces all rows; ids must be unique. Files that stay keep their path, and their thumbnail until a newer one is
    /// set.
    void setFiles(const QVector<qint64>& ids);
    /// Sets the paths of \a ids; files that are not among \a files become Missing.
    void setPaths(const QVector<qint64>& ids, const QVector<FileRow>& files);
    /// Ignored for a file that is not in the model.
    void setThumbnail(qint64 id, const Thumbnail& thumbnail);
    /// Makes every row Pending, for thumbnails of another size.
    void forgetThumbnails();

    /// Marks the path of \a row as requested, and returns the id for which setPaths() is then expected.
    qint64 askForPath(int row);
    /// -1 for a file that is not shown. Costs a look at every row.
    [[nodiscard]] int rowOf(qint64 id) const { return m_ids.indexOf(id); }
    [[nodiscard]] qint64 id(int row) const { return m_ids.at(row); }
    /// Empty while not known.
    [[nodiscard]] QByteArray path(int row) const { return m_paths.value(m_ids.at(row)).path; }
    /// True until askForPath() is called.
    [[nodiscard]] bool needsPath(int row) const { return !m_paths.contains(m_ids.at(row)); }
    /// True when the path is known and the thumbnail is not, or may be out of date.
    [[nodiscard]] bool needsThumbnail(int row) const;
    /// Source of the cached thumbnail of \a row.
    [[nodiscard]] Thumbnail::Source thumbnailSource(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Ids of all rows, and the URLs of those whose path is known. Owned by the caller.
    [[nodiscard]] QMimeData* mimeData(const QModelIndexList& indexes) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    struct KnownFile
    {
        int row = 0;
        QByteArray path;
    };

    void changed(int row);

    QVector<qint64> m_ids;
    QHash<qint64, KnownFile> m_paths;  ///< Files whose path was requested.
    QSet<qint64> m_outdated;           ///< Files whose thumbnail may be out of date.
    mutable QCache<qint64, Thumbnail>
        m_thumbnails;  ///< By id, cost in bytes; mutable, as reading marks an entry as used.
};
