// SPDX-License-Identifier: MIT
#include "widgets/vlsvgwidget.h"

#include <vlskinsetting.h>

#include <QImage>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

class TestSvgWidget : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void rendersAtTheScreensScale_data();
    void rendersAtTheScreensScale();
    void brokenImagesPaintNothing_data();
    void brokenImagesPaintNothing();
    void iconCanBeReplaced();
    void reportsClicks();
    void mayBeDeletedByAClick();

private:
    QString write(const QByteArray& svg);
    static QImage paint(VLSvgWidget& widget, double scale);

    QTemporaryDir m_directory;
};

void TestSvgWidget::cleanup()
{
    VLSkinSetting::GetInstance()->SetDpi(1.0);
}

QString TestSvgWidget::write(const QByteArray& svg)
{
    const QString path = m_directory.filePath(QStringLiteral("image.svg"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(svg) != svg.size())
        return {};
    return path;
}

QImage TestSvgWidget::paint(VLSvgWidget& widget, double scale)
{
    QImage image(qRound(widget.width() * scale), qRound(widget.height() * scale), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    widget.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    return image;
}

void TestSvgWidget::rendersAtTheScreensScale_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {1.0, 1.5, 2.0})
        QTest::newRow(qPrintable(QString::number(scale))) << scale;
}

void TestSvgWidget::rendersAtTheScreensScale()
{
    QFETCH(double, scale);
    VLSkinSetting::GetInstance()->SetDpi(scale);
    // The edge lies at the right of device pixel 2 at every scale, so that a rescaled pixmap would show a blurred one.
    const QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg' width='16' height='16'><rect width='" +
                           QByteArray::number(3.0 / scale, 'g', 17) + "' height='16' fill='#ff0000'/></svg>";
    VLSvgWidget widget(write(svg));
    widget.setFixedSize(16, 16);
    const QImage image = paint(widget, scale);
    QCOMPARE(image.width(), qRound(16 * scale));
    const int middle = image.height() / 2;
    QCOMPARE(image.pixelColor(0, middle), QColor(Qt::red));
    QCOMPARE(image.pixelColor(2, middle), QColor(Qt::red));
    QCOMPARE(image.pixelColor(3, middle).alpha(), 0);
}

void TestSvgWidget::brokenImagesPaintNothing_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no image") << QByteArray("not an image");
    QTest::newRow("cut off") << QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='16'");
}

void TestSvgWidget::brokenImagesPaintNothing()
{
    QFETCH(QByteArray, content);
    VLSvgWidget widget(write(content));
    widget.setFixedSize(16, 16);
    QCOMPARE(paint(widget, 1.0).pixelColor(8, 8).alpha(), 0);
    widget.setIcon(m_directory.filePath(QStringLiteral("missing.svg")));
    QCOMPARE(paint(widget, 1.0).pixelColor(8, 8).alpha(), 0);
    widget.setIcon(QString());
    QCOMPARE(paint(widget, 1.0).pixelColor(8, 8).alpha(), 0);
}

void TestSvgWidget::iconCanBeReplaced()
{
    VLSvgWidget widget{QString()};
    widget.setFixedSize(16, 16);
    widget.setIcon(write("<svg xmlns='http://www.w3.org/2000/svg' width='4' height='4'>"
                         "<rect width='4' height='4' fill='#00ff00'/></svg>"));
    const QImage image = paint(widget, 1.0);
    QCOMPARE(image.pixelColor(1, 1), QColor(Qt::green));
    QCOMPARE(image.pixelColor(14, 14), QColor(Qt::green));
}

void TestSvgWidget::reportsClicks()
{
    VLSvgWidget widget{QString()};
    widget.show();
    QSignalSpy clicks(&widget, &VLSvgWidget::clicked);
    QTest::mouseClick(&widget, Qt::LeftButton);
    QTest::mouseClick(&widget, Qt::RightButton);
    QCOMPARE(clicks.count(), 2);
}

void TestSvgWidget::mayBeDeletedByAClick()
{
    QPointer<VLSvgWidget> widget = new VLSvgWidget(QString());
    widget->show();
    connect(widget, &VLSvgWidget::clicked, this, [&widget] { delete widget; });
    QTest::mouseClick(widget, Qt::LeftButton);
    QVERIFY(!widget);
}

QTEST_MAIN(TestSvgWidget)
#include "tst_vlsvgwidget.moc"
