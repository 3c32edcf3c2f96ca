// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QVector>

class VLTagModifyWidget;

/// Follows the dialogs of a window in which a person types the name of a tag or category. GUI thread only.
class NameInput : public QObject
{
    Q_OBJECT

public:
    explicit NameInput(QObject* parent);
    ~NameInput() override;

    /// Follows an open dialog until it is closed or deleted.
    void follow(VLTagModifyWidget* dialog);
    [[nodiscard]] bool isOpen() const { return !m_dialogs.isEmpty(); }
    /// Lets the person send the name in each open dialog again.
    void allowAgain();

signals:
    /// The first dialog was opened.
    void started();
    /// The last dialog is gone; emitted from the event loop, when nothing of it is on the stack.
    void finished();

private:
    void leave(QObject* dialog);
    void report();

    QVector<QObject*> m_dialogs;  ///< Only those that exist.
    bool m_isReported = false;    ///< started() was emitted last, not finished().
};
