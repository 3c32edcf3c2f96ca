// SPDX-License-Identifier: MIT
#include "host/app/quietmoment.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

namespace {

// The longest chain of queued steps of which none is visible to the filter: a timer, a layout, a repaint.
constexpr int roundsOfRest = 4;

}  // namespace

QuietMoment::QuietMoment(QWidget& window, QObject* parent)
    : QObject(parent)
    , m_window(window)
{
}

void QuietMoment::wait()
{
    m_quietRounds = 0;
    m_busy = false;
    QCoreApplication::instance()->installEventFilter(this);
    QTimer::singleShot(0, this, &QuietMoment::endRound);
}

bool QuietMoment::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::LayoutRequest:
    case QEvent::MetaCall:
    case QEvent::Paint:
    case QEvent::Timer:
    case QEvent::UpdateRequest:
        for (const QObject* object = watched; object; object = object->parent())
            m_busy = m_busy || object == &m_window;
        break;
    default:
        break;
    }
    return false;
}

void QuietMoment::endRound()
{
    m_quietRounds = m_busy ? 0 : m_quietRounds + 1;
    m_busy = false;
    if (m_quietRounds < roundsOfRest) {
        QTimer::singleShot(0, this, &QuietMoment::endRound);
        return;
    }
    QCoreApplication::instance()->removeEventFilter(this);
    emit reached();
}
