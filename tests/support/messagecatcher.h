// SPDX-License-Identifier: MIT
#pragma once

#include <QMutex>
#include <QMutexLocker>
#include <QStringList>

#include <utility>

/// Catches the information lines of the log while it lives, in the order written; anything worse is passed on as
/// well and counted, but for what platforms without a display cannot do. One at a time; lines may come from any thread.
class MessageCatcher
{
public:
    MessageCatcher() { s_next = qInstallMessageHandler(handle); }
    ~MessageCatcher()
    {
        qInstallMessageHandler(s_next);
        take();
        s_problems.clear();
    }
    Q_DISABLE_COPY(MessageCatcher)

    /// Information lines since the last call of this operation.
    QStringList take()
    {
        const QMutexLocker lock(&s_mutex);
        return std::exchange(s_lines, {});
    }
    /// Warnings and worse since construction.
    QStringList problems() const
    {
        const QMutexLocker lock(&s_mutex);
        return s_problems;
    }

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& text)
    {
        // Platforms without a display remind of that at each menu.
        if (text.startsWith(QLatin1String("This plugin does not support")))
            return;
        if (type != QtDebugMsg) {
            const QMutexLocker lock(&s_mutex);
            (type == QtInfoMsg ? s_lines : s_problems).append(text);
        }
        if (type != QtInfoMsg && s_next)
            s_next(type, context, text);
    }

    static inline QMutex s_mutex;
    static inline QStringList s_lines;
    static inline QStringList s_problems;
    static inline QtMessageHandler s_next = nullptr;
};
