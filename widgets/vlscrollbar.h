// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QScrollBar>

class QAbstractScrollArea;
class QGraphicsOpacityEffect;
class QParallelAnimationGroup;
class QPropertyAnimation;

/// A thin vertical scroll bar that overlays the right edge of a scroll area and takes no room beside it.
///
/// It mirrors the area's own vertical bar, which is switched off; it fades in when the pointer enters the area and out
/// when it leaves, and widens under the pointer. The area may be deleted before the bar. GUI thread only.
class VLScrollBar : public QScrollBar
{
    Q_OBJECT

public:
    explicit VLScrollBar(QWidget* parent = nullptr);
    ~VLScrollBar() override;

    /// Follows \a area from now on, with its present range and value, hidden at first. The offsets, in logical pixels,
    /// are added to the place at the area's right edge; they are 0 when the area is the bar's parent.
    void setUp(QAbstractScrollArea* area, int horizontalOffset, int topOffset);
    /// Puts the bar to its place at the area's right edge, at its resting width.
    void place();

public slots:
    void slot_valueChange_scrollBar(int value);
    /// The range becomes 0 to \a max, whatever \a min is.
    void slot_rangeChanged(int min, int max);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void makeAnimations();
    QPropertyAnimation* makeFade(double from, double to, QObject* parent);
    void applyStyle();
    void follow(QScrollBar* source);
    void fadeIn();
    void fadeOut();
    void resizeTo(int width, QParallelAnimationGroup* group, QPropertyAnimation* geometryAnimation,
                  QParallelAnimationGroup* opposite);

    QPointer<QAbstractScrollArea> m_area;
    int m_horizontalOffset = 0;
    int m_topOffset = 0;
    QGraphicsOpacityEffect* m_opacity = nullptr;
    QPropertyAnimation* m_widenGeometry = nullptr;
    QParallelAnimationGroup* m_widen = nullptr;
    QPropertyAnimation* m_narrowGeometry = nullptr;
    QParallelAnimationGroup* m_narrow = nullptr;
    QPropertyAnimation* m_fadeIn = nullptr;
    QPropertyAnimation* m_fadeOut = nullptr;
};
