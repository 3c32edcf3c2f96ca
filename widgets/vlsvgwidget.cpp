// SPDX-License-Identifier: MIT
#include "widgets/vlsvgwidget.h"

#include <vlskinsetting.h>

#include <QPainter>
#include <QPointer>
#include <QSvgRenderer>
#include <QtMath>

namespace {

constexpr auto renderHints = QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform;

QPixmap renderSvg(const QString& path, double scale)
{
    QSvgRenderer renderer;
    if (path.isEmpty() || !renderer.load(path))
        return {};
    const QSize logical = renderer.defaultSize();
    QImage image(qRound(logical.width() * scale), qRound(logical.height() * scale),
                 QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return {};
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(renderHints);
    renderer.render(&painter);
    painter.end();
    QPixmap pixmap = QPixmap::fromImage(image);
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

}  // namespace

VLSvgWidget::VLSvgWidget(const QString& path, QWidget* parent)
    : QLabel(parent)
    , m_scale(VLSkinSetting::GetInstance()->GetDpi())
{
    setIcon(path);
}

VLSvgWidget::~VLSvgWidget() = default;

void VLSvgWidget::setIcon(const QString& path)
{
    m_pixmap = renderSvg(path, m_scale);
    update();
}

void VLSvgWidget::paintEvent(QPaintEvent*)
{
    if (m_pixmap.isNull())
        return;
    QPainter painter(this);
    painter.setRenderHints(renderHints);
    painter.drawPixmap(rect(), m_pixmap);
}

void VLSvgWidget::mouseReleaseEvent(QMouseEvent* event)
{
    const QPointer<VLSvgWidget> self(this);
    emit clicked();
    if (self)
        QLabel::mouseReleaseEvent(event);
}
