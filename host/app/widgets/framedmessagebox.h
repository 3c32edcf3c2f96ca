// SPDX-License-Identifier: MIT
#pragma once

#include <QMessageBox>

/// A message box in the look of the program: a thin border instead of the window system's frame, and flat buttons.
class FramedMessageBox : public QMessageBox
{
    Q_OBJECT

public:
    explicit FramedMessageBox(QWidget* parent = nullptr);
};
