// SPDX-License-Identifier: MIT
#include "host/app/files/fileview.h"

#include "host/app/files/filedrag.h"
#include "host/app/files/filelistmodel.h"
#include "host/app/files/filetiledelegate.h"
#include "host/app/files/filetilelayout.h"
#include "host/app/files/thumbnailloader.h"

#include <vlskinsetting.h>

#include <QDrag>
#include <QDragEnterEvent>
#include <QEvent>
#include <QItemSelection>
#include <QKeyEvent>
#include <QLocale>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QSet>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int dragSide = 72;       // logical pixels
constexpr int dragOffset = 10;     // from the pointer, logical pixels
constexpr int rowsPerBatch = 500;  // rows laid out in one turn of the event loop

}  // namespace

FileView::FileView(QWidget* parent)
    : QListView(parent)
    , m_model(new FileListModel(this))
    , m_loader(new ThumbnailLoader(this))
{
    setObjectName(QStringLiteral("file_view"));
    setUpGrid();
    setModel(m_model);
    setItemDelegate(new FileTileDelegate(this));
    m_request.setSingleShot(true);
    m_request.setInterval(0);
    connect(&m_request, &QTimer::timeout, this, &FileView::requestThumbnails);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, &m_request, qOverload<>(&QTimer::start));
    connect(m_loader, &ThumbnailLoader::thumbnailLoaded, this,
            [this](qint64 id, int pixels, const Thumbnail& thumbnail) {
                if (pixels == m_pixels)
                    m_model->setThumbnail(id, thumbnail);
            });
    connect(m_loader, &ThumbnailLoader::unavailable, this, &FileView::thumbnailsUnavailable);
    connect(this, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& index) { emit fileActivated(m_model->path(index.row())); });
}

FileView::~FileView() = default;

void FileView::setFiles(const QVector<qint64>& ids, bool keepPlace)
{
    m_loader->setWanted({}, m_pixels);
    m_placeToRestore = keepPlace ? verticalScrollBar()->value() : 0;
    const QVector<qint64> selected = keepPlace ? selectedFiles() : QVector<qint64>();
    const qint64 current = keepPlace && currentIndex().isValid() ? m_model->id(currentIndex().row()) : 0;
    m_model->setFiles(ids);
    selectFiles(selected, current);
    if (!keepPlace)
        scrollToTop();
    m_request.start();
}

QVector<qint64> FileView::selectedFiles() const
{
    QVector<int> rows;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.append(row);
    }
    std::sort(rows.begin(), rows.end());
    QVector<qint64> ids;
    ids.reserve(rows.size());
    for (const int row : qAsConst(rows))
        ids.append(m_model->id(row));
    return ids;
}

