// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QSocketNotifier;

/// Turns SIGINT and SIGTERM into a signal of the event loop, once: a second one ends the program, so that a person can
/// always end it. One at a time; the handlers found before come back when it is destroyed.
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
    QSocketNotifier* m_notifier = nullptr;  ///< Null when nothing is caught.
};
