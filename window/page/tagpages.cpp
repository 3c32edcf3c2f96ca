// SPDX-License-Identifier: MIT
#include "window/page/tagpages.h"

#include <QCoreApplication>

namespace {

constexpr std::array<TagPage, 3> pages{
    {{TagManagerPage::AllTags, QT_TRANSLATE_NOOP("VLTagManagerWidget", "All Tags"),
      QT_TRANSLATE_NOOP("VLTagBaseWidget", "All Tags"),
      QT_TRANSLATE_NOOP("VLTagBaseWidget",
                        "Tag-based file classification and filing help categorize and organize files more "
                        "efficiently."),
      "list_labeling_select.svg", true},
     {TagManagerPage::Categories, QT_TRANSLATE_NOOP("VLTagManagerWidget", "Tag Categories"),
      QT_TRANSLATE_NOOP("VLTagBaseWidget", "Tag Categories"),
      QT_TRANSLATE_NOOP("VLTagBaseWidget",
                        "You can categorize the tags with different meanings to manage and conveniently use "
                        "them."),
      "label_sort_icon.svg", false},
     {TagManagerPage::Favorites, QT_TRANSLATE_NOOP("VLTagManagerWidget", "Favorite Tags"),
      QT_TRANSLATE_NOOP("VLTagBaseWidget", "Favorite Tags"),
      QT_TRANSLATE_NOOP("VLTagBaseWidget",
                        "You can save frequently used tags as Favorite Tags for easier targeting and "
                        "tagging."),
      "label_usually_icon.svg", true}}};

}  // namespace

const std::array<TagPage, 3>& tagPages()
{
    return pages;
}

const TagPage* tagPage(int type)
{
    return type >= 0 && type < int(pages.size()) ? &pages[type] : nullptr;
}
