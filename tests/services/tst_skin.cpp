// SPDX-License-Identifier: MIT
#include <vlskinsetting.h>

#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>

namespace {

const QString builtInFolder = QStringLiteral(":/vellum/skin");

VLSkinSetting* skin()
{
    return VLSkinSetting::GetInstance();
}

double linear(double channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

// Relative luminance and contrast as WCAG 2.1 defines them.
double luminance(const QColor& color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    const double la = luminance(a);
    const double lb = luminance(b);
    return (qMax(la, lb) + 0.05) / (qMin(la, lb) + 0.05);
}

bool writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A skin folder with the colours and sheets of the built-in skin and no images of its own.
bool makeSkin(const QString& folder)
{
    bool made = QDir().mkpath(folder + QStringLiteral("/icons"));
    for (const QString& name :
         {QStringLiteral("/colors.json"), QStringLiteral("/tagmanager.qss"), QStringLiteral("/menu.qss")})
        made = made && writeFile(folder + name, readFile(builtInFolder + name));
    return made;
}

QString appliedSheet(const QString& name)
{
    QWidget widget;
    skin()->SetWidgetStyleSheetWithQssName(&widget, name);
    return widget.styleSheet();
}

// The distinct colours that show where \a declaration puts an image on an empty label.
int paintedColors(const QString& declaration)
{
    QLabel label;
    label.setFixedSize(16, 16);
    label.setStyleSheet(QStringLiteral("QLabel{border:0px;") + declaration + QStringLiteral("}"));
    QImage image(16, 16, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    label.render(&image, {}, {}, {});
    QSet<QRgb> colors;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            colors.insert(image.pixel(x, y));
    return colors.size();
}

}  // namespace

class TestSkin : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void textIsReadable();
    void imagesRender_data();
    void imagesRender();
    void styleSheetsParse();
    void unknownNamesChangeNothing();
    void loadedSkinReplacesColorsSheetsAndImages();
    void brokenSkinIsRefused_data();
    void brokenSkinIsRefused();
};

void TestSkin::cleanup()
{
    QVERIFY(skin()->LoadSkin(builtInFolder));
}

void TestSkin::textIsReadable()
{
    const QColor window = skin()->GetPopupWinBackgroundColor();
    const QColor tile = skin()->GetTagManagerTagGroupItemBackColor();
    const QColor tab = skin()->GetTagPopupTabBackSelectedColor();
    const QVector<QPair<QColor, QVector<QColor>>> textsByBackground = {
        {window,
         {skin()->GetTextColor(1), skin()->GetTextColor(2), skin()->GetPopupWinBlueColor(), skin()->GetRightFont1(),
          skin()->GetTagManagerTagItemRightFontColor()}},
        {tile, {skin()->GetTextColor(1), skin()->GetTagManagerFontColor3()}},
        {tab, {skin()->GetTextColor(0), skin()->GetTextColor(1)}},
        {skin()->GetInputAndButtonColor(), {skin()->GetTextColor(0)}},
        {QColor(42, 44, 56), {skin()->GetTextColor(1)}},
        {QColor(31, 32, 45), {skin()->GetTextColor(1)}},
        {QColor(QStringLiteral("#2f6fd0")), {skin()->GetTextColor(3)}}};
    for (const auto& [background, texts] : textsByBackground) {
        for (const QColor& text : texts)
            QVERIFY2(contrast(text, background) >= 4.5, qPrintable(text.name() + QLatin1Char(' ') + background.name()));
    }
    QVERIFY(contrast(skin()->GetTreeScrollHandleColor(), window) >= 3.0);
}

void TestSkin::imagesRender_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("search_icon_normel.svg") << QSize(12, 12);
    QTest::newRow("list_labeling_select.svg") << QSize(16, 20);
    QTest::newRow("label_usually_icon.svg") << QSize(16, 20);
    QTest::newRow("label_sort_icon.svg") << QSize(16, 16);
    QTest::newRow("mainbody_close.svg") << QSize(16, 16);
    QTest::newRow("nav_logo.svg") << QSize(16, 16);
    QTest::newRow("vellum.svg") << QSize(64, 64);
    for (const char* state : {"normal", "hover"}) {
        // The minimise button leaves four pixels between its paddings.
        QTest::addRow("title_window_minisize_%s.svg", state) << QSize(14, 4);
        QTest::addRow("title_window_maxsize_%s.svg", state) << QSize(14, 14);
        QTest::addRow("title_window_restore_%s.svg", state) << QSize(14, 14);
        QTest::addRow("title_window_close_%s.svg", state) << QSize(14, 14);
    }
}

void TestSkin::imagesRender()
{
    QFETCH(QSize, size);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    QImageReader reader(skin()->GetResourceAbsolutePath(name));
    QCOMPARE(reader.size(), size);
    QVERIFY(paintedColors(skin()->GetResourcePath(name)) > 1);
}

void TestSkin::styleSheetsParse()
{
    static QStringList messages;
    messages.clear();
    const QtMessageHandler previous =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) { messages << text; });
    const QString sheets = appliedSheet(QStringLiteral("tagmanager")) + appliedSheet(QStringLiteral("menu"));
    qInstallMessageHandler(previous);
    QCOMPARE(messages, QStringList());
    QVERIFY(sheets.contains(skin()->GetTextColor(1).name(QColor::HexArgb)));
    QVERIFY(!sheets.contains(QLatin1String("@{")));
}

