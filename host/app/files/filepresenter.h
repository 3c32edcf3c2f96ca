// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/filequery.h"

#include <QObject>
#include <QString>
#include <QVector>

class FilePanel;
class Library;

/// Answers the user's requests for files: asks the library and fills the panel, and keeps it up to date while it is
/// shown. GUI thread only. Both objects must outlive this one.
class FilePresenter : public QObject
{
    Q_OBJECT

public:
    FilePresenter(Library& library, FilePanel& panel, QObject* parent = nullptr);

    void showTagFiles(const QVector<qint64>& tagIds);
    void showCategoryFiles(const QVector<qint64>& categoryIds);
    /// Tells what to do when the library has no tags; leaves files that are shown alone. hintDecided() follows.
    void showHintIfEmpty();

signals:
    /// The hint is shown, or there is no need for it.
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
    /// The name of the only tag or category asked for; empty when there are several or it is gone.
    [[nodiscard]] QString nameAskedFor() const;
    [[nodiscard]] bool hasTags() const;

    Library& m_library;
    FilePanel& m_panel;
    FileQuery m_query;
    QString m_name;  ///< Of the one tag or category asked for, which may be deleted while its files are shown.
    quint64 m_generation = 0;  ///< Counts what was asked for, so that late answers can be told.
    bool m_asking = false;
    bool m_outdated = false;  ///< The library's files changed while an answer was under way.
};
