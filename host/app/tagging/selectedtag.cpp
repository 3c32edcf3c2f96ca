// SPDX-License-Identifier: MIT
#include "host/app/tagging/selectedtag.h"

#include "host/app/widgets/plaintooltip.h"

#include <vlskinsetting.h>

#include <QKeyEvent>
#include <QLocale>
#include <QPainter>
#include <QStyle>
#include <QToolButton>

namespace {

constexpr int chipHeight = 26;
constexpr int mostNameWidth = 220;
constexpr int dotSide = 10;
constexpr int margin = 8;
constexpr int gap = 6;
constexpr int buttonSide = 20;

}  // namespace

SelectedTag::SelectedTag(const Content& content, QWidget* parent)
    : QWidget(parent)
    , m_content(content)
{
    setObjectName(QStringLiteral("selected_tag"));
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(label());
    setToolTip(plainToolTip(m_content.name));
    if (!isOnAll()) {
        m_putOnAll = makeButton(QStringLiteral("+"), tr("Put on all selected pictures (Enter)"));
        connect(m_putOnAll, &QToolButton::clicked, this, &SelectedTag::putOnAll);
    }
    m_takeOff = makeButton(QStringLiteral("×"), tr("Take off (Delete)"));
    connect(m_takeOff, &QToolButton::clicked, this, &SelectedTag::takeOff);
}

QSize SelectedTag::sizeHint() const
{
    const int name = std::min(fontMetrics().horizontalAdvance(label()) + 1, mostNameWidth);
    return {margin + dotSide + gap + name + gap + buttonsWidth() + margin / 2, chipHeight};
}

void SelectedTag::paintEvent(QPaintEvent* /*event*/)
{
    const VLSkinSetting* skin = VLSkinSetting::GetInstance();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPen pen(hasFocus() ? skin->GetPopupWinBlueColor() : skin->GetPopupWinBorderColor(), hasFocus() ? 2 : 1);
    if (!isOnAll() && !hasFocus())
        pen.setStyle(Qt::DashLine);
    painter.setPen(pen);
    painter.setBrush(isOnAll() ? skin->GetTagManagerTagGroupItemBackColor() : Qt::transparent);
    painter.drawRoundedRect(frame, chipHeight / 2.0, chipHeight / 2.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_content.color);
    const QRect dot(margin, (height() - dotSide) / 2, dotSide, dotSide);
    painter.drawEllipse(QStyle::visualRect(layoutDirection(), rect(), dot));
    painter.setPen(skin->GetTextColor(0));
    const int left = margin + dotSide + gap;
    const QRect name(left, 0, width() - left - gap - buttonsWidth() - margin / 2, height());
    painter.drawText(QStyle::visualRect(layoutDirection(), rect(), name),
                     Qt::AlignVCenter | Qt::AlignLeading | Qt::TextSingleLine,
                     fontMetrics().elidedText(label(), Qt::ElideRight, name.width()));
}

void SelectedTag::resizeEvent(QResizeEvent* /*event*/)
{
    QRect place(width() - margin / 2 - buttonSide, (height() - buttonSide) / 2, buttonSide, buttonSide);
    m_takeOff->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
    place.translate(-buttonSide, 0);
    if (m_putOnAll)
        m_putOnAll->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
}

void SelectedTag::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace)
        emit takeOff();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space)
        emit putOnAll();
    else
        QWidget::keyPressEvent(event);
}

void SelectedTag::focusInEvent(QFocusEvent* /*event*/)
{
    update();
}

void SelectedTag::focusOutEvent(QFocusEvent* /*event*/)
{
    update();
}

/// A name may hold line feeds; on its one line they are spaces.
QString SelectedTag::label() const
{
    if (isOnAll())
        return m_content.name.simplified();
    const QLocale locale;
    return tr("%1 (%2 of %3)")
        .arg(m_content.name.simplified(), locale.toString(m_content.files), locale.toString(m_content.selected));
}

QToolButton* SelectedTag::makeButton(const QString& sign, const QString& help)
{
    auto* button = new QToolButton(this);
    button->setText(sign);
    button->setToolTip(help);
    button->setAccessibleName(help);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

int SelectedTag::buttonsWidth() const
{
    return m_putOnAll ? 2 * buttonSide : buttonSide;
}
