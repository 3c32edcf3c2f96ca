// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/vllineedit.h"

/// The pages' search field: a line edit with room for the magnifier at its left end.
class VLTagSearchLineEdit : public VLLineEdit
{
    Q_OBJECT

public:
    explicit VLTagSearchLineEdit(QWidget* parent = nullptr);
    ~VLTagSearchLineEdit() override;

    void focusChanged(bool hasFocus) override;
};
