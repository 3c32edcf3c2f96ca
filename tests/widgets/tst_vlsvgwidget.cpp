// SPDX-License-Identifier: MIT
#include "widgets/vlsvgwidget.h"

#include <vlskinsetting.h>

#include <QImage>
#include <QTemporaryDir>
#include <QTest>

class TestSvgWidget : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { VLSkinSetting::GetInstance()->SetDpi(1.0); }

    void rendersAtTheScreensScale()
    {
        for (const double scale : {1.0, 1.5, 2.0}) {
            VLSkinSetting::GetInstance()->SetDpi(scale);
            // The edge lies at the right of device pixel 2 at every scale, so that a rescaled pixmap would show a
            // blurred one.
            const QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg' width='16' height='16'><rect width='" +
                                   QByteArray::number(3.0 / scale, 'g', 17) + "' height='16' fill='#ff0000'/></svg>";
            VLSvgWidget widget(write(svg));
            widget.setFixedSize(16, 16);
            const QImage image = paint(widget, scale);
            const int middle = image.height() / 2;
            QCOMPARE(image.pixelColor(2, middle), QColor(Qt::red));
            QCOMPARE(image.pixelColor(3, middle).alpha(), 0);
        }
    }

private:
    QString write(const QByteArray& svg)
    {
        QString path = m_directory.filePath(QStringLiteral("image.svg"));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(svg) != svg.size())
            return {};
        return path;
    }

    static QImage paint(VLSvgWidget& widget, double scale)
    {
        QImage image(qRound(widget.width() * scale), qRound(widget.height() * scale),
                     QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::transparent);
        widget.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        return image;
    }

    QTemporaryDir m_directory;
};

QTEST_MAIN(TestSvgWidget)
#include "tst_vlsvgwidget.moc"
