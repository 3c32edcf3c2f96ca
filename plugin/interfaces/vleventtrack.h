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

    /// A name was sent to create a tag. \a source: 0, the tag manager.
    void CreateTag(int source, const QString& name);
    /// The files of a tag were asked for. \a value: 1 by a double click, 2 by the tag's menu.
    void SendLabelJoin(int value);
    /// The button that creates a tag was clicked. \a page: 1 on the Tag Categories page, 0 on the others.
    void ClickTagManagerAddBtn(int page);
    /// An entry of a tag's menu was chosen. \a entry is its text, \a detail the chosen colour or category, if any.
    void SendBClickLabelMenu(const QString& entry, const QString& detail);

Q_SIGNALS:
    /// Emitted by each of the operations above with its own name and its arguments in order.
    void signalTracked(const QString& operation, const QVariantList& arguments);

private:
    VlEventTrack();
    ~VlEventTrack() override;
};
