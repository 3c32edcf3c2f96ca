// SPDX-License-Identifier: MIT
#include <vlskinsetting.h>

#include "host/services/skin.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <cmath>

namespace {

Skin builtInSkin()
{
    QString error;
    const std::optional<Skin> skin = Skin::fromFolder(QStringLiteral(":/vellum/skin"), nullptr, &error);
    if (!skin)
        qFatal("The built-in skin is broken: %s", qUtf8Printable(error));
    return *skin;
}

}  // namespace

struct VLSkinSetting::Private
{
    const Skin builtIn = builtInSkin();
    Skin skin = builtIn;
    double dpi = 0.0;
};

VLSkinSetting::VLSkinSetting()
    : d(std::make_unique<Private>())
{
}

VLSkinSetting::~VLSkinSetting() = default;

VLSkinSetting* VLSkinSetting::GetInstance()
{
    static VLSkinSetting instance;
    return &instance;
}

double VLSkinSetting::GetDpi() const
{
    if (d->dpi > 0.0)
        return d->dpi;
    const QScreen* screen = qGuiApp ? QGuiApplication::primaryScreen() : nullptr;
    return screen ? screen->devicePixelRatio() : 1.0;
}

void VLSkinSetting::SetDpi(double dpi)
{
    if (std::isfinite(dpi) && dpi > 0.0)
        d->dpi = dpi;
}

QString VLSkinSetting::GetResourcePath(const QString& name) const
{
    const QString path = d->skin.imagePath(name);
    if (path.isEmpty())
        return {};
    return QLatin1String("image:") + styleSheetUrl(path) + QLatin1Char(';');
}

QString VLSkinSetting::GetResourceAbsolutePath(const QString& name) const
{
    return d->skin.imagePath(name);
}

void VLSkinSetting::SetWidgetStyleSheetWithQssName(QWidget* widget, const QString& name) const
{
    const QString sheet = d->skin.styleSheet(name);
    if (widget && !sheet.isNull() && widget->styleSheet() != sheet)
        widget->setStyleSheet(sheet);
}

QColor VLSkinSetting::GetTextColor(int index) const
{
    switch (index) {
    case 1:
        return d->skin.color(SkinColor::TextNormal);
    case 2:
        return d->skin.color(SkinColor::TextWeak);
    case 3:
        return d->skin.color(SkinColor::TextOnChip);
    default:
        return d->skin.color(SkinColor::TextStrong);
    }
}

QColor VLSkinSetting::GetPopupWinBackgroundColor() const
{
    return d->skin.color(SkinColor::PopupBackground);
}

QColor VLSkinSetting::GetPopupWinBorderColor() const
{
    return d->skin.color(SkinColor::PopupBorder);
}

QColor VLSkinSetting::GetPopupWinBlueColor() const
{
    return d->skin.color(SkinColor::PopupBlue);
}

QColor VLSkinSetting::GetInputAndButtonColor() const
{
    return d->skin.color(SkinColor::InputAndButton);
}

QColor VLSkinSetting::GetRightFont1() const
{
    return d->skin.color(SkinColor::AddTagOutline);
}

QColor VLSkinSetting::GetTreeScrollHandleColor() const
{
    return d->skin.color(SkinColor::ScrollHandle);
}

QColor VLSkinSetting::GetTagPopupTabBackSelectedColor() const
{
    return d->skin.color(SkinColor::CategoryTileSelected);
}

QColor VLSkinSetting::GetTagManagerFontColor3() const
{
    return d->skin.color(SkinColor::CategoryTileAdd);
}

QColor VLSkinSetting::GetTagManagerTagGroupItemBackColor() const
{
    return d->skin.color(SkinColor::CategoryTile);
}

QColor VLSkinSetting::GetTagManagerTagItemRightFontColor() const
{
    return d->skin.color(SkinColor::TagItemCount);
}

bool VLSkinSetting::LoadSkin(const QString& directory, QString* error)
{
    QString message;
    std::optional<Skin> skin = Skin::fromFolder(directory, &d->builtIn, &message);
    if (skin)
        d->skin = std::move(*skin);
    if (error)
        *error = message;
    return skin.has_value();
}
