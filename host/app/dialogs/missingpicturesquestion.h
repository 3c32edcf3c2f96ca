// SPDX-License-Identifier: MIT
#pragma once

#include <QMessageBox>

/// Asks whether missing pictures shall leave the library. Escape and Enter keep them.
class MissingPicturesQuestion : public QMessageBox
{
    Q_OBJECT

public:
    /// \a count pictures are missing.
    explicit MissingPicturesQuestion(int count, QWidget* parent = nullptr);

signals:
    void removalConfirmed();
};
