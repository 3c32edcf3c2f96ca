// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLineEdit;

/// Above the pictures: a button for all of them, one for those without tags, and a field for a query.
class QueryBar : public QWidget
{
    Q_OBJECT

public:
    explicit QueryBar(QWidget* parent = nullptr);

    /// What is in the field; the person may go on from there.
    void setQuery(const QString& query);
    [[nodiscard]] QLineEdit* field() const { return m_field; }
    /// Puts the cursor where the query is wrong.
    void showMistake(int position);

signals:
    void allRequested();
    void untaggedRequested();
    void queryEntered(const QString& query);

private:
    void applySkin();

    QLineEdit* m_field;
};
