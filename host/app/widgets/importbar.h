// SPDX-License-Identifier: MIT
#pragma once

#include "host/importer/importsummary.h"

#include <QWidget>

class QProgressBar;
class QPushButton;
class WrappedLabel;

/// A bar at the bottom of the window that shows the progress and the outcome of an import. Hidden without either.
class ImportBar : public QWidget
{
    Q_OBJECT

public:
    explicit ImportBar(QWidget* parent = nullptr);

    /// Shows \a done of \a found files as read; \a done of 0 means that files are still being searched for.
    void showProgress(int done, int found);
    /// Shows errors, files left out, and pictures that are missing or away; hides the bar if there are none. Files that
    /// earlier imports could not read either do not count.
    void showOutcome(const ImportSummary& summary);
    /// Shows that \a folders, each a name, do not exist, now and with every later outcome.
    void showAbsence(const QStringList& folders);

signals:
    void cancelRequested();
    /// The user asked for the list of files that were left out.
    void skippedRequested();
    /// The user asked to remove missing pictures from the library.
    void removalRequested();

private:
    [[nodiscard]] static QStringList sentencesOf(const ImportSummary& summary);
    void setUpButtons();
    void applySkin();
    void showButtons(bool running, bool skipped, bool missing);

    QStringList m_absence;  ///< A sentence for each absent folder.
    WrappedLabel* m_text = nullptr;
    QProgressBar* m_progress = nullptr;
    QPushButton* m_skippedButton = nullptr;
    QPushButton* m_removeButton = nullptr;
    QPushButton* m_cancelButton = nullptr;
    QPushButton* m_dismissButton = nullptr;
};
