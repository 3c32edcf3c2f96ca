// SPDX-License-Identifier: MIT
#include "widgets/vllineedit.h"

#include <vlskinsetting.h>

#include <QEvent>

namespace {

const QColor placeholderColor(162, 171, 195, 255);

}  // namespace

VLLineEdit::VLLineEdit(QWidget* parent)
    : QLineEdit(parent)
{
    setStyleSheet(fieldStyle(false, QStringLiteral("AlignHCenter")));
    setContextMenuPolicy(Qt::NoContextMenu);
    restorePlaceholderColor();
}

VLLineEdit::~VLLineEdit() = default;

void VLLineEdit::focusChanged(bool hasFocus)
{
    setStyleSheet(fieldStyle(hasFocus, QStringLiteral("AlignHCenter")));
}

bool VLLineEdit::event(QEvent* event)
{
    const bool handled = QLineEdit::event(event);
    if (event->type() == QEvent::Polish || event->type() == QEvent::StyleChange)
        restorePlaceholderColor();
    return handled;
}

// A style sheet that sets the colour of the text takes the placeholder with it whenever it is applied.
void VLLineEdit::restorePlaceholderColor()
{
    QPalette colors = palette();
    colors.setBrush(QPalette::PlaceholderText, placeholderColor);
    if (colors != palette())
        setPalette(colors);
}

void VLLineEdit::focusInEvent(QFocusEvent* event)
{
    focusChanged(true);
    QLineEdit::focusInEvent(event);
}

void VLLineEdit::focusOutEvent(QFocusEvent* event)
{
    focusChanged(false);
    QLineEdit::focusOutEvent(event);
}

QString VLLineEdit::fieldStyle(bool hasFocus, const QString& alignment)
{
    const VLSkinSetting* skin = VLSkinSetting::GetInstance();
    // "1px;solid" is what the skins in use were made for: the field has no visible border until it is focused.
    const QString frame = hasFocus
                              ? QStringLiteral("background-color:rgba(31,32,45,255);border:1px solid;"
                                               "border-color:rgba(172, 178, 198,255);")
                              : QStringLiteral("background-color:rgba(42,44,56,255);border:1px;solid;border-color:%1;")
                                    .arg(skin->GetPopupWinBorderColor().name(QColor::HexArgb));
    return QStringLiteral("font-size:12px;font-family:\"Microsoft YaHei\";border-radius:4px;%1"
                          "qproperty-alignment:%2;color:%3;")
        .arg(frame, alignment, skin->GetTextColor(1).name(QColor::HexArgb));
}
