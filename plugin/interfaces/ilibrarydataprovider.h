// SPDX-License-Identifier: MIT
#pragma once

#include "vlhostglobal.h"

#include <QObject>
#include <QSharedPointer>

class ITagAction;
class ITagGroupAction;
class ITagManagerDataProvider;

/// The open library: the way to its tags and to the objects that change them.
///
/// GUI thread only. Objects are shared; the same one at every call.
class VLHOST_EXPORT ILibraryDataProvider : public QObject
{
    Q_OBJECT

public:
    explicit ILibraryDataProvider(QObject* parent = nullptr);
    ~ILibraryDataProvider() override;

    virtual void reserved0() {}
    virtual void reserved1() {}
    virtual void reserved2() {}
    virtual void reserved3() {}
    virtual void reserved4() {}
    virtual void reserved5() {}
    /// [6] Requests that change tags; null when the library cannot be changed.
    virtual QSharedPointer<ITagAction> tagAction() const = 0;
    virtual void reserved7() {}
    virtual void reserved8() {}
    virtual void reserved9() {}
    virtual void reserved10() {}
    virtual void reserved11() {}
    virtual void reserved12() {}
    virtual void reserved13() {}
    virtual void reserved14() {}
    virtual void reserved15() {}
    /// [16] Requests that change categories; null when the library cannot be changed.
    virtual QSharedPointer<ITagGroupAction> tagGroupAction() const = 0;
    virtual void reserved17() {}
    virtual void reserved18() {}
    virtual void reserved19() {}
    virtual void reserved20() {}
    virtual void reserved21() {}
    /// [22] The tags and categories of the library.
    virtual QSharedPointer<ITagManagerDataProvider> tagManagerDataProvider() const = 0;
};
