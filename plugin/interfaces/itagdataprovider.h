// SPDX-License-Identifier: MIT
#pragma once

#include "idataprovider.h"

#include <QSharedPointer>
#include <QString>

class ITagInfo;

/// One tag.
class VLHOST_EXPORT ITagDataProvider : public IDataProvider
{
    Q_OBJECT

public:
    explicit ITagDataProvider(QObject* parent = nullptr);
    ~ITagDataProvider() override;

    /// [0] Number of files that carry the tag. \a flag is reserved; callers pass 1.
    virtual int fileCount(int flag) const = 0;
    virtual void reserved1() {}
    /// [2] Display name, as in the record.
    virtual QString name() const = 0;
    virtual void reserved3() {}
    virtual void reserved4() {}
    virtual void reserved5() {}
    virtual void reserved6() {}
    /// [7] The tag's record; may be null once the tag is gone.
    virtual QSharedPointer<const ITagInfo> tagInfo() const = 0;
};
