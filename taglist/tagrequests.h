// SPDX-License-Identifier: MIT
#pragma once

#include <QSharedPointer>
#include <QString>

#include <functional>

class ITagAction;

/// The requests behind the tag commands, with their log lines. Without an action object each does nothing.
/// A host may delete the window, and this object with it, from inside a request.
class TagRequests
{
public:
    explicit TagRequests(QSharedPointer<ITagAction> action);

    /// Whether there is an action object.
    [[nodiscard]] bool areTaken() const { return !m_action.isNull(); }

    /// \a onSuccess may run after the caller is gone.
    void createTag(const QString& name, std::function<void()> onSuccess) const;
    void addToFavorites(qint64 tag_id) const;
    void removeFromFavorites(qint64 tag_id) const;
    void addToGroup(qint64 g_id, qint64 tag_id) const;
    void removeFromGroup(qint64 g_id, qint64 tag_id) const;
    void renameTag(qint64 tag_id, const QString& newName) const;
    void setTagColor(qint64 tag_id, int colorIndex) const;
    void deleteTag(qint64 tag_id) const;

private:
    QSharedPointer<ITagAction> m_action;
};
