// SPDX-License-Identifier: MIT
// Constructors and destructors of the published classes, which this library exports.
#include "idataprovider.h"
#include "ilibrarydataprovider.h"
#include "itagaction.h"
#include "itagdataprovider.h"
#include "itaggroupaction.h"
#include "itaggroupdataprovider.h"
#include "itagmanagerdataprovider.h"
#include "ivltagmanagerwidget.h"
#include "vltagmanagerevents.h"

IDataProvider::IDataProvider(QObject* parent)
    : QObject(parent)
{
}

IDataProvider::~IDataProvider() = default;

ILibraryDataProvider::ILibraryDataProvider(QObject* parent)
    : QObject(parent)
{
}

ILibraryDataProvider::~ILibraryDataProvider() = default;

ITagAction::ITagAction(QObject* parent)
    : QObject(parent)
{
}

ITagAction::~ITagAction() = default;

ITagDataProvider::ITagDataProvider(QObject* parent)
    : IDataProvider(parent)
{
}

ITagDataProvider::~ITagDataProvider() = default;

ITagGroupAction::ITagGroupAction(QObject* parent)
    : QObject(parent)
{
}

ITagGroupAction::~ITagGroupAction() = default;

ITagGroupDataProvider::ITagGroupDataProvider(QObject* parent)
    : IDataProvider(parent)
{
}

ITagGroupDataProvider::~ITagGroupDataProvider() = default;

ITagManagerDataProvider::ITagManagerDataProvider(QObject* parent)
    : IDataProvider(parent)
{
}

ITagManagerDataProvider::~ITagManagerDataProvider() = default;

IVLTagManagerWidget::IVLTagManagerWidget(QWidget* parent)
    : QWidget(parent)
{
}

IVLTagManagerWidget::~IVLTagManagerWidget() = default;

VLTagManagerEvents::VLTagManagerEvents(QObject* parent)
    : QObject(parent)
{
}

VLTagManagerEvents::~VLTagManagerEvents() = default;
