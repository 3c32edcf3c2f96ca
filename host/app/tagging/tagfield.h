// SPDX-License-Identifier: MIT
#pragma once

#include "host/app/tagging/tagsuggestions.h"
#include "host/app/widgets/escapablelineedit.h"

class QCompleter;
class QStandardItemModel;

/// The field in which a person types tags for the selected pictures, with suggestions below it. Enter takes the marked
/// suggestion; the field is empty and has the keyboard afterwards.
class TagField : public EscapableLineEdit
{
    Q_OBJECT

public:
    explicit TagField(QWidget* parent = nullptr);

    [[nodiscard]] TagSuggestions& suggestions() { return m_suggestions; }
    /// Tags that need not be suggested.
    void setPresent(const QVector<qint64>& tagIds) { m_present = tagIds; }

signals:
    /// The person begins to type: suggestions() is to be brought up to date.
    void suggestionsNeeded();
    void tagChosen(qint64 tagId);
    /// A tag that there is not yet.
    void nameChosen(const QString& name);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void setUpList();
    void suggest();
    void addRow(const QString& text, qint64 tagId);
    void choose(const QModelIndex& index);
    void chooseTyped();
    void markBest(TagSuggestions::Fit best);
    [[nodiscard]] QString typedName() const { return text().trimmed(); }

    TagSuggestions m_suggestions;
    QVector<qint64> m_present;
    QStandardItemModel* m_rows;
    QCompleter* m_completer;
};
