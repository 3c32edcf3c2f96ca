// SPDX-License-Identifier: MIT
#include "host/app/tagging/tagfield.h"

#include <vlskinsetting.h>

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QLocale>
#include <QStandardItemModel>

namespace {

constexpr int mostSuggestions = 10;
constexpr int tagIdRole = Qt::UserRole + 1;  ///< qint64; 0 for what was typed.

}  // namespace

TagField::TagField(QWidget* parent)
    : EscapableLineEdit(parent)
    , m_rows(new QStandardItemModel(this))
    , m_completer(new QCompleter(m_rows, this))
{
    setObjectName(QStringLiteral("tag_field"));
    setPlaceholderText(tr("Add a tag"));
    setClearButtonEnabled(true);
    m_completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    m_completer->setWidget(this);
    m_completer->setMaxVisibleItems(mostSuggestions + 1);
    setUpList();
    connect(this, &QLineEdit::textEdited, this, &TagField::suggest);
    connect(m_completer, qOverload<const QModelIndex&>(&QCompleter::activated), this, &TagField::choose);
}

/// A window of its own, so it takes no style from the field. The completer makes it as high as its rows and 3 pixels: a
/// padding would cut off the last row.
void TagField::setUpList()
{
    QAbstractItemView* const list = m_completer->popup();
    list->setObjectName(QStringLiteral("tag_suggestions"));
    const VLSkinSetting* skin = VLSkinSetting::GetInstance();
    const QString sheet = QStringLiteral("QAbstractItemView { background: %1; color: %2; border: 1px solid %3;"
                                         " font-size: 13px; outline: 0; }"
                                         "QAbstractItemView::item { padding: 4px 8px; border-radius: 4px; }"
                                         "QAbstractItemView::item:selected { background: %4; color: white; }");
    list->setStyleSheet(sheet.arg(skin->GetPopupWinBackgroundColor().name(), skin->GetTextColor(0).name(),
                                  skin->GetPopupWinBorderColor().name(), skin->GetInputAndButtonColor().name()));
}

/// The pop-up list has the keyboard while it is open and passes on what it does not use itself.
void TagField::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && event->modifiers() == Qt::NoModifier && !typedName().isEmpty()) {
        const QAbstractItemView* const list = m_completer->popup();
        if (list->isVisible() && list->currentIndex().isValid())
            choose(list->currentIndex());
        else
            chooseTyped();
        return;
    }
    if (event->key() == Qt::Key_Escape && m_completer->popup()->isVisible())
        m_completer->popup()->hide();
    else
        EscapableLineEdit::keyPressEvent(event);
}

void TagField::suggest()
{
    emit suggestionsNeeded();
    const auto found = m_suggestions.suggestions(typedName(), m_present, mostSuggestions);
    m_rows->clear();
    for (const TagSuggestions::Suggestion& suggestion : found) {
        const TagSuggestions::Tag& tag = suggestion.tag;
        addRow(tr("%1    %2").arg(tag.name, QLocale().toString(tag.files)), tag.id);
    }
    if (!typedName().isEmpty() && !m_suggestions.hasTag(typedName()))
        addRow(tr("Create “%1”").arg(typedName()), 0);
    if (m_rows->rowCount() == 0) {
        m_completer->popup()->hide();
        return;
    }
    m_completer->complete();
    markBest(found.isEmpty() ? TagSuggestions::Fit::None : found.constFirst().fit);
}

void TagField::addRow(const QString& text, qint64 tagId)
{
    auto* row = new QStandardItem(text.simplified());
    row->setData(tagId, tagIdRole);
    m_rows->appendRow(row);
}

/// A name that begins as typed is what people mean; what only has a word in it must be asked for.
void TagField::markBest(TagSuggestions::Fit best)
{
    const bool isMeant = best == TagSuggestions::Fit::Whole || best == TagSuggestions::Fit::Beginning;
    m_completer->popup()->setCurrentIndex(
        m_completer->completionModel()->index(isMeant ? 0 : m_rows->rowCount() - 1, 0));
}

void TagField::choose(const QModelIndex& index)
{
    const qint64 tagId = index.data(tagIdRole).toLongLong();
    const QString name = typedName();
    m_completer->popup()->hide();
    clear();
    if (tagId != 0)
        emit tagChosen(tagId);
    else if (!name.isEmpty())
        emit nameChosen(name);
}

/// Without the list, as after Escape, what was typed is meant to the letter.
void TagField::chooseTyped()
{
    const QString name = typedName();
    m_completer->popup()->hide();
    clear();
    emit nameChosen(name);
}
