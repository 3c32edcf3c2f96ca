// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QVector>

class QAbstractItemView;
class QLineEdit;
class QWidget;

/// What a person asks for in the tag manager's search: the files of a result by a double click on it, and those of the
/// first one by Enter in the field. The tag manager reports double clicks in its letter sections alone.
///
/// Found by the names in the tag manager's tree of objects. GUI thread only.
class SearchResults : public QObject
{
    Q_OBJECT

public:
    explicit SearchResults(const QWidget& tagWindow, QObject* parent = nullptr);

signals:
    void filesWanted(const QVector<qint64>& tagIds);

private slots:
    void askForFiles(qint64 tagId, const QString& name);

private:
    void followField(const QPointer<QLineEdit>& field);
    void followResults(const QLineEdit& field);
    void openFirst(const QLineEdit& field);
    /// The list that shows the results of \a field; null while there is none.
    [[nodiscard]] static QAbstractItemView* resultsOf(const QLineEdit& field);

    QHash<const QLineEdit*, QPointer<QAbstractItemView>> m_results;  ///< Those found.
};
