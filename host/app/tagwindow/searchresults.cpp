// SPDX-License-Identifier: MIT
#include "host/app/tagwindow/searchresults.h"

#include "host/app/tagwindow/tagwindow.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QLineEdit>
#include <QMouseEvent>

SearchResults::SearchResults(const QWidget& tagWindow, QObject* parent)
    : QObject(parent)
{
    const auto fields = TagWindow::searchFields(tagWindow);
    for (QLineEdit* field : fields)
        followField(field);
}

void SearchResults::askForFiles(qint64 tagId, const QString& /*name*/)
{
    emit filesWanted({tagId});
}

/// Pages follow their fields through a queue; what is queued here comes after that.
void SearchResults::followField(const QPointer<QLineEdit>& field)
{
    const auto follow = [this, field] {
        if (field)
            followResults(*field);
    };
    const auto open = [this, field] {
        if (field)
            openFirst(*field);
    };
    connect(field, &QLineEdit::textChanged, this, follow, Qt::QueuedConnection);
    connect(field, &QLineEdit::returnPressed, this, open, Qt::QueuedConnection);
}

void SearchResults::followResults(const QLineEdit& field)
{
    // The list is made for the first search, and stays.
    if (m_results.value(&field))
        return;
    QAbstractItemView* results = resultsOf(field);
    m_results.insert(&field, results);
    if (results)
        connect(results, SIGNAL(signCheckTagLinkFile(qint64, QString)), this, SLOT(askForFiles(qint64, QString)));
}

/// As a person would: what a row stands for is the tag manager's own.
void SearchResults::openFirst(const QLineEdit& field)
{
    const QAbstractItemView* results = m_results.value(&field);
    const bool searches = results && !field.text().isEmpty();
    const QModelIndex first = searches ? results->model()->index(0, 0) : QModelIndex();
    if (!first.isValid())
        return;
    QWidget* viewport = results->viewport();
    const QPoint pos = results->visualRect(first).center();
    QMouseEvent event(QEvent::MouseButtonDblClick, pos, viewport->mapToGlobal(pos), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &event);
}

QAbstractItemView* SearchResults::resultsOf(const QLineEdit& field)
{
    const QWidget* page = TagWindow::pageOf(field);
    if (!page || field.text().isEmpty())
        return nullptr;
    const auto lists = page->findChildren<QAbstractItemView*>(QStringLiteral("tag_list_view"));
    for (QAbstractItemView* list : lists) {
        // The letter sections are hidden while there is a search.
        if (list->isVisibleTo(page) && list->model())
            return list;
    }
    return nullptr;
}