void TestSkin::unknownNamesChangeNothing()
{
    QWidget widget;
    widget.setStyleSheet(QStringLiteral("color:red;"));
    skin()->SetWidgetStyleSheetWithQssName(&widget, QStringLiteral("../menu"));
    skin()->SetWidgetStyleSheetWithQssName(nullptr, QStringLiteral("menu"));
    QCOMPARE(widget.styleSheet(), QStringLiteral("color:red;"));

    QTemporaryDir folder;
    QVERIFY(makeSkin(folder.path()));
    QVERIFY(writeFile(folder.filePath(QStringLiteral("secret.svg")), readFile(builtInFolder + "/icons/vellum.svg")));
    QVERIFY(skin()->LoadSkin(folder.path()));
    for (const char* name : {"", ".", "..", "../secret.svg", "../colors.json", "/etc/hostname", "icons/vellum.svg",
                             "..\\secret.svg", "secret.svg", "no such image.svg"}) {
        QVERIFY2(skin()->GetResourceAbsolutePath(QString::fromLatin1(name)).isEmpty(), name);
        QVERIFY2(skin()->GetResourcePath(QString::fromLatin1(name)).isEmpty(), name);
    }
    QCOMPARE(skin()->GetTextColor(-1), skin()->GetTextColor(0));
    QCOMPARE(skin()->GetTextColor(99), skin()->GetTextColor(0));
}

void TestSkin::loadedSkinReplacesColorsSheetsAndImages()
{
    QTemporaryDir folder;
    const QString root = folder.filePath(QStringLiteral("my skin) \"%1\" \\ '猫'"));
    QVERIFY(makeSkin(root));
    const QString colors = root + QStringLiteral("/colors.json");
    const QByteArray normal = skin()->GetTextColor(1).name().toLatin1();
    QVERIFY(writeFile(colors, readFile(colors).replace(normal, "#12345678")));
    const QString close = root + QStringLiteral("/icons/mainbody_close.svg");
    QVERIFY(QFile::copy(builtInFolder + QStringLiteral("/icons/vellum.svg"), close));

    QString error = QStringLiteral("left from an earlier call");
    QVERIFY2(skin()->LoadSkin(root, &error), qPrintable(error));
    QCOMPARE(error, QString());
    QCOMPARE(skin()->GetTextColor(1), QColor(0x34, 0x56, 0x78, 0x12));
    QVERIFY(appliedSheet(QStringLiteral("menu")).contains(QLatin1String("#12345678")));
    QCOMPARE(skin()->GetResourceAbsolutePath(QStringLiteral("mainbody_close.svg")), close);
    QVERIFY(paintedColors(skin()->GetResourcePath(QStringLiteral("mainbody_close.svg"))) > 1);
    QCOMPARE(skin()->GetResourceAbsolutePath(QStringLiteral("nav_logo.svg")),
             builtInFolder + QStringLiteral("/icons/nav_logo.svg"));
}

void TestSkin::brokenSkinIsRefused_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QStringList>("complaints");
    const QString colors = QStringLiteral("colors.json");
    const QString sheet = QStringLiteral("tagmanager.qss");
    // Without text to replace the file is taken away.
    QTest::newRow("no colours") << colors << QByteArray() << QByteArray() << QStringList{colors};
    QTest::newRow("no colour") << colors << QByteArray("\"#7ea6ff\"") << QByteArray("\"blueish\"")
                               << QStringList{colors, QStringLiteral("popupBlue")};
    QTest::newRow("unknown colour in a sheet") << sheet << QByteArray("@{color:input}") << QByteArray("@{color:imput}")
                                               << QStringList{sheet, QStringLiteral("@{color:imput}")};
    QTest::newRow("damaged image") << QStringLiteral("icons/nav_logo.svg") << QByteArray("<svg") << QByteArray("<")
                                   << QStringList{QStringLiteral("nav_logo.svg")};
}

void TestSkin::brokenSkinIsRefused()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(QStringList, complaints);
    QTemporaryDir folder;
    QVERIFY(makeSkin(folder.path()));
    const QString path = folder.filePath(file);
    // A change that comes before the fault must not get through either.
    const QString menu = folder.filePath(QStringLiteral("menu.qss"));
    QVERIFY(writeFile(menu, "QMenu{color:red;}"));
    QVERIFY(before.isEmpty()
                ? QFile::remove(path)
                : writeFile(path, readFile(builtInFolder + QLatin1Char('/') + file).replace(before, after)));

    const QString sheet = appliedSheet(QStringLiteral("menu"));
    const QColor blue = skin()->GetPopupWinBlueColor();
    QString error;
    QVERIFY(!skin()->LoadSkin(folder.path(), &error));
    for (const QString& complaint : complaints)
        QVERIFY2(error.contains(complaint), qPrintable(error));
    QCOMPARE(appliedSheet(QStringLiteral("menu")), sheet);
    QCOMPARE(skin()->GetPopupWinBlueColor(), blue);
    QCOMPARE(skin()->GetResourceAbsolutePath(QStringLiteral("nav_logo.svg")),
             builtInFolder + QStringLiteral("/icons/nav_logo.svg"));
}

QTEST_MAIN(TestSkin)
#include "tst_skin.moc"
