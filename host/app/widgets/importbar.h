// SPDX-License-Identifier: MIT
#pragma once

#include "host/importer/importsummary.h"

#include <QWidget>

class QProgressBar;
class QPushButton;
class WrappedLabel;

/// A strip at the window's foot that tells how an import goes and how it ended. Hidden while there is nothing to tell.
class ImportBar : public QWidget
{
    Q_OBJECT

public:
    explicit ImportBar(QWidget* parent = nullptr);

    /// \a found of 0 means that the files are still being looked for.
    void showProgress(int done, int found);
    /// Shows errors, files left out, and pictures that are missing or away; hides the bar when there is nothing of it.
    /// Files that could not be read at earlier imports either are no news.
    void showOutcome(const ImportSummary& summary);
    /// Shows that the folders, each a path, are not there, now and with every outcome.
    void showAbsence(const QStringList& folders);

signals:
    void cancelRequested();
    /// The user wants to see which files were left out.
    void skippedRequested();
    /// The user wants the missing pictures out of the library.
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
