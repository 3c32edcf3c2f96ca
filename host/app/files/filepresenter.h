// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/query/filequery.h"

#include <QObject>
#include <QString>
#include <QVector>

class FilePanel;
class Library;

/// Queries the library for the files that the user requests, fills the panel, and keeps it up to date while it is
/// shown. GUI thread only. Both objects must outlive this one.
class FilePresenter : public QObject
{
    Q_OBJECT

public:
    FilePresenter(Library& library, FilePanel& panel, QObject* parent = nullptr);

    void showTagFiles(const QVector<qint64>& tagIds);
    void showCategoryFiles(const QVector<qint64>& categoryIds);
    /// Shows a hint in the panel if the library has no tags and no files are shown. Emits hintDecided().
    void showHintIfEmpty();

signals:
    /// The hint is shown or not needed.
    void hintDecided();

private:
    void present(const FileQuery& query);
    void showHint(int files);
    void refresh();
    void ask(bool keepPlace);
    void showAnswer(const QVector<qint64>& ids, const QString& error, bool keepPlace);
    void fillPaths(const QVector<qint64>& ids);
    void openFile(const QByteArray& path);
    [[nodiscard]] QString titleFor(int files) const;
    /// Name of the only tag or category in the query; empty if there are several or it was deleted.
    [[nodiscard]] QString nameAskedFor() const;
    [[nodiscard]] bool hasTags() const;

    Library& m_library;
    FilePanel& m_panel;
    FileQuery m_query;
    QString m_name;            ///< Last known name of the only tag or category in the query.
    quint64 m_generation = 0;  ///< Number of the last query, to drop answers to earlier ones.
    bool m_asking = false;
    bool m_outdated = false;  ///< The library's files changed while a query was pending.
};
