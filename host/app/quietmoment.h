// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QWidget;

/// Waits until a window has come to rest: until the event loop has gone round several times without a change of layout,
/// a repaint, a timer of no delay or a message between objects in that window. GUI thread only.
class QuietMoment : public QObject
{
    Q_OBJECT

public:
    explicit QuietMoment(QWidget& window, QObject* parent = nullptr);

    /// reached() follows.
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
