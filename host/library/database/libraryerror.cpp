// SPDX-License-Identifier: MIT
#include "host/library/database/libraryerror.h"

LibraryError::LibraryError(LibraryStatus status, const QString& message)
    : m_status(status)
    , m_message(message)
{
}

LibraryError& LibraryError::rejectTags(const QVector<TagRow>& tags)
{
    m_rejectedTags = tags;
    return *this;
}

LibraryError& LibraryError::rejectCategories(const QVector<CategoryRow>& categories)
{
    m_rejectedCategories = categories;
    return *this;
}
