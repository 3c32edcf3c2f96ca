// SPDX-License-Identifier: MIT
#include "host/library/records/tagpalette.h"
#include "tests/support/contrast.h"
#include "tests/support/messagecatcher.h"

#include <vlskinsetting.h>

#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QString builtInFolder = QStringLiteral(":/vellum/skin");

VLSkinSetting* skin()
{
    return VLSkinSetting::GetInstance();
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

// The least that is a skin: one colour.
bool makeSkin(const QString& folder)
{
    return QDir().mkpath(folder + QStringLiteral("/icons")) &&
           writeFile(folder + QStringLiteral("/colors.json"), R"({"textNormal": "#12345678"})");
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
    void cleanup() { QVERIFY(skin()->LoadSkin(builtInFolder)); }

    void textIsReadable()
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
            {QColor(31, 32, 45), {skin()->GetTextColor(1)}}};
        for (const auto& [background, texts] : textsByBackground) {
            for (const QColor& text : texts)
                QVERIFY2(contrast(text, background) >= 4.5,
                         qPrintable(text.name() + QLatin1Char(' ') + background.name()));
        }
        QVERIFY(contrast(skin()->GetTreeScrollHandleColor(), window) >= 3.0);
    }

    void chipsAreReadable()
    {
        // Exempt is the chip below the pointer, which white at an opacity of 100 of 255 lightens: no palette that can
        // be told from the window reaches 4.5 there.
        const auto lightened = [](int component) { return component + (255 - component) * 100 / 255; };
        for (const TagColorEntry& entry : TagPalette::instance()->colorEntries()) {
            const QColor chip(entry.color);
            const QColor below(lightened(chip.red()), lightened(chip.green()), lightened(chip.blue()));
            QVERIFY2(contrast(skin()->GetTextColor(3), chip) >= 4.5, qPrintable(entry.name));
            QVERIFY2(contrast(skin()->GetTextColor(3), below) >= 2.3, qPrintable(entry.name));
        }
    }

    void imagesRender()
    {
        QMap<QString, QSize> sizes = {{"search_icon_normel.svg", {12, 12}},
                                      {"list_labeling_select.svg", {16, 20}},
                                      {"label_usually_icon.svg", {16, 20}},
                                      {"label_sort_icon.svg", {16, 16}},
                                      {"mainbody_close.svg", {16, 16}},
                                      {"nav_logo.svg", {16, 16}},
                                      {"vellum.svg", {64, 64}}};
        for (const char* const state : {"normal", "hover"}) {
            for (const char* const button : {"minisize", "maxsize", "restore", "close"})
                sizes.insert(QStringLiteral("title_window_%1_%2.svg").arg(button, state), {14, 14});
            // Its button leaves four pixels between its paddings.
            sizes[QStringLiteral("title_window_minisize_%1.svg").arg(state)] = {14, 4};
        }
        for (auto image = sizes.cbegin(); image != sizes.cend(); ++image) {
            QVERIFY2(QImageReader(skin()->GetResourceAbsolutePath(image.key())).size() == image.value(),
                     qPrintable(image.key()));
            QVERIFY2(paintedColors(skin()->GetResourcePath(image.key())) > 1, qPrintable(image.key()));
        }
    }

    void styleSheetsParse()
    {
        const MessageCatcher log;
        const QString sheets = appliedSheet(QStringLiteral("tagmanager")) + appliedSheet(QStringLiteral("menu"));
        QCOMPARE(log.problems(), QStringList());
        QVERIFY(sheets.contains(skin()->GetTextColor(1).name(QColor::HexArgb)));
        QVERIFY(!sheets.contains(QLatin1String("@{")));
    }

    void unknownNamesChangeNothing()
    {
        QWidget widget;
        widget.setStyleSheet(QStringLiteral("color:red;"));
        skin()->SetWidgetStyleSheetWithQssName(&widget, QStringLiteral("../menu"));
        skin()->SetWidgetStyleSheetWithQssName(nullptr, QStringLiteral("menu"));
        QCOMPARE(widget.styleSheet(), QStringLiteral("color:red;"));

        QTemporaryDir folder;
        QVERIFY(makeSkin(folder.path()));
        QVERIFY(
            writeFile(folder.filePath(QStringLiteral("secret.svg")), readFile(builtInFolder + "/icons/vellum.svg")));
        QVERIFY(skin()->LoadSkin(folder.path()));
        for (const char* name : {"", ".", "..", "../secret.svg", "../colors.json", "/etc/hostname", "icons/vellum.svg",
                                 "..\\secret.svg", "secret.svg", "no such image.svg"}) {
            QVERIFY2(skin()->GetResourceAbsolutePath(QString::fromLatin1(name)).isEmpty(), name);
            QVERIFY2(skin()->GetResourcePath(QString::fromLatin1(name)).isEmpty(), name);
        }
        QCOMPARE(skin()->GetTextColor(-1), skin()->GetTextColor(0));
        QCOMPARE(skin()->GetTextColor(99), skin()->GetTextColor(0));
    }

    void loadedSkinReplacesColorsSheetsAndImages()
    {
        QTemporaryDir folder;
        const QString root = folder.filePath(QStringLiteral("my skin) \"%1\" \\ '猫'"));
        QVERIFY(makeSkin(root));
        const QColor strong = skin()->GetTextColor(0);
        const QString close = root + QStringLiteral("/icons/mainbody_close.svg");
        QVERIFY(QFile::copy(builtInFolder + QStringLiteral("/icons/vellum.svg"), close));

        QString error = QStringLiteral("left from an earlier call");
        QVERIFY2(skin()->LoadSkin(root, &error), qPrintable(error));
        QCOMPARE(error, QString());
        QCOMPARE(skin()->GetTextColor(1), QColor(0x34, 0x56, 0x78, 0x12));
        QCOMPARE(skin()->GetTextColor(0), strong);
        QVERIFY(appliedSheet(QStringLiteral("menu")).contains(QLatin1String("#12345678")));
        QCOMPARE(skin()->GetResourceAbsolutePath(QStringLiteral("mainbody_close.svg")), close);
        QVERIFY(paintedColors(skin()->GetResourcePath(QStringLiteral("mainbody_close.svg"))) > 1);
        QCOMPARE(skin()->GetResourceAbsolutePath(QStringLiteral("nav_logo.svg")),
                 builtInFolder + QStringLiteral("/icons/nav_logo.svg"));
    }

    void brokenSkinIsRefused_data()
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
        QTest::newRow("unknown colour in a sheet")
            << sheet << QByteArray("@{color:input}") << QByteArray("@{color:imput}")
            << QStringList{sheet, QStringLiteral("@{color:imput}")};
        QTest::newRow("damaged image") << QStringLiteral("icons/nav_logo.svg") << QByteArray("<svg") << QByteArray("<")
                                       << QStringList{QStringLiteral("nav_logo.svg")};
    }

    void brokenSkinIsRefused()
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
};

QTEST_MAIN(TestSkin)
#include "tst_skin.moc"
