// SPDX-License-Identifier: MIT
#include "pages/ctaggroupitemwidget.h"
#include "pages/ctaggroupshowwidgt.h"
#include "pages/vlgrouptagwidget.h"
#include "taglist/vltaglistview.h"
#include "tests/support/chipdrag.h"
#include "tests/support/installedhost.h"

#include <QListView>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QtTest>
#include <QWindow>

class TestTagGroupDrop : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_host = std::make_unique<InstalledHost>();
        m_host->addGroups({QStringLiteral("a"), QStringLiteral("b")});
        QVector<QSharedPointer<ITagGroupDataProvider>> groups;
        m_host->manager()->tagGroups(groups);
        m_list = std::make_unique<CTagGroupShowWidgt>();
        m_list->fill(groups);
        m_chips = std::make_unique<VLTagListView>(QVector<TagItem>{}, nullptr);
        m_filed = std::make_unique<QSignalSpy>(m_list.get(), &CTagGroupShowWidgt::signAddGroupTag);
    }

    void cleanup()
    {
        m_filed.reset();
        m_chips.reset();
        m_list.reset();
        m_host.reset();
    }

    void chipIsTakenFromATagListOnly()
    {
        QListView stranger;
        for (QWidget* source : {static_cast<QWidget*>(&stranger), static_cast<QWidget*>(m_chips.get())}) {
            const bool isChip = source != &stranger;
            bool done = false;
            whileDragging(source, [&] {
                QCOMPARE(dragOver(tileAt(1), chipPayload(7)), isChip);
                QCOMPARE(dropOn(tileAt(1), chipPayload(7)), isChip);
                done = true;
            });
            QVERIFY(done);
            QCOMPARE(m_filed->count(), isChip ? 1 : 0);
        }
        QCOMPARE(m_filed->at(0), (QVariantList{tileAt(1)->groupId(), 7LL}));
        QVERIFY(!tileAt(1)->isSelected());
    }

    void badPayloadsAreIgnored()
    {
        whileDragging(m_chips.get(), [this] {
            QVERIFY(!dropOn(tileAt(0), {}));
            QVERIFY(!dropOn(tileAt(0), QByteArray("\1\2\3", 3)));
            dropOn(tileAt(2), chipPayload(7));  // "Add New" is no category.
        });
        QCOMPARE(m_filed->count(), 0);
    }

    void categoryGoesWhileAChipIsOverIt()
    {
        const QPointer<CTagGroupItemWidget> gone = tileAt(0);
        whileDragging(m_chips.get(), [&] {
            QVERIFY(dragOver(gone, chipPayload(7)));
            m_host->group(gone->groupId())->dropRecord();
            QVERIFY(!dropOn(gone, chipPayload(7)));
            m_list->removeGroup(gone->provider()->groupId());
            dropOn(gone, chipPayload(7));
        });
        QCOMPARE(m_filed->count(), 0);
        QTRY_VERIFY(!gone);
        QCOMPARE(m_list->count(), 2);
    }

    void dragNearAnEdgeScrollsTheTilesAndShowsItsTarget()
    {
        VLTagManagerSingleton::instance()->tagManagerProvider();
        for (int i = 0; i < 60; ++i)
            m_host->addGroup(QString::number(i));
        QVector<QSharedPointer<ITagGroupDataProvider>> groups;
        m_host->manager()->tagGroups(groups);
        VLGroupTagWidget page(1, nullptr);
        page.initialise(m_host->group(MemoryHost::Uncategorized), groups);
        page.resize(800, 400);
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        auto* area = page.findChild<QScrollArea*>(QStringLiteral("tag_group_scroll"));
        auto* list = page.findChild<CTagGroupShowWidgt*>();
        auto* tile = static_cast<CTagGroupItemWidget*>(list->itemWidget(list->item(0)));
        const QImage untouched = tile->grab().toImage();
        const QPoint nearTheEdge(100, area->viewport()->height() - 5);
        QTest::mouseMove(page.windowHandle(), area->viewport()->mapTo(&page, nearTheEdge));
        whileDragging(m_chips.get(), [&] {
            QVERIFY(dragOver(tile, chipPayload(7)));
            QVERIFY(tile->grab().toImage() != untouched);
            QTRY_VERIFY(area->verticalScrollBar()->value() > 100);
            dropOn(tile, chipPayload(7));
        });
        QCOMPARE(tile->grab().toImage(), untouched);
    }

    void fixedTileSendsNoRequest()
    {
        VLTagManagerSingleton::instance()->tagManagerProvider();
        const qint64 id = tileAt(0)->groupId();
        VLGroupTagWidget page(1, nullptr);
        page.initialise(m_host->group(MemoryHost::Uncategorized), {m_host->group(id)});
        for (CTagGroupItemWidget* tile : page.findChildren<CTagGroupItemWidget*>()) {
            whileDragging(m_chips.get(), [&] {
                QVERIFY(dragOver(tile, chipPayload(7)));
                dropOn(tile, chipPayload(7));
            });
        }
        QCOMPARE(m_host->requestTexts(), QStringList{QStringLiteral("addTagsToGroups groups %1 tags 7").arg(id)});
    }

private:
    CTagGroupItemWidget* tileAt(int row) const
    {
        return static_cast<CTagGroupItemWidget*>(m_list->itemWidget(m_list->item(row)));
    }

    std::unique_ptr<InstalledHost> m_host;
    std::unique_ptr<CTagGroupShowWidgt> m_list;
    std::unique_ptr<VLTagListView> m_chips;
    std::unique_ptr<QSignalSpy> m_filed;
};

DRAG_TEST_MAIN(TestTagGroupDrop)
#include "tst_ctaggroupdrop.moc"
