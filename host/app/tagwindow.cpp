// SPDX-License-Identifier: MIT
#include "host/app/tagwindow.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QStackedWidget>

#include <algorithm>

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

QLineEdit* searchField(const QWidget& window)
{
    const auto fields = window.findChildren<QLineEdit*>();
    for (QLineEdit* field : fields) {
        if (field->inherits("VLTagSearchLineEdit") && field->isVisible())
            return field;
    }
    return nullptr;
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
