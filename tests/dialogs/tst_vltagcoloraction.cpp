// SPDX-License-Identifier: MIT
#include "docs/example-host/records.h"
#include "plugin/state/vltagmanagersingleton.h"
#include "taglist/vltagcoloraction.h"
#include "taglist/vltagcolorwidget.h"

#include <QMenu>
#include <QtTest>
#include <QWidgetAction>

namespace {
QVector<int> selectedSwatches(const VLTagColorAction& row)
{
    QVector<int> selected;
    const auto swatches = row.findChildren<VLTagColorWidget*>();
    for (int i = 0; i < swatches.size(); ++i) {
        if (swatches.at(i)->isSelected())
            selected.append(i);
    }
    return selected;
}

/// The swatch on yellow, on its middle line.
QColor pixelAt(VLTagColorWidget* swatch, int x)
{
    QImage image(swatch->size(), QImage::Format_RGB32);
    image.fill(Qt::yellow);
    swatch->render(&image, {}, {}, QWidget::RenderFlags());
    return image.pixelColor(x, 10);
}
}  // namespace

class TestVLTagColorAction : public QObject
{
    Q_OBJECT

private slots:
    void init() { VLTagManagerSingleton::instance()->setTagColorProvider(&m_palette); }

    void cleanup() { VLTagManagerSingleton::instance()->setTagColorProvider(nullptr); }

    void paintsItsThreeStates()
    {
        VLTagColorWidget swatch(Qt::blue);
        QCOMPARE(pixelAt(&swatch, 10), QColor(Qt::blue));
        QCOMPARE(pixelAt(&swatch, 2), QColor(Qt::yellow));

        swatch.setSelected(true);
        QVERIFY(pixelAt(&swatch, 2).lightness() > 150 && pixelAt(&swatch, 2).blue() > 100);
        QCOMPARE(pixelAt(&swatch, 5), QColor(Qt::blue));

        swatch.setSelected(false);
        QEvent enter(QEvent::Enter);
        QCoreApplication::sendEvent(&swatch, &enter);
        QVERIFY(pixelAt(&swatch, 2).lightness() < 100);
        QCOMPARE(pixelAt(&swatch, 5), QColor(Qt::blue));

        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&swatch, &leave);
        QCOMPARE(pixelAt(&swatch, 2), QColor(Qt::yellow));
    }

    void isWorkedByKeyboardInsideItsMenu()
    {
        QMenu menu;
        auto* row = new VLTagColorAction;
        row->setSelected(2);
        auto* rowAction = new QWidgetAction(&menu);
        rowAction->setDefaultWidget(row);
        menu.addAction(rowAction);
        QAction* below = menu.addAction(QStringLiteral("Below"));
        menu.popup(QPoint(0, 0));
        QVERIFY(QTest::qWaitForWindowExposed(&menu));
        const auto press = [&menu](Qt::Key key) {
            QTest::keyClick(menu.focusWidget() ? menu.focusWidget() : &menu, key);
        };
        const auto isMarked = [row](int swatch) {
            return pixelAt(row->findChildren<VLTagColorWidget*>().at(swatch), 2).lightness() < 100;
        };
        QSignalSpy picked(row, &VLTagColorAction::signalColorClicked);
        QSignalSpy triggered(below, &QAction::triggered);
        press(Qt::Key_Down);
        QCOMPARE(menu.focusWidget(), row);
        press(Qt::Key_Right);
        QVERIFY(isMarked(3));
        for (int i = 0; i < 10; ++i)
            press(Qt::Key_Right);
        press(Qt::Key_Space);
        QCOMPARE(picked.count(), 1);
        QCOMPARE(picked.takeFirst().constFirst().toInt(), 7);
        QCOMPARE(selectedSwatches(*row), QVector<int>{7});
        press(Qt::Key_Down);
        QCOMPARE(menu.activeAction(), below);
        QVERIFY(!isMarked(7));
        press(Qt::Key_Up);
        QCOMPARE(menu.activeAction(), rowAction);
        menu.setActiveAction(below);
        press(Qt::Key_Return);
        QVERIFY2(picked.isEmpty(), "the mouse had moved on to another entry");
        QCOMPARE(triggered.count(), 1);
    }

private:
    example::Palette m_palette;
};

QTEST_MAIN(TestVLTagColorAction)
#include "tst_vltagcoloraction.moc"
