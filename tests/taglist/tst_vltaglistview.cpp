// SPDX-License-Identifier: MIT
#include "taglist/vltaglistview.h"

#include "taglist/sortfilterproxymodel.h"
#include "taglist/vltagdelegate.h"
#include "tests/support/installedhost.h"
#include "tests/support/windowuser.h"

#include <vleventtrack.h>

#include <QAbstractItemModelTester>
#include <QLabel>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QToolTip>
#include <QtTest>

#include <algorithm>
#include <utility>

namespace {

QStringList names(const VLTagListView& view)
{
    QStringList shown;
    for (int row = 0; row < view.model()->rowCount(); ++row)
        shown.append(view.model()->index(row, 0).data(Qt::UserRole).value<TagItem>().name);
    return shown;
}

QVector<TagItem> itemsOf(const InstalledHost& host, const QVector<qint64>& ids)
{
    QVector<TagItem> items;
    for (const qint64 id : ids)
        items.append(*readTagItem(host.tag(id)));
    return items;
}

int fittedHeight(const VLTagListView& view, int topMargin, int bottomPad)
{
    const QRect last = view.visualRect(view.model()->index(view.model()->rowCount() - 1, 0));
    return last.y() + last.height() + topMargin + bottomPad;
}

/// Collects what a widget is asked to paint.
class PaintedRegion : public QObject
{
public:
    PaintedRegion(QWidget* widget, QRegion* painted)
        : m_painted(painted)
    {
        widget->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            *m_painted += static_cast<QPaintEvent*>(event)->region();
        return false;
    }

private:
    QRegion* m_painted;
};

/// A section as its owner sets it up, with the tags of these names.
struct Section
{
    explicit Section(const QStringList& tagNames, const QString& letter = QStringLiteral("A"))
        : ids(host.addTags(tagNames))
        , view(itemsOf(host, ids), nullptr)
    {
        new QAbstractItemModelTester(view.model(), &view);
        view.setCountShown(true);
        view.setMenuEnabled(true);
        view.setBottomPad(15);
        view.setTopMargin(14);
        view.setItemDelegate(new VLTagDelegate(&view));
        view.setLetter(letter, 18, 0);
        view.setGroupProvider(host.group(MemoryHost::AllTags));
        view.resize(400, 100);
        view.show();
    }

    InstalledHost host;
    QVector<qint64> ids;
    VLTagListView view;
};

}  // namespace

class TagListViewTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { registerTagItemMetaType(); }

    void rowsHoldTheWholeRecord()
    {
        Section section({"apple"});
        section.host.setFileCount(section.ids[0], 7);
        const QModelIndex index = section.view.model()->index(0, 0);
        const QVariant value = index.data(Qt::UserRole);
        QCOMPARE(value.typeName(), "TagItem");
        const auto tag = value.value<TagItem>();
        QCOMPARE(tag.id, section.ids[0]);
        QCOMPARE(tag.name, QStringLiteral("apple"));
        QCOMPARE(tag.fileCount, 7);
        QCOMPARE(tag.color, QColor(0x4a5568));
        QVERIFY(tag.provider);
        QVERIFY(index.flags() & Qt::ItemIsDragEnabled);
        for (const int role : {int(Qt::DisplayRole), int(Qt::DecorationRole), Qt::UserRole + 1})
            QVERIFY(!index.data(role).isValid());
    }

    void heightFollowsTheChips()
    {
        Section section({"a1", "a2"});
        QTRY_COMPARE(section.view.height(), fittedHeight(section.view, 14, 15));
        const int oneLine = section.view.height();
        QVector<qint64> more;
        for (int i = 0; i < 30; ++i)
            more.append(section.host.addTag("a long name " + QString::number(i)));
        QTRY_COMPARE(section.view.height(), fittedHeight(section.view, 14, 15));
        QVERIFY(section.view.height() > 3 * oneLine);
        section.view.resize(1200, section.view.height());
        QTRY_COMPARE(section.view.height(), fittedHeight(section.view, 14, 15));
        section.host.removeTags(more);
        QTRY_COMPARE(section.view.height(), oneLine);
        QSignalSpy empty(&section.view, &VLTagListView::signalEmpty);
        section.view.slotDelItem(section.ids[0]);
        QCOMPARE(empty.count(), 0);
        section.view.slotDelItem(section.ids[1]);
        QCOMPARE(empty.count(), 1);
        QTRY_COMPARE(section.view.height(), 14 + 15);
    }

    void resultsStandByClosenessThenByCodeUnit()
    {
        // Units of one, two and three bytes in UTF-8, halves of emoji, and units that sort behind them.
        const auto units = QString::fromUtf8("aab\u007F\u0080é\u07FF\u0800\u4700\u4800中\uE000\uFFFD😀");
        QRandomGenerator random(5);
        QStringList tagNames{QStringLiteral("ab")};
        for (int i = 0; i < 3000; ++i) {
            QString name = i % 2 == 0 ? QStringLiteral("abababababab") : QString();
            for (int length = random.bounded(1, 7); length > 0; --length)
                name.append(units.at(random.bounded(units.size())));
            tagNames.append(name);
        }
        InstalledHost host;
        VLTagListView view({}, nullptr);
        view.setSearchText(QStringLiteral("ab"));
        view.addTags(itemsOf(host, host.addTags(tagNames)));
        const auto rank = [](const QString& name) { return name == "ab" ? 0 : name.startsWith("ab") ? 1 : 2; };
        std::sort(tagNames.begin(), tagNames.end(), [&rank](const QString& left, const QString& right) {
            return std::make_pair(rank(left), left) < std::make_pair(rank(right), right);
        });
        QCOMPARE(names(view), tagNames);
    }

    void keysMoveTheRingAndOpenTheMenuAtTheChip()
    {
        const InstalledHost host({"ape", "ass"});
        VLTagListView view(itemsOf(host, {1, 2}), nullptr);
        view.setMenuEnabled(true);
        view.resize(400, 100);
        view.show();
        view.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&view));
        view.setCurrentIndex(view.model()->index(0, 0));
        QRegion painted;
        PaintedRegion follower(view.viewport(), &painted);
        settle();
        painted = {};
        QTest::keyClick(&view, Qt::Key_Right);
        const auto withRing = [&view](int row) {
            return QRegion(view.visualRect(view.model()->index(row, 0)) + QMargins(0, 0, 1, 0));
        };
        QTRY_VERIFY((withRing(0) + withRing(1)).subtracted(painted).isEmpty());

        QSignalSpy menu(&view, &VLTagListView::signPopMenuByKey);
        QTest::keyClick(&view, Qt::Key_F10, Qt::ShiftModifier);
        QContextMenuEvent key(QContextMenuEvent::Keyboard, {}, {});
        QCoreApplication::sendEvent(view.viewport(), &key);
        QCOMPARE(menu.size(), 2);
        const QRect chip = view.visualRect(view.model()->index(1, 0));
        for (const QVariantList& asked : qAsConst(menu))
            QCOMPARE(asked,
                     (QVariantList{2LL, "ass", QRect(view.viewport()->mapToGlobal(chip.topLeft()), chip.size())}));
    }

    void chipsThatAreCutHaveAToolTip()
    {
        const QString cut = QString(40, QLatin1Char('w'));
        const InstalledHost host({QStringLiteral("a"), cut});
        VLTagListView view(itemsOf(host, {1, 2}), nullptr);
        view.setItemDelegate(new VLTagDelegate(&view));
        view.fitToWidth(200);
        view.show();
        for (int row = 0; row < 2; ++row) {
            const QPoint pos = view.visualRect(view.model()->index(row, 0)).topLeft() + QPoint(5, 5);
            QHelpEvent help(QEvent::ToolTip, pos, view.viewport()->mapToGlobal(pos));
            QCoreApplication::sendEvent(view.viewport(), &help);
            QCOMPARE(QToolTip::text().contains(cut), row == 1);
            QCOMPARE(QToolTip::text().isEmpty(), row == 0);
        }
    }

    void headingOfHalfACharacterShowsAWholeOne()
    {
        const InstalledHost host({QString::fromUtf8("😀 smile"), QString::fromUtf8("🌄 dawn")});
        VLTagListView view(itemsOf(host, {1}), nullptr);
        view.setLetter(host.tag(1)->name().at(0), 18, 0);
        auto* heading = view.findChild<QLabel*>(QStringLiteral("tag_list_vew_char"));
        QCOMPARE(heading->text(), QString(QChar(0xd83d)));
        const QImage smile = heading->grab().toImage();
        // The dawn is filed under the same half and sorts before the smile.
        view.addTags(itemsOf(host, {2}));
        QVERIFY(heading->grab().toImage() != smile);
    }

    void chipsTakeRightAndDoubleClicks()
    {
        Section section({"apple", "axe"});
        QSignalSpy menu(&section.view, &VLTagListView::signPopMenu);
        const QPoint axe = section.view.visualRect(section.view.model()->index(1, 0)).center();
        QTest::mouseClick(section.view.viewport(), Qt::LeftButton, {}, axe);
        QTest::mouseClick(section.view.viewport(), Qt::RightButton, {}, {390, 5});
        QCOMPARE(menu.count(), 0);
        QTest::mouseClick(section.view.viewport(), Qt::RightButton, {}, axe);
        QCOMPARE(menu.count(), 1);
        QCOMPARE(menu[0], QVariantList({section.ids[1], QStringLiteral("axe")}));
        section.view.setMenuEnabled(false);
        QTest::mouseClick(section.view.viewport(), Qt::RightButton, {}, axe);
        QCOMPARE(menu.count(), 1);

        QSignalSpy files(&section.view, &VLTagListView::signCheckTagLinkFile);
        QSignalSpy tracked(VlEventTrack::GetInstance(), &VlEventTrack::signalTracked);
        QTest::mouseDClick(section.view.viewport(), Qt::RightButton, {}, axe);
        QTest::mouseDClick(section.view.viewport(), Qt::LeftButton, {}, {390, 5});
        QCOMPARE(files.count(), 0);
        QTest::mouseDClick(section.view.viewport(), Qt::LeftButton, {}, axe);
        QCOMPARE(files.count(), 1);
        QCOMPARE(tracked.count(), 1);
        QCOMPARE(tracked[0], QVariantList({QStringLiteral("SendLabelJoin"), QVariant(QVariantList{1})}));
    }
};

QTEST_MAIN(TagListViewTest)
#include "tst_vltaglistview.moc"
