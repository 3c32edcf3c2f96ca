// SPDX-License-Identifier: MIT
#pragma once

#include <QBasicTimer>
#include <QMimeData>
#include <QObject>
#include <QPointer>

class QScrollArea;

/// Scrolls an area while a tag chip is dragged near its upper or lower edge, the faster the nearer. GUI thread only.
class DragScroller : public QObject
{
    Q_OBJECT

public:
    /// Owned by \a area, whose viewport takes part in drags from now on.
    explicit DragScroller(QScrollArea* area);
    ~DragScroller() override;

    /// A drag with that data is over \a target, something in the area; null when it has left it.
    void setDragTarget(QWidget* target, const QMimeData* data);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    [[nodiscard]] int stepAt(int y) const;
    void moveDrag() const;

    QScrollArea* m_area;
    QPointer<QWidget> m_target;
    QPointer<const QMimeData> m_data;
    QBasicTimer m_timer;
};
