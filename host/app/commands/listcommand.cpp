// SPDX-License-Identifier: MIT
#include "host/app/commands/listcommand.h"

#include "host/app/commands/commandfailure.h"
#include "host/app/commands/commandlibrary.h"
#include "host/app/commands/commandline.h"
#include "host/app/commands/recordprinter.h"
#include "host/library/readonlylibrary.h"

#include <QHash>

namespace {

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
        printer.printFile(file, ofFile);
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

}  // namespace

int runListCommand(const CommandLine& commandLine)
{
    return exitStatusOf([&] {
        const auto reader = commandlibrary::openForReading(commandlibrary::fileOf(commandLine));
        RecordPrinter printer(commandLine.json);
        printer.begin();
        const QString failure = printList(commandLine.list, *reader, printer);
        if (!failure.isEmpty())
            throw CommandFailure{1, failure.toUtf8()};
        printer.end();
        requirePrinted(printer.isFine());
    });
}