/// Those that are still shown.
void FileView::selectFiles(const QVector<qint64>& ids, qint64 current)
{
    const QSet<qint64> wanted(ids.cbegin(), ids.cend());
    QItemSelection selection;
    for (int row = 0; row < m_model->rowCount() && !wanted.isEmpty(); ++row) {
        if (!wanted.contains(m_model->id(row)))
            continue;
        const int first = row;
        while (row + 1 < m_model->rowCount() && wanted.contains(m_model->id(row + 1)))
            ++row;
        selection.append(QItemSelectionRange(m_model->index(first), m_model->index(row)));
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    const int row = m_model->rowOf(current);
    if (row >= 0)
        selectionModel()->setCurrentIndex(m_model->index(row), QItemSelectionModel::NoUpdate);
    // The model was made anew, which deselects without a word.
    emit filesSelected();
}

void FileView::setPaths(const QVector<qint64>& ids, const QVector<FileRow>& files)
{
    m_model->setPaths(ids, files);
    m_request.start();
}

bool FileView::event(QEvent* event)
{
    // The new screen may have another scale.
    if (event->type() == QEvent::ScreenChangeInternal)
        m_request.start();
    return QListView::event(event);
}

void FileView::resizeEvent(QResizeEvent* event)
{
    QListView::resizeEvent(event);
    m_request.start();
}

void FileView::keyPressEvent(QKeyEvent* event)
{
    const int digit = event->key() - Qt::Key_0;
    if (digit >= 1 && digit <= 9 && (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier)
        emit digitPressed(digit);
    else
        QListView::keyPressEvent(event);
}

void FileView::startDrag(Qt::DropActions /*supportedActions*/)
{
    const QModelIndexList indexes = selectionModel()->selectedRows();
    if (indexes.isEmpty())
        return;
    // Owned by Qt. The picture hangs below the pointer, so that the chip there stays in sight.
    auto* const drag = new QDrag(this);
    drag->setMimeData(m_model->mimeData(indexes));
    drag->setPixmap(dragPicture(indexes.size()));
    drag->setHotSpot(QPoint(-dragOffset, -dragOffset));
    drag->exec(Qt::CopyAction);
}

/// The current picture, small, and how many there are.
QPixmap FileView::dragPicture(int files) const
{
    const auto thumbnail = currentIndex().data(FileListModel::ThumbnailRole).value<Thumbnail>();
    QPixmap picture(QSize(dragSide, dragSide) * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QSize size = thumbnail.image.size().scaled(dragSide, dragSide, Qt::KeepAspectRatio);
    painter.drawImage(QRect(QPoint(0, 0), size), thumbnail.image);
    if (files > 1) {
        const QString number = QLocale().toString(files);
        QRect badge = painter.fontMetrics().boundingRect(number).adjusted(-6, -3, 6, 3);
        badge.moveBottomRight(QPoint(dragSide - 1, dragSide - 1));
        painter.fillRect(badge, VLSkinSetting::GetInstance()->GetInputAndButtonColor());
        painter.setPen(Qt::white);
        painter.drawText(badge, Qt::AlignCenter, number);
    }
    return picture;
}

void FileView::dragEnterEvent(QDragEnterEvent* event)
{
    event->setAccepted(filedrag::tagOf(*event->mimeData()) != 0);
}

void FileView::dragMoveEvent(QDragMoveEvent* event)
{
    event->setAccepted(filedrag::tagOf(*event->mimeData()) != 0 && indexAt(event->pos()).isValid());
}

void FileView::dropEvent(QDropEvent* event)
{
    const QModelIndex index = indexAt(event->pos());
    const qint64 tagId = filedrag::tagOf(*event->mimeData());
    if (tagId == 0 || !index.isValid())
        return;
    event->acceptProposedAction();
    const bool isSelected = selectionModel()->isSelected(index);
    emit tagDropped(tagId, isSelected ? selectedFiles() : QVector<qint64>{m_model->id(index.row())});
}

void FileView::showEvent(QShowEvent* event)
{
    QListView::showEvent(event);
    m_request.start();
}

void FileView::hideEvent(QHideEvent* event)
{
    QListView::hideEvent(event);
    m_loader->setWanted({}, m_pixels);
}

void FileView::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles)
{
    // QListView::dataChanged() would lay out all rows again, although no tile changes its size.
    QAbstractItemView::dataChanged(topLeft, bottomRight, roles);  // NOLINT(bugprone-parent-virtual-call)
}

void FileView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QListView::selectionChanged(selected, deselected);
    emit filesSelected();
}

void FileView::updateGeometries()
{
    // Also called after each batch of the layout, which may have placed rows in sight.
    QListView::updateGeometries();
    if (m_placeToRestore > 0 && m_placeToRestore <= verticalScrollBar()->maximum())
        verticalScrollBar()->setValue(std::exchange(m_placeToRestore, 0));
    m_request.start();
}

void FileView::setUpGrid()
{
    // List mode stores one position per row; icon mode sorts all rows into a tree, which blocks the window for 0.1 s
    // with a million files.
    setViewMode(QListView::ListMode);
    setFlow(QListView::LeftToRight);
    setWrapping(true);
    setResizeMode(QListView::Adjust);
    setUniformItemSizes(true);
    setGridSize(FileTileLayout::tileSize);
    setLayoutMode(QListView::Batched);
    setBatchSize(rowsPerBatch);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(QFrame::NoFrame);
    setMouseTracking(true);
    setSelectionRectVisible(true);
    setDragDropMode(QAbstractItemView::DragDrop);
    setDropIndicatorShown(false);
    verticalScrollBar()->setSingleStep(FileTileLayout::tileSize.height() / 4);
}

void FileView::requestThumbnails()
{
    if (!isVisible())
        return;
    updatePixels();
    QVector<ThumbnailRequest> wanted;
    QVector<qint64> unknown;
    const QVector<int> rows = rowsByUrgency();
    for (const int row : rows) {
        if (m_model->needsPath(row))
            unknown.append(m_model->askForPath(row));
        else if (m_model->needsThumbnail(row))
            wanted.append({m_model->id(row), m_model->path(row), m_model->thumbnailSource(row)});
    }
    m_loader->setWanted(wanted, m_pixels);
    if (!unknown.isEmpty())
        emit filesNeeded(unknown);
}

void FileView::updatePixels()
{
    const int pixels = static_cast<int>(std::ceil(FileTileLayout::pictureSide * devicePixelRatioF()));
    if (pixels == m_pixels)
        return;
    m_pixels = pixels;
    m_model->forgetThumbnails();
}

QVector<int> FileView::rowsByUrgency() const
{
    const int page = viewport()->height();
    const int tile = FileTileLayout::tileSize.height();
    const int first = firstRowBelow(0);
    const int end = firstRowBelow(page + tile);
    QVector<int> rows;
    const auto append = [&rows](int from, int to) {
        for (int row = from; row < to; ++row)
            rows.append(row);
    };
    append(first, end);
    append(end, firstRowBelow(2 * page));
    append(firstRowBelow(-page), first);
    return rows;
}

int FileView::firstRowBelow(int y) const
{
    int low = 0;
    int high = m_model->rowCount();
    while (low < high) {
        const int middle = low + (high - low) / 2;
        const QRect rect = visualRect(m_model->index(middle));
        // Rows that are not laid out yet have no rectangle and come last.
        if (rect.isValid() && rect.bottom() < y)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}
