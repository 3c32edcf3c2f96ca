// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <QWidget>

class WrappedLabel;

/// A bar at the bottom of the window that shows why a request failed. It closes on a click and after a time to read it,
/// unless a dialog is open or the pointer is on it.
class NoticeBar : public QWidget
{
    Q_OBJECT

public:
    explicit NoticeBar(QWidget* parent = nullptr);

    /// Replaces the text by \a text, as plain text, and shows the bar.
    void showNotice(const QString& text);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void leave();
    void applySkin();

    WrappedLabel* m_text = nullptr;
    QTimer m_leaving;
};
