// SPDX-License-Identifier: MIT
#pragma once

#include "vlhostglobal.h"

#include <QObject>
#include <QVariant>

/// Usage tracking: user interface code reports what a person did, a host connects the sink. GUI thread only.
class VLHOST_EXPORT VlEventTrack : public QObject
{
    Q_OBJECT

public:
    /// The one object of the process; never null, never to be deleted.
    static VlEventTrack* GetInstance();

    void CreateTag(int source, const QString& name);
    void SendLabelJoin(int value);
    void ClickTagManagerAddBtn(int page);
    void SendBClickLabelMenu(const QString& entry, const QString& detail);

Q_SIGNALS:
    /// Emitted by each of the operations above with its own name and its arguments in order.
    void signalTracked(const QString& operation, const QVariantList& arguments);

private:
    VlEventTrack();
    ~VlEventTrack() override;
};
