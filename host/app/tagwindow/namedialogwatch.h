// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

/// Notices when the tag manager opens a dialog in which a name is typed, and when that is gone. GUI thread only.
class NameDialogWatch : public QObject
{
    Q_OBJECT

public:
    /// \a tagWindow must outlive this object, or delete it as its parent.
    explicit NameDialogWatch(QWidget& tagWindow);

    /// Lets the person send the name in the open dialog, if there is one, again: the dialog disables its button when it
    /// has sent a name, and nothing but success closes it.
    void allowAnotherTry();

signals:
    void opened();
    void closed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QWidget> m_dialog;
    bool m_isOpen = false;
};
