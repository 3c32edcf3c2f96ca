// SPDX-License-Identifier: MIT
#pragma once

/// What a person, or an import, asked for. The numbers are stored and never change their meaning.
enum class ChangeKind
{
    CreateTags = 1,
    RenameTag = 2,
    RecolorTag = 3,
    DeleteTags = 4,
    AddToCategories = 5,
    RemoveFromCategories = 6,
    CreateCategory = 7,
    RenameCategory = 8,
    DeleteCategory = 9,
    Import = 10,
    Forget = 11,
    AddRoot = 12,
    Settle = 13,
    MergeTags = 14,
    TagFiles = 15
};
