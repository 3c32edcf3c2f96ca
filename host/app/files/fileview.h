// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/libraryrecords.h"

#include <QListView>
#include <QTimer>

class FileListModel;
struct Thumbnail;
class ThumbnailLoader;

/// The files as thumbnails in a scrolling grid; loads those in sight first and a screenful in both directions after
/// them.
///
/// Laid out in batches, so that no number of files stalls the window.
class FileView : public QListView
{
    Q_OBJECT

public:
    explicit FileView(QWidget* parent = nullptr);
    ~FileView() override;

    /// Replaces the files. \a keepPlace keeps the scroll position, as far as there are files.
    void setFiles(const QVector<qint64>& ids, bool keepPlace);
    /// Ids in the order shown.
    [[nodiscard]] QVector<qint64> selectedFiles() const;
    /// The answer to filesNeeded().
    void setPaths(const QVector<qint64>& ids, const QVector<FileRow>& files);

signals:
    /// The paths of these files are needed, as they are in sight or near it; answered by setPaths().
    void filesNeeded(const QVector<qint64>& ids);
    /// The user double-clicked this file.
    void fileActivated(const QByteArray& path);
    /// A chip was dropped on a picture: the tag is for \a files, that one or, when it is selected, all selected ones.
    void tagDropped(qint64 tagId, const QVector<qint64>& files);
    /// A key from 1 to 9 was pressed.
    void digitPressed(int digit);
    /// Other files are selected than before.
    void filesSelected();
    /// No thumbnail can be made on this system, for \a reason. Emitted once.
    void thumbnailsUnavailable(const QString& reason);

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void startDrag(Qt::DropActions supportedActions) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles) override;
    void updateGeometries() override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
    void setUpGrid();
    void requestThumbnails();
    void selectFiles(const QVector<qint64>& ids, qint64 current);
    [[nodiscard]] QPixmap dragPicture(int files) const;
    void updatePixels();
    [[nodiscard]] QVector<int> rowsByUrgency() const;
    [[nodiscard]] int firstRowBelow(int y) const;

    FileListModel* m_model = nullptr;
    ThumbnailLoader* m_loader = nullptr;
    QTimer m_request;          ///< Coalesces the requests of one turn of the event loop.
    int m_placeToRestore = 0;  ///< Scroll position in logical pixels to restore once the layout reaches it; 0 for none.
    int m_pixels = 0;          ///< Side of the thumbnails in the model, device pixels.
};
