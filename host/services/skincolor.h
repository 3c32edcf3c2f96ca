// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The colours that code asks a skin for. Style sheets may use others that the skin's colour file names.
enum class SkinColor
{
    TextStrong,            ///< Text on buttons.
    TextNormal,            ///< Titles, names, menu entries, input.
    TextWeak,              ///< Descriptions and other text of second rank.
    TextOnChip,            ///< Text on the saturated colours of tags.
    PopupBackground,       ///< Dialogs and message boxes.
    PopupBorder,           ///< Frames of dialogs and input fields.
    PopupBlue,             ///< Words that stand out in the text of a dialog.
    InputAndButton,        ///< Fill of dialog buttons.
    AddTagOutline,         ///< Outline and text of the chip that adds a tag.
    ScrollHandle,          ///< Handle of scroll bars.
    CategoryTileSelected,  ///< Fill of the selected category tile.
    CategoryTile,          ///< Fill of the other category tiles.
    CategoryTileAdd,       ///< Plus sign and text of the tile that adds a category.
    TagItemCount,          ///< File count beside a tag.
};

inline constexpr int skinColorCount = static_cast<int>(SkinColor::TagItemCount) + 1;

/// The name of \a color in a skin's colour file.
QString skinColorName(SkinColor color);
