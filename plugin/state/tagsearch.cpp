// SPDX-License-Identifier: MIT
#include "plugin/state/tagsearch.h"

bool tagsearch::finds(const QString& text, const QString& name)
{
    // Most hits have the case that was typed, and that is found many times faster.
    return name.contains(text) || name.contains(text, Qt::CaseInsensitive);
}

tagsearch::Closeness tagsearch::closeness(const QString& text, const QString& name)
{
    if (text.isEmpty())
        return Equal;
    if (!name.startsWith(text))
        return Elsewhere;
    return name.size() == text.size() ? Equal : BeginsWith;
}
