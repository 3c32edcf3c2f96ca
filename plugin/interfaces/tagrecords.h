// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

/// A tag's record as its provider hands it out. An immutable snapshot, held by shared pointer.
class ITagInfo
{
public:
    virtual void reserved0() {}
    /// [1] Unique among the tags of the library.
    virtual qint64 id() const = 0;
    /// [2] The display name, as the host stores it.
    virtual QString name() const = 0;
    /// [3] Index into the host's palette.
    virtual int colorIndex() const = 0;

protected:
    ~ITagInfo() = default;
};

/// A category's record as its provider hands it out. An immutable snapshot, held by shared pointer.
class ITagGroupInfo
{
public:
    virtual void reserved0() {}
    /// [1] As in namespace taggroupid.
    virtual qint64 id() const = 0;
    /// [2] The display name, as the host stores it.
    virtual QString name() const = 0;

protected:
    ~ITagGroupInfo() = default;
};

/// One element of a request to create tags.
struct NewTagRecord
{
    QString name;
    qint64 id;       ///< 0: the host assigns the id.
    int colorIndex;  ///< Index into the host's palette.
};
