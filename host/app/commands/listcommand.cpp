// SPDX-License-Identifier: MIT
#include "host/app/commands/listcommand.h"

#include "host/app/commands/commandline.h"
#include "host/importer/folderwalk.h"
#include "host/library/readonlylibrary.h"
#include "host/library/records/escapedtext.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cerrno>
#include <cstdio>
#include <unistd.h>

namespace {

/// Prints records, each as a line of fields separated by tabs or as an object of one JSON array.
class RecordPrinter
{
public:
    explicit RecordPrinter(bool json)
        : m_json(json)
    {
    }

    void begin() { write(m_json ? "[" : ""); }
    void end() { write(m_json ? "\n]\n" : ""); }
    void print(const QJsonObject& object, const QVector<QByteArray>& fields);
    [[nodiscard]] bool isFine() const { return m_fine; }

private:
    void write(const QByteArray& bytes);

    bool m_json;
    bool m_first = true;
    bool m_fine = true;
};

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

void RecordPrinter::write(const QByteArray& bytes)
{
    const auto size = size_t(bytes.size());
    m_fine = m_fine && fwrite(bytes.constData(), 1, size, stdout) == size;
}

/// Each prints one list and returns the error; empty on success.
QString printTags(ReadOnlyLibrary& reader, RecordPrinter& printer)
{
    const auto tags = reader.tags();
    for (const TagRow& tag : tags.value) {
        printer.print({{QStringLiteral("id"), tag.id},
                       {QStringLiteral("name"), tag.name},
                       {QStringLiteral("fileCount"), tag.fileCount},
                       {QStringLiteral("colorIndex"), tag.colorIndex}},
                      {QByteArray::number(tag.id), tag.name.toUtf8(), QByteArray::number(tag.fileCount),
                       QByteArray::number(tag.colorIndex)});
    }
    return tags.error;
}

QString printCategories(ReadOnlyLibrary& reader, RecordPrinter& printer)
{
    const auto categories = reader.categories();
    for (const CategoryRow& category : categories.value) {
        printer.print({{QStringLiteral("id"), category.id},
                       {QStringLiteral("name"), category.name},
                       {QStringLiteral("tagCount"), category.tagCount}},
                      {QByteArray::number(category.id), category.name.toUtf8(), QByteArray::number(category.tagCount)});
    }
    return categories.error;
}

void printFile(const FileRow& file, const QStringList& tags, RecordPrinter& printer)
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
    printer.print(object, fields);
}

QString printFiles(ReadOnlyLibrary& reader, RecordPrinter& printer)
{
    // An import may run at the same time.
    const ReadOnlyLibrary::Snapshot snapshot(reader);
    const auto tags = reader.tags();
    if (!tags)
        return tags.error;
    QHash<qint64, QString> names;
    for (const TagRow& tag : tags.value)
        names.insert(tag.id, tag.name);
    const auto visit = [&names, &printer](const FileRow& file) {
        QStringList ofFile;
        for (const qint64 id : file.tagIds)
            ofFile.append(names.value(id));
        printFile(file, ofFile, printer);
        return printer.isFine();
    };
    return reader.forEachFile(visit).error;
}

QString printIgnored(ReadOnlyLibrary& reader, RecordPrinter& printer)
{
    const auto keywords = reader.keywordsIgnored();
    for (const KeywordRow& keyword : keywords.value) {
        printer.print({{QStringLiteral("name"), keyword.name},
                       {QStringLiteral("undecided"), keyword.isUndecided},
                       {QStringLiteral("fileCount"), keyword.fileCount}},
                      {keyword.name.toUtf8(), keyword.isUndecided ? "undecided" : "ignored",
                       QByteArray::number(keyword.fileCount)});
    }
    return keywords.error;
}

QString printList(CommandLine::List list, ReadOnlyLibrary& reader, RecordPrinter& printer)
{
    switch (list) {
    case CommandLine::List::Tags:
        return printTags(reader, printer);
    case CommandLine::List::Categories:
        return printCategories(reader, printer);
    case CommandLine::List::Files:
        return printFiles(reader, printer);
    case CommandLine::List::Ignored:
        return printIgnored(reader, printer);
    }
    return {};
}

int fail(int status, const QByteArray& reason)
{
    fprintf(stderr, "vellum: %s\n", escapedText(reason).constData());
    return status;
}

}  // namespace

int runListCommand(const CommandLine& commandLine)
{
    const QByteArray path = commandLine.libraryPath();
    if (path.isEmpty() && !canonicalFolder(commandLine.folder))
        return fail(CommandLine::exitUsage, "There is no folder " + commandLine.folder);
    if (path.isEmpty())
        return fail(1, "There is no home folder that holds libraries; name the library with --library FILE");
    if (access(path.constData(), F_OK) != 0)
        return fail(CommandLine::exitUsage, "There is no library " + path);
    QString error;
    const std::unique_ptr<ReadOnlyLibrary> reader = ReadOnlyLibrary::open(QString::fromUtf8(path), &error);
    if (!reader)
        return fail(1, error.toUtf8());
    RecordPrinter printer(commandLine.json);
    printer.begin();
    const QString failure = printList(commandLine.list, *reader, printer);
    if (!failure.isEmpty())
        return fail(1, failure.toUtf8());
    printer.end();
    if (!printer.isFine() || fflush(stdout) != 0)
        return fail(1, qt_error_string(errno).toUtf8());
    return 0;
}
