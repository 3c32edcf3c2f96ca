// SPDX-License-Identifier: MIT
#pragma once

#include "vlhostglobal.h"

#include <QColor>
#include <QString>
#include <QtGlobal>

#include <memory>

class QWidget;

/// The skin: colours, images, style sheets and the scale of the screen. GUI thread only.
///
/// A built-in dark skin serves until LoadSkin() is called.
class VLHOST_EXPORT VLSkinSetting
{
public:
    /// The one object of the process; never null, never to be deleted.
    static VLSkinSetting* GetInstance();

    /// Device pixels per logical pixel of the screen; above 0.
    double GetDpi() const;
    /// A complete style declaration that shows the image, to be put between braces. Empty for an unknown name.
    QString GetResourcePath(const QString& name) const;
    /// A file or resource path of the image that Qt can open. Empty for an unknown name.
    QString GetResourceAbsolutePath(const QString& name) const;
    /// Applies the named style sheet to \a widget; an unknown name leaves the widget as it is.
    void SetWidgetStyleSheetWithQssName(QWidget* widget, const QString& name) const;

    /// Text colours by strength; an index that the skin does not know gives the colour of index 0.
    QColor GetTextColor(int index) const;
    QColor GetPopupWinBackgroundColor() const;
    QColor GetPopupWinBorderColor() const;
    QColor GetPopupWinBlueColor() const;
    QColor GetInputAndButtonColor() const;
    QColor GetRightFont1() const;
    QColor GetTreeScrollHandleColor() const;
    QColor GetTagPopupTabBackSelectedColor() const;
    QColor GetTagManagerFontColor3() const;
    QColor GetTagManagerTagGroupItemBackColor() const;
    QColor GetTagManagerTagItemRightFontColor() const;

    /// For hosts: replaces the skin by the one in \a directory; what that lacks is taken from the built-in one. On
    /// failure the skin stays as it was and \a error, when given, says why. Widgets that are already open keep what
    /// they have applied.
    bool LoadSkin(const QString& directory, QString* error = nullptr);
    /// For hosts: sets what GetDpi() returns; values that are not above 0 are ignored.
    void SetDpi(double dpi);

private:
    VLSkinSetting();
    ~VLSkinSetting();
    Q_DISABLE_COPY(VLSkinSetting)

    struct Private;
    std::unique_ptr<Private> d;
};
