// SPDX-License-Identifier: MIT
#include "host/app/tagwindow/tagwindow.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QStackedWidget>

#include <algorithm>
#include <iterator>

namespace TagWindow {

int stripHeight(const QWidget& window)
{
    const auto* pages = window.findChild<QStackedWidget*>(QString(), Qt::FindDirectChildrenOnly);
    return pages ? pages->y() : 0;
}

bool showPage(const QWidget& window, CommandLine::Page page)
{
    auto buttons =
        window.findChildren<QAbstractButton*>(QStringLiteral("tag_manager_title_btn"), Qt::FindDirectChildrenOnly);
    // All Tags, Tag Categories, Favorite Tags from the left; their texts may be translated.
    std::sort(buttons.begin(), buttons.end(),
              [](const QAbstractButton* a, const QAbstractButton* b) { return a->x() < b->x(); });
    const int index = static_cast<int>(page);
    if (index >= buttons.size())
        return false;
    buttons.at(index)->click();
    return true;
}

QVector<QLineEdit*> searchFields(const QWidget& window)
{
    const auto found = window.findChildren<QLineEdit*>();
    QVector<QLineEdit*> fields;
    std::copy_if(found.cbegin(), found.cend(), std::back_inserter(fields),
                 [](const QLineEdit* field) { return field->inherits("VLTagSearchLineEdit"); });
    return fields;
}

const QWidget* pageOf(const QLineEdit& searchField)
{
    const QWidget* widget = &searchField;
    while (widget && !widget->inherits("VLTagBaseWidget"))
        widget = widget->parentWidget();
    return widget;
}

QLineEdit* searchField(const QWidget& window)
{
    const QVector<QLineEdit*> fields = searchFields(window);
    const auto shown =
        std::find_if(fields.cbegin(), fields.cend(), [](const QLineEdit* field) { return field->isVisible(); });
    return shown == fields.cend() ? nullptr : *shown;
}

void focusSearch(const QWidget& window)
{
    QLineEdit* field = searchField(window);
    if (!field && showPage(window, CommandLine::Page::All))
        field = searchField(window);
    if (!field)
        return;
    field->setFocus(Qt::ShortcutFocusReason);
    field->selectAll();
}

}  // namespace TagWindow
