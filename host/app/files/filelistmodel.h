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
/// Starts with the ids alone; paths and thumbnails are filled in for the rows that are looked at. Thumbnails are held
/// up to a number of bytes: those shown longest ago are forgotten and are Pending again.
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

    /// Replaces all rows, each id at most once. Paths that stay are still known; their thumbnails are shown until they
    /// have been loaded anew.
    void setFiles(const QVector<qint64>& ids);
    /// Fills in what was asked for; files of \a ids that are not among \a files are Missing.
    void setPaths(const QVector<qint64>& ids, const QVector<FileRow>& files);
    /// Does nothing for a file that is not shown.
    void setThumbnail(qint64 id, const Thumbnail& thumbnail);
    /// Makes every row Pending, because thumbnails of another size are needed.
    void forgetThumbnails();

    /// The id of the file in \a row, for which setPaths() is to be called from now on.
    qint64 askForPath(int row);
    [[nodiscard]] qint64 id(int row) const { return m_ids.at(row); }
    /// Empty while not known.
    [[nodiscard]] QByteArray path(int row) const { return m_paths.value(m_ids.at(row)).path; }
    /// True until somebody has asked for the path.
    [[nodiscard]] bool needsPath(int row) const { return !m_paths.contains(m_ids.at(row)); }
    /// True when the path is known and the thumbnail is not, or may be out of date.
    [[nodiscard]] bool needsThumbnail(int row) const;
    /// What the thumbnail in \a row was made of.
    [[nodiscard]] Thumbnail::Source thumbnailSource(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    struct KnownFile
    {
        int row = 0;
        QByteArray path;
    };

    void changed(int row);

    QVector<qint64> m_ids;
    QHash<qint64, KnownFile> m_paths;                ///< Of the files asked for.
    QSet<qint64> m_outdated;                         ///< Thumbnails that may show an older state of the file.
    mutable QCache<qint64, Thumbnail> m_thumbnails;  ///< By id, costs in bytes; reading marks an entry as used.
};
