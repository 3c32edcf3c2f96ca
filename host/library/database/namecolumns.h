// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/tagname.h"

/// The two columns of a name: "name" is what is compared, "spelling" what was typed.
namespace namecolumns {

[[nodiscard]] inline QVariant key(const QString& name)
{
    return tagname::toColumn(tagname::key(name));
}

/// Null where the name is its own key, as nearly every name is.
[[nodiscard]] inline QVariant spelling(const QString& name)
{
    const QString kept = tagname::kept(name);
    return kept == tagname::key(name) ? QVariant() : tagname::toColumn(kept);
}

}  // namespace namecolumns
