// SPDX-License-Identifier: MIT
#include "host/app/files/filepresenter.h"

#include "host/app/commands/picturefile.h"
#include "host/app/files/filepanel.h"
#include "host/app/files/fileview.h"
#include "host/app/files/pictureopener.h"
#include "host/app/files/querybar.h"
#include "host/app/files/selectiontagger.h"
#include "host/app/tagging/tagfield.h"
#include "host/app/tagging/tagstrip.h"
#include "host/library/library.h"
#include "host/library/query/queryparser.h"

#include <ilibrarydataprovider.h>
#include <itagdataprovider.h>
#include <itaggroupdataprovider.h>
#include <itagmanagerdataprovider.h>

#include <QHash>
#include <QLocale>

#include <sys/stat.h>

namespace {

constexpr int refreshPause = 300;  // milliseconds

}  // namespace

FilePresenter::FilePresenter(Library& library, FilePanel& panel, QObject* parent)
    : QObject(parent)
    , m_library(library)
    , m_panel(panel)
    , m_tagger(new SelectionTagger(m_library, *m_panel.view(), *m_panel.strip(), this))
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(refreshPause);
    connect(&m_pause, &QTimer::timeout, this, [this] {
        if (m_outdated)
            refresh();
    });
    connect(&m_library, &Library::filesChanged, this, &FilePresenter::refresh);
    connect(m_panel.view(), &FileView::filesNeeded, this, &FilePresenter::fillPaths);
    connect(m_panel.view(), &FileView::fileActivated, this, &FilePresenter::openFile);
    connect(m_panel.view(), &FileView::filesSelected, this, &FilePresenter::dropUnselected, Qt::QueuedConnection);
    connect(m_panel.queryBar(), &QueryBar::allRequested, this, &FilePresenter::showAll);
    connect(m_panel.queryBar(), &QueryBar::untaggedRequested, this, &FilePresenter::showUntagged);
    connect(m_panel.queryBar(), &QueryBar::queryEntered, this, &FilePresenter::showQuery);
    connect(m_panel.view(), &FileView::thumbnailsUnavailable, &m_panel, &FilePanel::setNotice);
}

void FilePresenter::showTagFiles(const QVector<qint64>& tagIds)
{
    present(FileQuery::ofTags(tagIds));
}

void FilePresenter::showCategoryFiles(const QVector<qint64>& categoryIds)
{
    present(FileQuery::ofCategories(categoryIds));
}

void FilePresenter::showAll()
{
    present(FileQuery::allFiles());
}

void FilePresenter::showAgain()
{
    present(m_query);
}

void FilePresenter::showUntagged()
{
    showQuery(QStringLiteral("untagged"));
}

void FilePresenter::showQuery(const QString& query)
{
    if (query.trimmed().isEmpty()) {
        showAll();
        return;
    }
    const queryparser::Parsed parsed = queryparser::parse(query);
    if (!parsed.term) {
        m_panel.setNotice(parsed.error);
        m_panel.queryBar()->showMistake(parsed.position);
        return;
    }
    m_queryText = query;
    present(FileQuery::matching(*parsed.term));
}

void FilePresenter::focusTagField()
{
    if (m_panel.isHidden())
        showAll();
    TagField* const field = m_panel.strip()->field();
    if (field->isEnabled())
        field->setFocus(Qt::ShortcutFocusReason);
    else
        m_panel.view()->setFocus(Qt::ShortcutFocusReason);
}

void FilePresenter::showHintIfEmpty()
{
    if (hasTags() || m_panel.isVisible()) {
        emit hintDecided();
        return;
    }
    m_library.queryFileIds(FileQuery::allFiles(), this,
                           [this, generation = m_generation](const LibraryAnswer<QVector<qint64>>& ids) {
                               if (generation == m_generation && ids && !hasTags())
                                   showHint(ids.value.size());
                               emit hintDecided();
                           });
}

