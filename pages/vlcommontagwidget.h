// SPDX-License-Identifier: MIT
#pragma once

#include "pages/vlalltagwidget.h"

/// The page of the favourite tags: as the page of all tags, without counter and create button.
class VLCommonTagWidget : public VLAllTagWidget
{
    Q_OBJECT

public:
    VLCommonTagWidget(int type, QWidget* parent);
    ~VLCommonTagWidget() override;

    /// Builds the content and fills it with the favourites; null shows an empty page. To be called once.
    void initialise(const QSharedPointer<ITagGroupDataProvider>& provider);
};
