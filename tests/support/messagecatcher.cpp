// SPDX-License-Identifier: MIT
#include "tests/support/messagecatcher.h"

#include <QMutex>
#include <QMutexLocker>

namespace {

struct Caught
{
    QMutex mutex;
    QStringList lines;
    QStringList problems;
    QtMessageHandler next = nullptr;
};

Caught& caught()
{
    static Caught instance;
    return instance;
}

}  // namespace

MessageCatcher::MessageCatcher()
    : m_previous(qInstallMessageHandler(handle))
{
    QMutexLocker lock(&caught().mutex);
    caught().lines.clear();
    caught().problems.clear();
    caught().next = m_previous;
}

MessageCatcher::~MessageCatcher()
{
    qInstallMessageHandler(m_previous);
}

QStringList MessageCatcher::take()
{
    QMutexLocker lock(&caught().mutex);
    return std::exchange(caught().lines, {});
}

QStringList MessageCatcher::problems() const
{
    QMutexLocker lock(&caught().mutex);
    return caught().problems;
}

void MessageCatcher::handle(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    // Platforms without a display remind of that at each menu.
    if (text.startsWith(QLatin1String("This plugin does not support")))
        return;
    QtMessageHandler next = nullptr;
    {
        QMutexLocker lock(&caught().mutex);
        if (type == QtInfoMsg) {
            caught().lines.append(text);
            return;
        }
        if (type != QtDebugMsg)
            caught().problems.append(text);
        next = caught().next;
    }
    if (next)
        next(type, context, text);
}
