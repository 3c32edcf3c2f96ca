// SPDX-License-Identifier: MIT
#pragma once

#include "host/app/widgets/framedmessagebox.h"

/// Asks whether to remove missing pictures from the library. Escape and Enter keep them.
class MissingPicturesQuestion : public FramedMessageBox
{
    Q_OBJECT

public:
    /// \a count is the number of missing pictures.
    explicit MissingPicturesQuestion(int count, QWidget* parent = nullptr);

signals:
    void removalConfirmed();
};
