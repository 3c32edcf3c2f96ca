// SPDX-License-Identifier: MIT
#include "plugin/state/tagitem.h"

#include "plugin/state/tagsearch.h"
#include "plugin/state/vltagmanagersingleton.h"

#include <itagdataprovider.h>
#include <tagrecords.h>

std::optional<TagItem> readTagItem(QSharedPointer<ITagDataProvider> provider, const QString& filter)
{
    if (!provider)
        return std::nullopt;
    const auto info = provider->tagInfo();
    if (!info)
        return std::nullopt;
    QString name = info->name();
    if (!tagsearch::finds(filter, name))
        return std::nullopt;
    const int fileCount = provider->fileCount(1);
    return TagItem{info->id(), std::move(name), VLTagManagerSingleton::instance()->tagColor(info->colorIndex()),
                   fileCount, std::move(provider)};
}

void registerTagItemMetaType()
{
    qRegisterMetaType<TagItem>("TagItem");
}
