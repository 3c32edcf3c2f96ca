// SPDX-License-Identifier: MIT
#include "pages/ctaggroupitemwidget.h"
#include "pages/ctaggroupshowwidgt.h"
#include "pages/vlgrouplabel.h"
#include "tests/support/installedhost.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QtTest>

#include <memory>

namespace {

using Groups = QVector<QSharedPointer<ITagGroupDataProvider>>;

CTagGroupItemWidget* tileAt(const CTagGroupShowWidgt& list, int row)
{
    return static_cast<CTagGroupItemWidget*>(list.itemWidget(list.item(row)));
}

QString shownText(const QWidget* tile, const QString& labelName)
{
    const auto* label = tile->findChild<QLabel*>(labelName);
    return label ? label->text() : QString();
}

/// The names on the tiles in their order, "+" for the "Add New" tile.
QString shownNames(const CTagGroupShowWidgt& list)
{
    QStringList names;
    for (int row = 0; row < list.count(); ++row) {
        const CTagGroupItemWidget* tile = tileAt(list, row);
        names << (tile->provider() ? shownText(tile, QStringLiteral("tag_group_name_label")) : QStringLiteral("+"));
    }
    return names.join(QLatin1Char(' '));
}

}  // namespace

class TestTagGroup : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_host = std::make_unique<InstalledHost>(QStringList{QStringLiteral("tag")});
        m_host->addGroups({QStringLiteral("b"), QStringLiteral("A"), QStringLiteral("a")});
        m_list = std::make_unique<CTagGroupShowWidgt>();
        m_list->resize(400, 400);
        m_list->fill(groups());
        m_list->show();
    }

    void cleanup()
    {
        m_list.reset();
        m_host.reset();
    }

    void fillingInBulkLooksLikeFillingOneByOne()
    {
        for (const char* name : {"x", "same", "y", "same", "B", "same"})
            m_host->addGroup(QString::fromLatin1(name));
        CTagGroupShowWidgt bulk;
        bulk.fill(groups());
        CTagGroupShowWidgt single;
        single.fill({});
        for (const auto& provider : groups())
            single.addGroup(provider);

        QCOMPARE(shownNames(bulk), QStringLiteral("A B a b same same same x y +"));
        for (CTagGroupShowWidgt* list : {&bulk, &single}) {
            list->resize(350, 500);
            list->show();
        }
        QCOMPARE(shownNames(single), shownNames(bulk));
        QCOMPARE(single.grab().toImage(), bulk.grab().toImage());
        for (int row = 0; row + 1 < bulk.count(); ++row)
            QCOMPARE(tileAt(single, row)->groupId(), tileAt(bulk, row)->groupId());
    }

    void namesWrapToTwoLines()
    {
        const QString faces = QStringLiteral("\U0001F600").repeated(10);
        const QVector<QPair<QString, int>> linesByName = {{QString(), 1},
                                                          {QStringLiteral("Architecture"), 2},
                                                          {QString(20, QLatin1Char('W')), 2},
                                                          {QString(20, QChar(0x6807)), 2},
                                                          {QString(QLatin1Char('i') + faces), 2},
                                                          {QString(100000, QChar(0x200B)), 1}};
        VLGroupLabel label;
        QFont font = label.font();
        font.setPixelSize(13);
        label.setFont(font);
        QCOMPARE(label.textFormat(), Qt::PlainText);
        for (const auto& [name, lines] : linesByName) {
            label.setWrappedText(name);
            const QStringList shown = label.text().split(QLatin1Char('\n'));
            QCOMPARE(shown.size(), lines);
            QVERIFY(name.startsWith(shown.join(QString())));
            for (const QString& line : shown) {
                QVERIFY2(QFontMetrics(font).boundingRect(line).width() < 64, qUtf8Printable(line));
                QVERIFY(line.isEmpty() || (!line.back().isHighSurrogate() && !line.front().isLowSurrogate()));
            }
        }
    }

    void everyTileCanBeScrolledTo()
    {
        QStringList names;
        for (int number = 0; number < 60; ++number)
            names << QStringLiteral("n%1").arg(number);
        m_host->addGroups(names);
        QScrollArea area;
        area.setWidgetResizable(true);
        auto* list = new CTagGroupShowWidgt;
        area.setWidget(list);
        area.resize(420, 300);
        area.show();
        list->fill(groups());

        const auto lastTileIsWithinReach = [&] {
            const QWidget* addNew = tileAt(*list, list->count() - 1);
            const int bottom = addNew->mapTo(list, addNew->rect().bottomLeft()).y();
            return bottom > area.height() && bottom < list->height() && list->verticalScrollBar()->maximum() == 0 &&
                   area.verticalScrollBar()->maximum() >= bottom - area.viewport()->height();
        };
        QTRY_VERIFY(lastTileIsWithinReach());
        const int wideHeight = list->height();
        area.resize(250, 300);
        QTRY_VERIFY(list->height() > wideHeight);
        QTRY_VERIFY(lastTileIsWithinReach());
        for (const auto& provider : groups().mid(10))
            list->removeGroup(provider->groupId());
        QTRY_VERIFY(list->minimumHeight() < wideHeight);
    }

private:
    Groups groups() const
    {
        Groups all;
        m_host->manager()->tagGroups(all);
        return all;
    }

    std::unique_ptr<InstalledHost> m_host;
    std::unique_ptr<CTagGroupShowWidgt> m_list;
};

QTEST_MAIN(TestTagGroup)
#include "tst_ctaggroup.moc"
