// SPDX-License-Identifier: MIT
#pragma once

#include "host/app/widgets/framewindow.h"

#include <QVector>

struct SkippedFile;

/// Lists the files that an import left out, each with the reason. Modal to the window of its parent; Escape closes it.
class SkippedFilesDialog : public FrameWindow
{
    Q_OBJECT

public:
    explicit SkippedFilesDialog(const QVector<SkippedFile>& files, QWidget* parent = nullptr);

protected:
    [[nodiscard]] bool isMoveArea(const QPoint& pos) const override;

private:
    void setUpContent(const QString& text);
    void placeOver(const QWidget& window);
};
