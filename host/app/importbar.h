// SPDX-License-Identifier: MIT
#pragma once

#include "host/importer/importsummary.h"

#include <QWidget>

class ElidedLabel;
class QProgressBar;
class QPushButton;

/// A strip at the window's foot that tells how an import goes and how it ended. Hidden while there is nothing to tell.
class ImportBar : public QWidget
{
    Q_OBJECT

public:
    explicit ImportBar(QWidget* parent = nullptr);

    /// \a found of 0 means that the files are still being looked for.
    void showProgress(int done, int found);
    /// Tells of errors and of files left out; hides the bar after an import without either.
    void showOutcome(const ImportSummary& summary);

signals:
    void cancelRequested();
    /// The user wants to see which files were left out.
    void skippedRequested();

private:
    void setUpButtons();
    void applySkin();
    void showButtons(bool running, bool skipped);

    ElidedLabel* m_text = nullptr;
    QProgressBar* m_progress = nullptr;
    QPushButton* m_skippedButton = nullptr;
    QPushButton* m_cancelButton = nullptr;
    QPushButton* m_dismissButton = nullptr;
};
