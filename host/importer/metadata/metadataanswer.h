// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QStringList>

#include <optional>

class QByteArray;

/// What a reader process found in one file.
struct MetadataAnswer
{
    Q_DECLARE_TR_FUNCTIONS(MetadataAnswer)

public:
    enum Problem
    {
        None,
        Empty,            ///< A file of no bytes.
        Unreadable,       ///< The system cannot hand out its contents.
        UnknownFormat,    ///< No picture that is known.
        TooMuchMemory,    ///< Reading it needs more memory than a reader process may have.
        UnreadableXmp,    ///< XMP that is no XML.
        DamagedStructure  ///< The file is not built as its format demands.
    };
    static constexpr int lastProblem = DamagedStructure;

    QStringList keywords;  ///< Each once, in the file's order.
    /// Milliseconds since the beginning of 1970 on the camera's own clock.
    std::optional<qint64> taken;
    QString error;  ///< Why the file could not be read, for a person; empty on success.

    /// Sets the error. \a detail: in the words of a library, may be empty.
    void setProblem(Problem newProblem, const QString& newDetail = {});

    /// One line of JSON, line feed included: the form in which it passes from a reader process to the import.
    [[nodiscard]] QByteArray toLine() const;
    /// Nothing when the line is no answer: a process gone wrong may write anything. The error is in the language of
    /// this process.
    [[nodiscard]] static std::optional<MetadataAnswer> fromLine(const QByteArray& line);

private:
    Problem problem = None;
    QString detail;
};
