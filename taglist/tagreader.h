// SPDX-License-Identifier: MIT
#pragma once

#include "plugin/state/tagitem.h"

#include <QHash>
#include <QMetaObject>
#include <QPointer>
#include <QSet>
#include <QSharedPointer>
#include <QVector>

#include <functional>
#include <memory>
#include <memory_resource>
#include <unordered_map>

class ITagDataProvider;

/// Reads tags from a host that may change, remove and add tags from inside the reading. Each tag is followed before it
/// is read, so that no change falls between.
///
/// Readings nest. A reading is everything between begin() and end(); the owner reports what happens in the meantime.
/// The owner may be deleted from inside every call, and this object with it.
class TagReader
{
public:
    using Providers = QHash<qint64, QSharedPointer<ITagDataProvider>>;
    /// Connects the changes of a tag's data to the owner.
    using Follow = std::function<QMetaObject::Connection(const ITagDataProvider& provider, qint64 tag_id)>;

    /// Without \a follow the owner receives the signals of changes and calls noteChanged().
    TagReader(QObject* owner, Follow follow);
    ~TagReader();

    void setFollow(Follow follow) { m_follow = std::move(follow); }
    [[nodiscard]] bool isReading() const { return m_depth > 0; }

    void begin();
    /// The tags whose names contain \a filter, compared without case, without those that went meanwhile.
    [[nodiscard]] QVector<TagItem> read(const Providers& providers, const QString& filter);
    /// Hands a tag's connection over to the row that shows it.
    [[nodiscard]] QMetaObject::Connection takeConnection(const TagItem& item);
    /// When no reading is left, the tags that changed meanwhile and may have been read before that.
    [[nodiscard]] QSet<qint64> end();

    void noteChanged(qint64 tag_id) { m_changed.insert(tag_id); }
    void noteRemoved(const QVector<qint64>& tag_ids);
    void noteAdded(const QVector<qint64>& tag_ids);

private:
    void follow(const ITagDataProvider& provider, qint64 tag_id);
    void drop(qint64 tag_id);

    QPointer<QObject> m_owner;
    Follow m_follow;
    int m_depth = 0;
    /// Of tags that no row shows yet. They come and go by the hundred thousand: taking memory for each one would leave
    /// it in pieces.
    struct Connections
    {
        std::pmr::monotonic_buffer_resource memory;
        std::pmr::unordered_map<qint64, QMetaObject::Connection> ofTag{&memory};
    };
    std::unique_ptr<Connections> m_connections;  ///< Exists while there is a reading.
    QSet<qint64> m_changed;
    QSet<qint64> m_gone;
};
