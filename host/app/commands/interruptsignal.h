// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QSocketNotifier;

/// Emits the first SIGINT or SIGTERM from the event loop; a second one terminates the program. At most one instance at
/// a time; the destructor restores the previous handlers.
class InterruptSignal : public QObject
{
    Q_OBJECT

public:
    explicit InterruptSignal(QObject* parent = nullptr);
    ~InterruptSignal() override;

signals:
    void interrupted();

private slots:
    void readPipe();

private:
    QSocketNotifier* m_notifier = nullptr;  ///< Null if the handler could not be installed.
};
