// SPDX-License-Identifier: MIT
#include "tests/support/gestures.h"

#include "taglist/initialletter.h"
#include "taglist/vltaglistview.h"

#include <QMap>
#include <QScrollArea>
#include <QTest>

#include <algorithm>

namespace {

QVector<VLTagListView*> shownLists(const QWidget* root)
{
    QVector<VLTagListView*> lists;
    for (VLTagListView* list : root->findChildren<VLTagListView*>()) {
        if (list->isVisibleTo(root))
            lists.append(list);
    }
    std::sort(lists.begin(), lists.end(), [root](const VLTagListView* a, const VLTagListView* b) {
        return a->mapTo(root, QPoint()).y() < b->mapTo(root, QPoint()).y();
    });
    return lists;
}

/// The chip's centre in its view's viewport, scrolled into sight.
QPoint reach(const gestures::ChipPlace& chip)
{
    const QPoint center = chip.view->visualRect(chip.index).center();
    for (QWidget* parent = chip.view->parentWidget(); parent; parent = parent->parentWidget()) {
        auto* area = qobject_cast<QScrollArea*>(parent);
        if (area && area->widget() && area->widget()->isAncestorOf(chip.view)) {
            const QPoint point = chip.view->viewport()->mapTo(area->widget(), center);
            area->ensureVisible(point.x(), point.y());
        }
    }
    return center;
}

}  // namespace

gestures::ChipPlace gestures::findChip(const QWidget* root, const QString& name)
{
    for (VLTagListView* list : shownLists(root)) {
        for (int row = 0; row < list->model()->rowCount(); ++row) {
            const QModelIndex index = list->model()->index(row, 0);
            if (list->tagAt(index).name == name)
                return {list, index};
        }
    }
    return {};
}

QStringList gestures::shownChips(const QWidget* root, QString (*describe)(const TagItem&))
{
    QStringList lines;
    for (const VLTagListView* list : shownLists(root)) {
        QStringList chips;
        for (int row = 0; row < list->model()->rowCount(); ++row) {
            const TagItem& tag = list->tagAt(list->model()->index(row, 0));
            chips.append(describe ? describe(tag) : tag.name);
        }
        if (!chips.isEmpty() || !list->letter().isEmpty())
            lines.append(list->letter() + QStringLiteral(": ") + chips.join(QStringLiteral(", ")));
    }
    return lines;
}

QString gestures::describeChip(const TagItem& tag)
{
    return tag.name + QLatin1Char(' ') + QString::number(tag.fileCount) + tag.color.name();
}

QStringList gestures::filedChips(const QStringList& names)
{
    QMap<QString, QStringList> sections;
    for (const QString& name : names)
        sections[initialLetter(name)] << name;
    QStringList lines;
    for (auto it = sections.begin(); it != sections.end(); ++it) {
        std::sort(it->begin(), it->end());
        lines << it.key() + QStringLiteral(": ") + it->join(QStringLiteral(", "));
    }
    return lines;
}

bool gestures::rightClickChip(const QWidget* root, const QString& name)
{
    const ChipPlace chip = findChip(root, name);
    if (chip.view)
        QTest::mouseClick(chip.view->viewport(), Qt::RightButton, Qt::NoModifier, reach(chip));
    return chip.view;
}

bool gestures::doubleClickChip(const QWidget* root, const QString& name)
{
    const ChipPlace chip = findChip(root, name);
    if (chip.view)
        QTest::mouseDClick(chip.view->viewport(), Qt::LeftButton, Qt::NoModifier, reach(chip));
    return chip.view;
}
