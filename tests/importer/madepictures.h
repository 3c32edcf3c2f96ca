// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QVector>

/// A picture file with nothing to see, of the smallest form that the metadata library takes for its format.
struct MadePicture
{
    QByteArray name;  ///< Of the file.
    QByteArray bytes;
    bool hasKeyword = true;  ///< Whether the keyword "sea" is found in it.
};

/// One for each format that the project has no sample of.
[[nodiscard]] QVector<MadePicture> madePictures();
