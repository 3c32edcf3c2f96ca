// SPDX-License-Identifier: MIT
#pragma once

#include "host/services/skincolor.h"

#include <QColor>
#include <QCoreApplication>
#include <QHash>
#include <QString>

#include <array>
#include <optional>

/// One skin, read whole from a folder on disk or in the resources:
///
///     colors.json              name to "#rrggbb" or "#aarrggbb"
///     tagmanager.qss menu.qss  style sheets with @{color:name} and @{image:file} in the places of values
///     icons/                   images, each under the name that code asks for
///
/// A value; reading it costs file access, everything else is a look-up.
class Skin
{
    Q_DECLARE_TR_FUNCTIONS(Skin)

public:
    /// Reads \a folder, in which nothing but colors.json must be. \a base lends each colour, style sheet and image that
    /// the folder lacks; null for the skin that stands on its own, which must have them all. Without a result \a error
    /// names the file and what is wrong with it.
    static std::optional<Skin> fromFolder(const QString& folder, const Skin* base, QString* error);

    [[nodiscard]] QColor color(SkinColor color) const { return m_codeColors[static_cast<size_t>(color)]; }
    /// The style sheet of this name, ready to apply; null for an unknown name.
    [[nodiscard]] QString styleSheet(const QString& name) const { return m_styleSheets.value(name); }
    /// The path of an image that Qt can open; null for an unknown name. Only plain file names are known.
    [[nodiscard]] QString imagePath(const QString& name) const { return m_images.value(name); }

private:
    Skin() = default;

    bool readColors(const QString& folder, QString* error);
    bool readImages(const QString& folder, QString* error);
    bool readStyleSheet(const QString& folder, const QString& name, QString* error);
    [[nodiscard]] QString placeholderValue(const QString& kind, const QString& name) const;

    QString m_root;  ///< Absolute path of the folder.
    QHash<QString, QColor> m_colors;
    std::array<QColor, skinColorCount> m_codeColors;
    QHash<QString, QString> m_styleSheets;
    QHash<QString, QString> m_images;
};

/// \a path as a value of a style sheet.
QString styleSheetUrl(const QString& path);
