// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/library.h"
#include "host/library/records/tagpalette.h"

#include <ilibrarydataprovider.h>
#include <itagaction.h>
#include <itaggroupaction.h>

#include <QRandomGenerator>

/// A long series of requests that follows from its seed alone: two libraries that carried out as many of them hold the
/// same. Some are refused, for what they are about may be gone.
class CommandScript : public QObject
{
public:
    /// Asks \a library; \a answered is called after each answer.
    CommandScript(Library* library, quint32 seed, const std::function<void()>& answered)
        : m_library(library)
        , m_random(seed)
        , m_answered(answered)
        , m_root(library->addRootAndWait("/nowhere").rootId)
    {
        connect(tags(), &ITagAction::signalTagResult, this, answered);
        connect(categories(), &ITagGroupAction::signalTagGroupResult, this, answered);
    }

    void next()
    {
        ++m_step;
        const QString name = QStringLiteral("name %1 \u6c34").arg(m_step);
        const qint64 tag = m_random.bounded(1, 2 + m_step / 5);
        const qint64 category = m_random.bounded(1, 3 + m_step / 10);
        const int color = m_random.bounded(int(TagPalette::size));
        const std::function<void()> commands[] = {
            [&] {
                tags()->createTags({{name, 0, color}});
            },
            [&] { tags()->renameTag(tag, name); },
            [&] { tags()->setTagColor(tag, color); },
            [&] { tags()->deleteTags({tag}); },
            [&] { tags()->addTagsToGroups({category}, {tag}); },
            [&] { tags()->removeTagsFromGroups({category}, {tag}); },
            [&] { categories()->addTagGroup(name); },
            [&] { categories()->renameTagGroup(category, name); },
            [&] { categories()->removeTagGroup(category); },
            [&] {
                (void)m_library->importAndWait(m_root, {{name.toUtf8(), {}, 1, {}, {{name}}}});
                QMetaObject::invokeMethod(
                    this, [this] { m_answered(); }, Qt::QueuedConnection);
            }};
        commands[m_random.bounded(10)]();
    }

private:
    ITagAction* tags() const { return m_library->dataProvider()->tagAction().data(); }
    ITagGroupAction* categories() const { return m_library->dataProvider()->tagGroupAction().data(); }

    Library* m_library;
    QRandomGenerator m_random;
    std::function<void()> m_answered;
    qint64 m_root;
    int m_step = 0;
};