void FilePresenter::showHint(int files)
{
    if (files == 0) {
        m_panel.setTitle(tr("No pictures yet"));
        m_panel.showMessage(tr("Put pictures into the folder of this library and open it again. The keywords inside "
                               "them become tags."));
    } else {
        m_panel.setTitle(files == 1 ? tr("1 picture without keywords")
                                    : tr("%1 pictures without keywords").arg(QLocale().toString(files)));
        m_panel.showMessage(tr("Keywords that other programs write into the pictures become tags when the library is "
                               "opened again. “Create Tags” makes tags without pictures."));
    }
    m_panel.show();
}

void FilePresenter::present(const FileQuery& query)
{
    m_query = query;
    m_isAsked = true;
    m_name = nameAskedFor();
    if (query.scope != FileQuery::Scope::Matching)
        m_queryText = queryTextOf(query);
    m_panel.queryBar()->setQuery(m_queryText);
    m_panel.setNotice({});
    m_panel.setTitle(m_name);
    m_panel.showMessage(tr("Looking for files…"));
    m_panel.show();
    ask(false);
}

void FilePresenter::refresh()
{
    if (m_panel.isHidden() || !m_isAsked)
        return;
    if (m_asking || m_pause.isActive()) {
        m_outdated = true;
        return;
    }
    m_pause.start();
    ask(true);
}

void FilePresenter::ask(bool keepPlace)
{
    m_asking = true;
    m_outdated = false;
    m_library.queryFileIds(m_query, this,
                           [this, keepPlace, generation = ++m_generation](const LibraryAnswer<QVector<qint64>>& ids) {
                               if (generation == m_generation)
                                   showAnswer(ids.value, ids.error, keepPlace);
                           });
}

QVector<qint64> FilePresenter::withSelected(const QVector<qint64>& ids)
{
    const QSet<qint64> found(ids.cbegin(), ids.cend());
    QHash<qint64, QVector<qint64>> keptAfter;
    qint64 previous = 0;
    const QVector<qint64> selected = m_panel.view()->selectedFiles();
    const QSet<qint64> selectedSet(selected.cbegin(), selected.cend());
    m_kept.clear();
    for (const qint64 id : qAsConst(m_shown)) {
        if (found.contains(id)) {
            previous = id;
        } else if (selectedSet.contains(id)) {
            keptAfter[previous].append(id);
            m_kept.insert(id);
        }
    }
    if (m_kept.isEmpty())
        return ids;
    QVector<qint64> merged = keptAfter.value(0);
    for (const qint64 id : ids) {
        merged.append(id);
        merged += keptAfter.value(id);
    }
    return merged;
}

void FilePresenter::dropUnselected()
{
    if (m_kept.isEmpty() || m_asking)
        return;
    const QVector<qint64> selected = m_panel.view()->selectedFiles();
    const QSet<qint64> selectedSet(selected.cbegin(), selected.cend());
    if (!selectedSet.contains(m_kept))
        ask(true);
}

void FilePresenter::showAnswer(const QVector<qint64>& found, const QString& error, bool keepPlace)
{
    m_asking = false;
    const QVector<qint64> ids = keepPlace ? withSelected(found) : found;
    if (!keepPlace)
        m_kept.clear();
    m_shown = ids;
    // A deleted tag or category has no name.
    const QString name = nameAskedFor();
    if (!name.isEmpty())
        m_name = name;
    m_panel.setTitle(titleFor(found.size()));
    if (!error.isEmpty())
        m_panel.showMessage(tr("The files cannot be shown: %1").arg(error));
    else if (ids.isEmpty())
        m_panel.showMessage(emptyMessage());
    else
        m_panel.showFiles(ids, keepPlace);
    if (m_outdated)
        refresh();
}

void FilePresenter::fillPaths(const QVector<qint64>& ids)
{
    m_library.queryFiles(ids, this,
                         [this, ids, generation = m_generation](const LibraryAnswer<QVector<FileRow>>& files) {
                             if (generation == m_generation && files)
                                 m_panel.view()->setPaths(ids, files.value);
                         });
}

