// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QVector>

struct SkippedFile;

/// Lists the files that an import left out, each with the reason.
class SkippedFilesDialog : public QDialog
{
    Q_OBJECT

public:
    explicit SkippedFilesDialog(const QVector<SkippedFile>& files, QWidget* parent = nullptr);
};
