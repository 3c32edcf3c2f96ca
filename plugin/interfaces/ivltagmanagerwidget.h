// SPDX-License-Identifier: MIT
#pragma once

#include "vlhostglobal.h"

#include <QVector>
#include <QWidget>

/// Base class of the tag manager window: what it requests of the host's window, and what the host notifies it of.
/// More is in IVLTagManagerControl. GUI thread only.
class VLHOST_EXPORT IVLTagManagerWidget : public QWidget
{
    Q_OBJECT

public:
    explicit IVLTagManagerWidget(QWidget* parent = nullptr);
    ~IVLTagManagerWidget() override;

    /// [0] To be called whenever the host's window became maximised, or normal again.
    virtual void updateMaximizeButton(bool maximized) = 0;

Q_SIGNALS:
    /// The user wants to see the files that carry these tags.
    void signalCheckoutTagFile(const QVector<qint64>& tagIds);
    /// The user wants to see the files of these categories.
    void signalCheckoutGroupFile(const QVector<qint64>& groupIds);
    /// Minimise the host's window.
    void signalSoftWareMin();
    /// Maximise the host's window, or restore it when it is maximised.
    void signalSoftWareMax();
    /// Close the host's window, or hide it.
    void signalSoftWareClose();
};
