// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QtGlobal>

/// Catches the information lines of the log while it lives, in the order written; anything worse is passed on as
/// well and counted, but for what platforms without a display cannot do. One at a time; lines may come from any thread.
class MessageCatcher
{
public:
    MessageCatcher();
    ~MessageCatcher();
    Q_DISABLE_COPY(MessageCatcher)

    /// Information lines since the last call of this operation.
    QStringList take();
    /// Warnings and worse since construction.
    QStringList problems() const;

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& text);

    QtMessageHandler m_previous;
};
