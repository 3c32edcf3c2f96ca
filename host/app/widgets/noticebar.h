// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <QWidget>

class WrappedLabel;

/// A strip at the window's foot that says what could not be done and why. It leaves on a click, and by itself after a
/// while in which it could be read; one that lies below a dialog, or below the pointer, stays.
class NoticeBar : public QWidget
{
    Q_OBJECT

public:
    explicit NoticeBar(QWidget* parent = nullptr);

    /// Shows \a text, as plain text, in place of an earlier one.
    void showNotice(const QString& text);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void leave();
    void applySkin();

    WrappedLabel* m_text = nullptr;
    QTimer m_leaving;
};
