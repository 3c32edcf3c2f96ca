// SPDX-License-Identifier: MIT
#include "plugin/tagitem.h"

#include "plugin/vltagmanagersingleton.h"

#include <itagdataprovider.h>
#include <tagrecords.h>

std::optional<TagItem> readTagItem(QSharedPointer<ITagDataProvider> provider)
{
    if (!provider)
        return std::nullopt;
    const auto info = provider->tagInfo();
    if (!info)
        return std::nullopt;
    const int fileCount = provider->fileCount(1);
    return TagItem{info->id(), info->name(), VLTagManagerSingleton::instance()->tagColor(info->colorIndex()), fileCount,
                   std::move(provider)};
}

void registerTagItemMetaType()
{
    qRegisterMetaType<TagItem>("TagItem");
}
