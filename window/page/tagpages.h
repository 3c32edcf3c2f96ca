// SPDX-License-Identifier: MIT
#pragma once

#include <vltagmanagerevents.h>

#include <array>

/// What makes up a page, as the window, its buttons and the page itself show it.
struct TagPage
{
    TagManagerPage id;
    const char* button;       ///< Text of the page's button, to be translated in the context of VLTagManagerWidget.
    const char* title;        ///< To be translated in the context of VLTagBaseWidget.
    const char* description;  ///< In the same context.
    const char* icon;         ///< Image of the skin, before the title.
    bool isSearched;          ///< The page has a search field.
};

/// Every page, in the order of the buttons and of the stack; the position is the value of the id.
[[nodiscard]] const std::array<TagPage, 3>& tagPages();
/// The page of a page type; null for a type that is no page.
[[nodiscard]] const TagPage* tagPage(int type);
