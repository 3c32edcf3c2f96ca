// SPDX-License-Identifier: MIT
// The window as its host controls it.
#include "window/vltagmanagerwidget.h"

#include "dialogs/vltagmodifywidget.h"
#include "pages/ctaggroupitemwidget.h"
#include "pages/vlcommontagwidget.h"
#include "pages/vlgrouptagwidget.h"
#include "taglist/vltaglistview.h"
#include "window/nameinput.h"
#include "window/page/tagpages.h"
#include "window/page/vltagsearchlineedit.h"

#include <QPointer>
#include <QPushButton>
#include <QStackedWidget>

namespace {

template <typename Wanted>
Wanted* enclosing(QWidget* widget, const QWidget* window)
{
    for (; widget && widget != window; widget = widget->parentWidget()) {
        if (auto* found = qobject_cast<Wanted*>(widget))
            return found;
    }
    return nullptr;
}

TagManagerItem tagAt(const VLTagListView& list, const QPoint& pos, const QWidget* window)
{
    const QModelIndex index = list.indexAt(list.viewport()->mapFrom(window, pos));
    if (!index.isValid())
        return {};
    const QRect chip = list.visualRect(index);
    return {TagManagerItem::Tag, list.tagAt(index).id, {list.viewport()->mapTo(window, chip.topLeft()), chip.size()}};
}

TagManagerItem categoryAt(const CTagGroupItemWidget& tile, const QWidget* window)
{
    if (!tile.provider())
        return {};
    const QRect rect(tile.mapTo(window, QPoint()), tile.size());
    return {TagManagerItem::Category, tile.groupId(), rect};
}

}  // namespace

void VLTagManagerWidget::connectEvents()
{
    connect(m_stackedWidget, &QStackedWidget::currentChanged, m_events,
            [this](int index) { emit m_events->currentPageChanged(static_cast<TagManagerPage>(index)); });
    for (const TagPage& record : tagPages()) {
        const QWidget* widget = m_stackedWidget->widget(static_cast<int>(record.id));
        if (const auto* page = qobject_cast<const VLTagBaseWidget*>(widget)) {
            connect(page, &VLTagBaseWidget::searchSubmitted, m_events,
                    [this, id = record.id] { emit m_events->searchSubmitted(id); });
        }
        const auto* page = qobject_cast<const VLAllTagWidget*>(widget);
        if (!page)
            continue;
        connect(page, &VLAllTagWidget::searchTextChanged, m_events,
                [this, id = record.id](const QString& text) { emit m_events->searchTextChanged(id, text); });
        connect(page, &VLAllTagWidget::searchResultActivated, m_events, &VLTagManagerEvents::searchResultActivated);
        connect(page, &VLAllTagWidget::nameDialogOpened, m_nameInput, &NameInput::follow);
    }
    connect(m_groupTagWidget, &VLGroupTagWidget::selectedGroupChanged, m_events,
            &VLTagManagerEvents::selectedCategoryChanged);
    connect(m_nameInput, &NameInput::started, m_events, &VLTagManagerEvents::nameInputStarted);
    connect(m_nameInput, &NameInput::finished, m_events, &VLTagManagerEvents::nameInputFinished);
}

VLAllTagWidget* VLTagManagerWidget::shownPage() const
{
    return qobject_cast<VLAllTagWidget*>(m_stackedWidget->currentWidget());
}

VLTagSearchLineEdit* VLTagManagerWidget::shownField() const
{
    const auto* page = qobject_cast<VLTagBaseWidget*>(m_stackedWidget->currentWidget());
    return page ? page->searchField() : nullptr;
}

VLTagManagerEvents* VLTagManagerWidget::events() const
{
    return m_events;
}

TagManagerPage VLTagManagerWidget::currentPage() const
{
    return static_cast<TagManagerPage>(m_stackedWidget->currentIndex());
}

bool VLTagManagerWidget::showPage(TagManagerPage page)
{
    switch (page) {
    case TagManagerPage::AllTags:
        slotSelectedAllLabel();
        return true;
    case TagManagerPage::Categories:
        slotSelectedGroup();
        return true;
    case TagManagerPage::Favorites:
        slotSelectedCommon();
        return true;
    }
    return false;
}

QString VLTagManagerWidget::searchText() const
{
    return shownField() ? shownField()->text() : QString();
}

bool VLTagManagerWidget::setSearchText(const QString& text)
{
    VLTagSearchLineEdit* field = shownField();
    if (field)
        field->setText(text);
    return field;
}

bool VLTagManagerWidget::focusSearch()
{
    VLTagSearchLineEdit* field = shownField();
    if (!field)
        return false;
    field->setFocus(Qt::ShortcutFocusReason);
    field->selectAll();
    return true;
}

bool VLTagManagerWidget::isSearchFocused() const
{
    return shownField() && shownField()->hasFocus();
}

QVector<qint64> VLTagManagerWidget::searchResults(int limit)
{
    return shownPage() ? shownPage()->searchResults(limit) : QVector<qint64>();
}

TagManagerItem VLTagManagerWidget::itemAt(const QPoint& pos) const
{
    QWidget* child = childAt(pos);
    if (const auto* list = enclosing<VLTagListView>(child, this))
        return child == list->viewport() ? tagAt(*list, pos, this) : TagManagerItem();
    if (const auto* tile = enclosing<CTagGroupItemWidget>(child, this))
        return categoryAt(*tile, this);
    return {};
}

bool VLTagManagerWidget::revealTag(qint64 tagId)
{
    return shownPage() && shownPage()->revealTag(tagId);
}

qint64 VLTagManagerWidget::selectedCategory() const
{
    return m_groupTagWidget->selectedGroupId();
}

bool VLTagManagerWidget::selectCategory(qint64 categoryId)
{
    return m_groupTagWidget->selectGroup(categoryId);
}

bool VLTagManagerWidget::isMoveArea(const QPoint& pos) const
{
    return rect().contains(pos) && pos.y() < m_stackedWidget->y() && !childAt(pos);
}

bool VLTagManagerWidget::isNameBeingTyped() const
{
    return m_nameInput->isOpen();
}

void VLTagManagerWidget::allowNameAgain()
{
    m_nameInput->allowAgain();
}

void VLTagManagerWidget::setChipsDraggable(bool onEveryPage)
{
    m_allTagWidget->setChipDragEnabled(onEveryPage);
    m_commonTagWidget->setChipDragEnabled(onEveryPage);
}

int VLTagManagerWidget::scrollPosition() const
{
    return shownPage() ? shownPage()->scrollValue() : 0;
}

void VLTagManagerWidget::setScrollPosition(int pixels)
{
    if (shownPage())
        shownPage()->slotSetOriScrollValue(pixels);
}
