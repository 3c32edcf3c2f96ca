// SPDX-License-Identifier: MIT
#include "tests/importer/importrun.h"

#include "host/library/library.h"
#include "host/library/libraryreader.h"

#include <QHash>
#include <QtTest>

ImportRun ImportRun::run(Library& library, const QByteArray& folder, const ReaderPool::Settings& settings)
{
    ImportRun result;
    Importer importer(&library);
    importer.setReaderSettings(settings);
    QObject::connect(&importer, &Importer::skipped, &importer,
                     [&result](const QByteArray& path, const QString& reason) { result.skipped.insert(path, reason); });
    QSignalSpy finished(&importer, &Importer::finished);
    importer.start(folder);
    if (finished.isEmpty())
        finished.wait(60000);
    result.finishedCount = finished.size();
    if (!finished.isEmpty())
        result.summary = finished.first().first().value<ImportSummary>();
    return result;
}

QMap<QByteArray, QStringList> tagsByFile(const Library& library)
{
    QMap<QByteArray, QStringList> result;
    const std::unique_ptr<LibraryReader> reader = LibraryReader::open(library.path());
    if (!reader)
        return result;
    QHash<qint64, QString> names;
    for (const TagRow& tag : reader->tags())
        names.insert(tag.id, tag.name);
    reader->forEachFile([&result, &names](const FileRow& file) {
        QStringList tags;
        for (const qint64 id : file.tagIds)
            tags.append(names.value(id));
        tags.sort();
        result.insert(file.path, tags);
        return true;
    });
    return result;
}
