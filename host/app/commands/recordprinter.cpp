// SPDX-License-Identifier: MIT
#include "host/app/commands/recordprinter.h"

#include "host/library/records/escapedtext.h"
#include "host/library/records/libraryrecords.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cstdio>

RecordPrinter::RecordPrinter(bool json)
    : m_json(json)
{
}

void RecordPrinter::begin()
{
    write(m_json ? "[" : "");
}

void RecordPrinter::end()
{
    write(m_json ? "\n]\n" : "");
}

void RecordPrinter::print(const QJsonObject& object, const QVector<QByteArray>& fields)
{
    if (m_json) {
        write(m_first ? "\n" : ",\n");
        write(escapedJson(QJsonDocument(object).toJson(QJsonDocument::Compact)));
    } else {
        for (int i = 0; i < fields.size(); ++i) {
            write(i > 0 ? "\t" : "");
            write(escapedText(fields.at(i)));
        }
        write("\n");
    }
    m_first = false;
}

void RecordPrinter::printFile(const FileRow& file, const QStringList& tags)
{
    const QString path = QString::fromUtf8(file.path);
    QJsonObject object = {{QStringLiteral("path"), path},
                          {QStringLiteral("size"), file.known.state.size},
                          {QStringLiteral("tags"), QJsonArray::fromStringList(tags)},
                          {QStringLiteral("away"), file.isAway}};
    if (path.toUtf8() != file.path)
        object.insert(QStringLiteral("pathBase64"), QString::fromLatin1(file.path.toBase64()));
    QVector<QByteArray> fields = {file.path, file.isAway ? "away" : QByteArray::number(file.known.state.size)};
    for (const QString& tag : tags)
        fields.append(tag.toUtf8());
    print(object, fields);
}

void RecordPrinter::write(const QByteArray& bytes)
{
    const auto size = size_t(bytes.size());
    m_fine = m_fine && fwrite(bytes.constData(), 1, size, stdout) == size;
}
