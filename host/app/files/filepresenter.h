// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/query/filequery.h"

#include <QObject>
#include <QSet>
#include <QString>
#include <QTimer>
#include <QVector>

class FilePanel;
class Library;
class SelectionTagger;

/// Queries the library for the files that the user requests, fills the panel, and keeps it up to date while it is
/// shown. GUI thread only. Both objects must outlive this one.
class FilePresenter : public QObject
{
    Q_OBJECT

public:
    FilePresenter(Library& library, FilePanel& panel, QObject* parent = nullptr);

    void showTagFiles(const QVector<qint64>& tagIds);
    void showCategoryFiles(const QVector<qint64>& categoryIds);
    void showAll();
    void showUntagged();
    /// Shows what was asked for last, or all pictures.
    void showAgain();
    /// Shows the files that a query finds; a wrong one leaves what is shown and says what is wrong.
    void showQuery(const QString& query);
    /// The keyboard goes to the field for tags; all pictures are shown when none are.
    void focusTagField();
    [[nodiscard]] SelectionTagger* tagger() const { return m_tagger; }
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
    [[nodiscard]] QVector<qint64> withSelected(const QVector<qint64>& ids);
    void dropUnselected();
    void showAnswer(const QVector<qint64>& ids, const QString& error, bool keepPlace);
    void fillPaths(const QVector<qint64>& ids);
    void openFile(const QByteArray& path);
    [[nodiscard]] QString titleFor(int files) const;
    /// Name of the only tag or category in the query; empty if there are several or it was deleted.
    [[nodiscard]] QString nameAskedFor() const;
    /// What a person would type to ask for the same.
    [[nodiscard]] QString queryTextOf(const FileQuery& query) const;
    [[nodiscard]] QString emptyMessage() const;
    [[nodiscard]] bool hasTags() const;

    Library& m_library;
    FilePanel& m_panel;
    SelectionTagger* m_tagger;
    QString m_queryText;  ///< As it is in the field.
    FileQuery m_query;
    QString m_name;  ///< Last known name of the only tag or category in the query.
    QVector<qint64> m_shown;
    /// Selected files that are shown although the query does not find them any more: a picture that gets its first tag
    /// must not vanish from the untagged ones while a person goes on tagging it.
    QSet<qint64> m_kept;
    quint64 m_generation = 0;  ///< Number of the last query, to drop answers to earlier ones.
    bool m_isAsked = false;    ///< Whether files were requested; else a hint is shown.
    QTimer m_pause;            ///< Runs between two refreshes: an import changes files many times a second.
    bool m_asking = false;
    bool m_outdated = false;  ///< The library's files changed while a query was pending.
};
