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
        switch (m_random.bounded(10)) {
        case 0:
            tags()->createTags({{name, 0, color}});
            break;
        case 1:
            tags()->renameTag(tag, name);
            break;
        case 2:
            tags()->setTagColor(tag, color);
            break;
        case 3:
            tags()->deleteTags({tag});
            break;
        case 4:
            tags()->addTagsToGroups({category}, {tag});
            break;
        case 5:
            tags()->removeTagsFromGroups({category}, {tag});
            break;
        case 6:
            categories()->addTagGroup(name);
            break;
        case 7:
            categories()->renameTagGroup(category, name);
            break;
        case 8:
            categories()->removeTagGroup(category);
            break;
        default:
            (void)m_library->importAndWait(m_root, {{name.toUtf8(), {}, 1, {}, {{name}}}});
            QMetaObject::invokeMethod(
                this, [this] { m_answered(); }, Qt::QueuedConnection);
        }
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
