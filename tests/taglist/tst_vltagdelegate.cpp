// SPDX-License-Identifier: MIT
#include "taglist/vltagdelegate.h"

#include "taglist/vltaglistview.h"
#include "tests/support/installedhost.h"

#include <QHoverEvent>
#include <QStandardItemModel>
#include <QtTest>

namespace {

/// What the view shows at a point of its viewport.
QColor colorAt(VLTagListView& view, const QPoint& point)
{
    return view.viewport()->grab().toImage().pixelColor(point);
}

}  // namespace

class TagDelegateTest : public QObject
{
    Q_OBJECT

private slots:
    void chipHasTheTagsColor();
    void hoverLightensOneChip();
    void chipReachesOnePixelFurther();
    void chipWithoutNameIsAnOutline();
    void worksWithoutItsView();
};

void TagDelegateTest::chipHasTheTagsColor()
{
    InstalledHost host;
    const qint64 red = host.addTag(QStringLiteral("red"), 1, 5);
    VLTagListView view({*readTagItem(host.tag(red))}, nullptr);
    view.setItemDelegate(new VLTagDelegate(&view));
    view.show();
    const QRect chip = view.visualRect(view.model()->index(0, 0));
    QCOMPARE(colorAt(view, chip.topLeft() + QPoint(4, 11)), QColor("#b3261e"));
    host.setTagColor(red, 4);
    QCOMPARE(colorAt(view, chip.topLeft() + QPoint(4, 11)), QColor("#1f6f3a"));
}

void TagDelegateTest::hoverLightensOneChip()
{
    InstalledHost host;
    const QVector<qint64> ids = host.addTags(QStringList{"one", "two"});
    VLTagListView view({*readTagItem(host.tag(ids[0])), *readTagItem(host.tag(ids[1]))}, nullptr);
    view.setItemDelegate(new VLTagDelegate(&view));
    view.show();
    const QRect one = view.visualRect(view.model()->index(0, 0));
    const QRect two = view.visualRect(view.model()->index(1, 0));
    const QColor plain = colorAt(view, one.topLeft() + QPoint(4, 11));
    QHoverEvent enter(QEvent::HoverMove, one.center(), QPoint(0, 0));
    QApplication::sendEvent(view.viewport(), &enter);
    QVERIFY(colorAt(view, one.topLeft() + QPoint(4, 11)).lightness() > plain.lightness());
    QCOMPARE(colorAt(view, two.topLeft() + QPoint(4, 11)), plain);
    QHoverEvent leave(QEvent::HoverLeave, QPoint(-1, -1), one.center());
    QApplication::sendEvent(view.viewport(), &leave);
    QCOMPARE(colorAt(view, one.topLeft() + QPoint(4, 11)), plain);
}

void TagDelegateTest::chipReachesOnePixelFurther()
{
    InstalledHost host;
    const qint64 id = host.addTag(QStringLiteral("x"), 1);
    VLTagListView view({*readTagItem(host.tag(id))}, nullptr);
    view.setItemDelegate(new VLTagDelegate(&view));
    view.show();
    const QRect chip = view.visualRect(view.model()->index(0, 0));
    QCOMPARE(colorAt(view, {chip.right() + 1, chip.center().y()}), QColor("#b3261e"));
    QVERIFY(colorAt(view, {chip.right() + 2, chip.center().y()}) != QColor("#b3261e"));
}

void TagDelegateTest::chipWithoutNameIsAnOutline()
{
    InstalledHost host;
    const qint64 id = host.addTag(QString(), 1);
    VLTagListView view({*readTagItem(host.tag(id))}, nullptr);
    view.setItemDelegate(new VLTagDelegate(&view));
    view.show();
    const QModelIndex index = view.model()->index(0, 0);
    QCOMPARE(view.visualRect(index).size(), QSize(82, 22));
    const QColor background = colorAt(view, {1, 1});
    const QPoint corner = view.visualRect(index).topLeft();
    QCOMPARE(colorAt(view, corner + QPoint(60, 11)), background);
    QVERIFY(colorAt(view, corner + QPoint(68, 9)) != background);
    view.setEnlargement(true, false);
    QCOMPARE(view.visualRect(index).size(), QSize(88, 26));
}

void TagDelegateTest::worksWithoutItsView()
{
    QObject notAView;
    VLTagDelegate delegate(&notAView);
    QStandardItemModel model;
    auto* item = new QStandardItem;
    TagItem tag;
    tag.name = QStringLiteral("i");
    item->setData(QVariant::fromValue(tag), Qt::UserRole);
    model.appendRow(item);
    QCOMPARE(delegate.sizeHint({}, model.index(0, 0)), QSize(44, 22));
}

QTEST_MAIN(TagDelegateTest)
#include "tst_vltagdelegate.moc"
