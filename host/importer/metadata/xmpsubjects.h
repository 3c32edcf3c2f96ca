// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class QByteArray;

/// The keywords of an XMP packet that breaks the rules: a property that comes twice, a prefix that is not declared,
/// bytes that are no text, a bare ampersand, an end that is missing. For packets that a strict reader refuses.
struct XmpSubjects
{
    QStringList keywords;  ///< The items of every dc:subject, up to the place where the packet is no XML any more.
    QString error;         ///< What is wrong at that place; empty when the whole packet could be read.

    [[nodiscard]] static XmpSubjects read(const QByteArray& packet);
};
