// SPDX-License-Identifier: MIT
#include "tests/library/commandscript.h"

#include "host/library/tagpalette.h"

#include <algorithm>

namespace {

template <typename Map>
qint64 anyKey(QRandomGenerator& random, const Map& map)
{
    return map.isEmpty() ? 0 : std::next(map.keyBegin(), int(random.bounded(map.size()))).operator*();
}

QString idList(QList<qint64> ids)
{
    std::sort(ids.begin(), ids.end());
    QStringList texts;
    for (qint64 id : ids)
        texts.append(QString::number(id));
    return texts.join(QLatin1Char(' '));
}

}  // namespace

CommandScript::CommandScript(quint32 seed)
    : m_random(seed)
{
    m_categories.insert(1, {QStringLiteral("Favorite Tags"), {}});
}

CommandScript::Command CommandScript::next()
{
    ++m_step;
    Command command;
    do {
        command.kind = static_cast<Kind>(m_random.bounded(int(Kind::Import) + 1));
        command.tag = anyKey(m_random, m_tags);
        command.category = anyKey(m_random, m_categories);
        command.color = int(m_random.bounded(TagPalette::Size));
        command.name = QStringLiteral("name %1 \u6c34").arg(m_step);
    } while (!attempt(command));
    return command;
}

bool CommandScript::attempt(Command& command)
{
    switch (command.kind) {
    case Kind::CreateTag:
        createTag(command.name, command.color, 0);
        return true;
    case Kind::Import:
        createTag(command.name, TagPalette::indexForName(command.name), 1);
        return true;
    case Kind::AddCategory:
        m_categories.insert(++m_lastCategory, {command.name, {}});
        return true;
    case Kind::RenameCategory:
    case Kind::RemoveCategory:
        return command.category > 1 && attemptOnCategory(command);
    default:
        return command.tag > 0 && attemptOnTag(command);
    }
}

bool CommandScript::attemptOnTag(Command& command)
{
    Tag& tag = m_tags[command.tag];
    QSet<qint64>& members = m_categories[command.category].tags;
    switch (command.kind) {
    case Kind::RenameTag:
        tag.name = command.name;
        return true;
    case Kind::RecolorTag:
        return std::exchange(tag.color, command.color) != command.color;
    case Kind::Join: {
        const bool joins = !members.contains(command.tag);
        members.insert(command.tag);
        return joins;
    }
    case Kind::Leave:
        return members.remove(command.tag);
    default:
        m_tags.remove(command.tag);
        for (Category& category : m_categories)
            category.tags.remove(command.tag);
        return true;
    }
}

bool CommandScript::attemptOnCategory(Command& command)
{
    if (command.kind == Kind::RenameCategory)
        m_categories[command.category].name = command.name;
    else
        m_categories.remove(command.category);
    return true;
}

void CommandScript::createTag(const QString& name, int color, int files)
{
    m_tags.insert(++m_lastTag, {name, color, files});
}

QStringList CommandScript::contents() const
{
    QStringList lines;
    QSet<qint64> uncategorized;
    for (auto tag = m_tags.cbegin(); tag != m_tags.cend(); ++tag) {
        lines.append(QStringLiteral("tag %1 \"%2\" color %3 files %4")
                         .arg(tag.key())
                         .arg(tag->name)
                         .arg(tag->color)
                         .arg(tag->files));
        uncategorized.insert(tag.key());
    }
    QStringList categories;
    for (auto category = m_categories.cbegin(); category != m_categories.cend(); ++category) {
        categories.append(QStringLiteral("category %1 \"%2\": %3")
                              .arg(category.key())
                              .arg(category->name, idList(category->tags.values())));
        if (category.key() > 1)
            uncategorized.subtract(category->tags);
    }
    lines.append(QStringLiteral("category 0 \"Uncategorized\": %1").arg(idList(uncategorized.values())));
    return lines + categories;
}
