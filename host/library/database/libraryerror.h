// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/libraryrecords.h"
#include "host/library/records/librarystatus.h"

#include <exception>

/// Thrown inside the library's database code, so that whatever fails leaves a transaction by the way that rolls it
/// back. Never leaves the public face of the library.
class LibraryError : public std::exception
{
public:
    LibraryError(LibraryStatus status, const QString& message);

    LibraryError& rejectTags(const QVector<TagRow>& tags);
    LibraryError& rejectCategories(const QVector<CategoryRow>& categories);

    [[nodiscard]] LibraryStatus status() const { return m_status; }
    [[nodiscard]] const QString& message() const { return m_message; }
    [[nodiscard]] const QVector<TagRow>& rejectedTags() const { return m_rejectedTags; }
    [[nodiscard]] const QVector<CategoryRow>& rejectedCategories() const { return m_rejectedCategories; }
    [[nodiscard]] const char* what() const noexcept override { return "LibraryError"; }

private:
    LibraryStatus m_status;
    QString m_message;
    QVector<TagRow> m_rejectedTags;
    QVector<CategoryRow> m_rejectedCategories;
};
