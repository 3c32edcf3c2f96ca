// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QWidget;

/// Waits until a window is idle: until several turns of the event loop have passed without a layout, a repaint, a timer
/// or a queued call in that window. GUI thread only.
class QuietMoment : public QObject
{
    Q_OBJECT

public:
    explicit QuietMoment(QWidget& window, QObject* parent = nullptr);

    /// Answered by reached().
    void wait();

signals:
    void reached();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void endRound();

    QWidget& m_window;
    int m_quietRounds = 0;
    bool m_busy = false;
};
