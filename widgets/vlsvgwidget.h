// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QPixmap>

/// A label that shows an SVG image sharply at the skin's scale, stretched over its whole area, and reports clicks.
/// A missing or broken image shows nothing.
class VLSvgWidget : public QLabel
{
    Q_OBJECT

public:
    /// \a path: a file or resource path that Qt can open, or empty for no image. The skin's scale is read here once.
    explicit VLSvgWidget(const QString& path, QWidget* parent = nullptr);
    ~VLSvgWidget() override;

    /// Replaces the image.
    void setIcon(const QString& path);

signals:
    /// A mouse button was released over the label.
    void clicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    /// Device pixels; its device pixel ratio is the scale.
    QPixmap m_pixmap;
    /// Device pixels per logical pixel.
    double m_scale;
};
