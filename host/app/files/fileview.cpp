// SPDX-License-Identifier: MIT
#include "host/app/files/fileview.h"

#include "host/app/files/filelistmodel.h"
#include "host/app/files/filetiledelegate.h"
#include "host/app/files/filetilelayout.h"
#include "host/app/files/thumbnailloader.h"

#include <QEvent>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

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
    m_model->setFiles(ids);
    if (!keepPlace)
        scrollToTop();
    m_request.start();
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
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(QFrame::NoFrame);
    setMouseTracking(true);
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
