// SPDX-License-Identifier: MIT
#include "host/app/thumbnailloader.h"

#include <QThread>

#include <algorithm>

namespace {

constexpr int cacheBytes = 96 * 1024 * 1024;

}  // namespace

ThumbnailLoader::ThumbnailLoader(QObject* parent)
    : QObject(parent)
    , m_cache(cacheBytes)
{
    // One core stays free for the window.
    m_pool.setMaxThreadCount(std::max(1, QThread::idealThreadCount() - 1));
}

ThumbnailLoader::~ThumbnailLoader()
{
    m_pool.waitForDone();
}

void ThumbnailLoader::setWanted(const QVector<ThumbnailRequest>& files, int pixels)
{
    m_wanted = files;
    std::reverse(m_wanted.begin(), m_wanted.end());
    m_pixels = pixels;
    startNext();
}

void ThumbnailLoader::startNext()
{
    while (!m_wanted.isEmpty() && m_running.size() < m_pool.maxThreadCount()) {
        const ThumbnailRequest file = m_wanted.takeLast();
        if (!m_running.contains(file.id))
            start(file);
    }
}

void ThumbnailLoader::start(const ThumbnailRequest& file)
{
    m_running.insert(file.id);
    m_pool.start([this, file, pixels = m_pixels] {
        const Thumbnail thumbnail = m_cache.thumbnail(file.path, pixels);
        QMetaObject::invokeMethod(
            this,
            [this, id = file.id, pixels, thumbnail] {
                m_running.remove(id);
                startNext();
                emit thumbnailLoaded(id, pixels, thumbnail);
            },
            Qt::QueuedConnection);
    });
}
