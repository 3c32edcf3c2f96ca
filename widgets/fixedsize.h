// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSize>

class QWidget;

/// Keeps a widget's size fixed (logical pixels) whatever a style sheet of the host's process says of the smallest or
/// largest size of such widgets. GUI thread only.
class FixedSize : public QObject
{
    Q_OBJECT

public:
    /// Owned by \a widget.
    FixedSize(QWidget* widget, QSize size);
    ~FixedSize() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* m_widget;
    QSize m_size;
};