void FilePresenter::openFile(const QByteArray& path)
{
    // The path of a file whose root is not mounted is relative.
    struct stat status = {};
    const bool isThere = path.startsWith('/') && ::stat(path.constData(), &status) == 0;
    const QString type = isThere && S_ISREG(status.st_mode) ? PictureFile::pictureType(path) : QString();
    if (!isThere)
        m_panel.setNotice(tr("%1 is not there, or its disk is not connected.").arg(PictureFile::displayName(path)));
    else if (type.isEmpty())
        m_panel.setNotice(tr("%1 is not a picture file that can be opened.").arg(PictureFile::displayName(path)));
    else if (!PictureOpener::open(path, type))
        m_panel.setNotice(tr("No program was found that opens %1.").arg(PictureFile::displayName(path)));
    else
        m_panel.setNotice({});
}

QString FilePresenter::titleFor(int files) const
{
    const bool one = files == 1;
    const QString number = files == 0 ? tr("No") : QLocale().toString(files);
    const QString asked = QLocale().toString(m_query.ids.size());
    if (m_query.scope == FileQuery::Scope::AllFiles)
        return one ? tr("%1 picture").arg(number) : tr("%1 pictures").arg(number);
    if (m_query.scope == FileQuery::Scope::Matching && m_query.term.kind == QueryTerm::Kind::Untagged)
        return (one ? tr("%1 picture without tags") : tr("%1 pictures without tags")).arg(number);
    if (m_query.scope == FileQuery::Scope::Matching)
        return (one ? tr("%1 picture found") : tr("%1 pictures found")).arg(number);
    if (m_query.scope == FileQuery::Scope::Tags) {
        if (m_query.ids.size() == 1)
            return (one ? tr("%1 file tagged ‘%2’") : tr("%1 files tagged ‘%2’")).arg(number, m_name);
        return (one ? tr("%1 file with any of %2 tags") : tr("%1 files with any of %2 tags")).arg(number, asked);
    }
    if (m_query.ids.size() == 1)
        return (one ? tr("%1 file in category ‘%2’") : tr("%1 files in category ‘%2’")).arg(number, m_name);
    return (one ? tr("%1 file in any of %2 categories") : tr("%1 files in any of %2 categories")).arg(number, asked);
}

QString FilePresenter::emptyMessage() const
{
    switch (m_query.scope) {
    case FileQuery::Scope::AllFiles:
        return tr("There are no pictures in this library yet.");
    case FileQuery::Scope::Tags:
        return tr("No file carries this tag.");
    case FileQuery::Scope::Categories:
        return tr("No file carries a tag of this category.");
    case FileQuery::Scope::Matching:
        break;
    }
    return m_query.term.kind == QueryTerm::Kind::Untagged ? tr("Every picture has a tag.")
                                                          : tr("No picture is found by this query.");
}

QString FilePresenter::queryTextOf(const FileQuery& query) const
{
    if (m_name.isEmpty() || query.ids.size() != 1)
        return {};
    const QString name = queryparser::quoted(m_name);
    return query.scope == FileQuery::Scope::Categories ? QStringLiteral("category:") + name : name;
}

QString FilePresenter::nameAskedFor() const
{
    if (m_query.ids.size() != 1)
        return {};
    const auto library = m_library.dataProvider()->tagManagerDataProvider();
    if (m_query.scope == FileQuery::Scope::Categories) {
        const auto category = library->tagGroup(m_query.ids.first());
        return category ? category->groupName() : QString();
    }
    QHash<qint64, QSharedPointer<ITagDataProvider>> tags;
    const auto all = library->tagGroup(taggroupid::allTags);
    if (all)
        all->tagsByIds(m_query.ids, &tags);
    const auto tag = tags.value(m_query.ids.first());
    return tag ? tag->name() : QString();
}

bool FilePresenter::hasTags() const
{
    const auto all = m_library.dataProvider()->tagManagerDataProvider()->tagGroup(taggroupid::allTags);
    return all && all->tagCount(1) > 0;
}
