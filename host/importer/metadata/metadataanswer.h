// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <optional>

class QByteArray;

/// What a reader process found in one file.
struct MetadataAnswer
{
    QStringList keywords;  ///< Each once, in the file's order.
    QString error;         ///< Why the file could not be read; empty on success.

    /// One line of JSON, line feed included: the form in which it passes from a reader process to the import.
    [[nodiscard]] QByteArray toLine() const;
    /// Nothing when the line is no answer: a process gone wrong may write anything.
    [[nodiscard]] static std::optional<MetadataAnswer> fromLine(const QByteArray& line);
};
