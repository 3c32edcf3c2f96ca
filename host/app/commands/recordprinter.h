// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QStringList>
#include <QVector>

struct FileRow;

/// Prints records to standard output, each as a line of fields separated by tabs or as an object of one JSON array.
class RecordPrinter
{
public:
    explicit RecordPrinter(bool json);

    void begin();
    void end();
    void print(const QJsonObject& object, const QVector<QByteArray>& fields);
    /// The record of a file with the names of its tags.
    void printFile(const FileRow& file, const QStringList& tags);
    /// Whether everything so far could be written.
    [[nodiscard]] bool isFine() const { return m_fine; }

private:
    void write(const QByteArray& bytes);

    bool m_json;
    bool m_first = true;
    bool m_fine = true;
};
