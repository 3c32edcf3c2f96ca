// SPDX-License-Identifier: MIT
#include "window/page/vltagsearchlineedit.h"

VLTagSearchLineEdit::VLTagSearchLineEdit(QWidget* parent)
    : VLLineEdit(parent)
{
}

VLTagSearchLineEdit::~VLTagSearchLineEdit() = default;

void VLTagSearchLineEdit::focusChanged(bool hasFocus)
{
    setStyleSheet(QStringLiteral("padding-left: 28px;") + fieldStyle(hasFocus, QStringLiteral("AlignLeft")));
}
