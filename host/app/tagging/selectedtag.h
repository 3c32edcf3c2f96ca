// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QString>
#include <QWidget>

class QToolButton;

/// A tag of the selected pictures, as a chip: its name, of how many of them it is, a button to give it to all of them
/// and one to take it off. With the keyboard on it, Enter gives it to all, Delete takes it off.
class SelectedTag : public QWidget
{
    Q_OBJECT

public:
    struct Content
    {
        qint64 id = 0;
        QString name;
        QColor color;
        int files = 0;     ///< Of the selected ones that have it.
        int selected = 0;  ///< All that are selected.
    };

    explicit SelectedTag(const Content& content, QWidget* parent = nullptr);

    [[nodiscard]] qint64 id() const { return m_content.id; }
    [[nodiscard]] QSize sizeHint() const override;

signals:
    void putOnAll();
    void takeOff();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    [[nodiscard]] bool isOnAll() const { return m_content.files == m_content.selected; }
    [[nodiscard]] QString label() const;
    [[nodiscard]] QToolButton* makeButton(const QString& sign, const QString& help);
    [[nodiscard]] int buttonsWidth() const;

    Content m_content;
    QToolButton* m_putOnAll = nullptr;  ///< Null where all have it.
    QToolButton* m_takeOff;
};
