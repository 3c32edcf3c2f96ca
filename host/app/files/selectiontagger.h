// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/filetagging.h"
#include "host/library/records/libraryrecords.h"

#include <QObject>
#include <QTimer>
#include <QVector>

class FileView;
class Library;
class TagStrip;

/// Shows the tags of the selected files in a strip, and puts tags on these files and takes them off as the person asks
/// there. GUI thread only. The library, the view and the strip must outlive it.
class SelectionTagger : public QObject
{
    Q_OBJECT

public:
    SelectionTagger(Library& library, FileView& view, TagStrip& strip, QObject* parent = nullptr);
    ~SelectionTagger() override;

    /// Remembers the tags that all selected files have, for pasteTags().
    void copyTags();
    /// Puts the tags that were copied on the selected files.
    void pasteTags();
    /// Puts on the selected files what was put on last.
    void putOnAgain();
    /// Puts tags on the selected files.
    void putOn(const QVector<qint64>& tagIds);
    /// Puts a tag on these files.
    void putOnFiles(qint64 tagId, const QVector<qint64>& files);

signals:
    /// Nothing was changed, for \a reason.
    void refused(const QString& reason);

private:
    void askForTags();
    void showTags(const QVector<TagShare>& shares, int selected);
    void readFavorites();
    void putOnFavorite(int digit);
    void readNames();
    void sendForSelection(FileTagging tagging);
    void send(const FileTagging& tagging);

    Library& m_library;
    FileView& m_view;
    TagStrip& m_strip;
    QTimer m_ask;  ///< Gathers all reasons of one turn of the event loop into one question.
    bool m_isAsking = false;
    bool m_isOutdated = false;       ///< The selection or its tags changed while an answer was under way.
    bool m_areNamesOutdated = true;  ///< The tags of the library changed since their names were read.
    QVector<qint64> m_onAll;         ///< Tags that all selected files have.
    bool m_areFavoritesOutdated = true;
    QVector<qint64> m_favorites;  ///< The first nine by name.
    QVector<qint64> m_copied;
    FileTagging m_last;  ///< Without files.
};
