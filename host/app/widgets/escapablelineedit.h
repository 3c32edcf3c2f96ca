// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

/// A field that Escape empties, so that what the window does on Escape needs an empty field.
class EscapableLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    using QLineEdit::QLineEdit;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};
