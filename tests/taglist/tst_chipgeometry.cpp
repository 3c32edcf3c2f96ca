// SPDX-License-Identifier: MIT
#include "taglist/chipflow.h"
#include "taglist/chipmetrics.h"

#include <QListView>
#include <QRandomGenerator>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QtTest>

namespace {

/// Gives each row the width in its user role.
class WidthDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const override
    {
        return {index.data(Qt::UserRole).toInt(), ChipMetrics::height};
    }
};

/// The toolkit's own flow, which ours has to agree with.
class ToolkitFlow
{
public:
    explicit ToolkitFlow(const std::vector<int>& widths)
    {
        for (const int width : widths) {
            auto* item = new QStandardItem;
            item->setData(width, Qt::UserRole);
            m_model.appendRow(item);
        }
        m_view.setModel(&m_model);
        m_view.setItemDelegate(new WidthDelegate(&m_view));
        m_view.setViewMode(QListView::IconMode);
        m_view.setResizeMode(QListView::Adjust);
        m_view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_view.setSpacing(16);
        m_view.setFrameShape(QFrame::NoFrame);
    }

    void setWidth(int width)
    {
        m_view.resize(width, 300);
        m_view.doItemsLayout();
    }

    QRect rect(int row) const { return m_view.visualRect(m_model.index(row, 0)); }
    int rowAt(const QPoint& point) const { return m_view.indexAt(point).row(); }

private:
    QStandardItemModel m_model;
    QListView m_view;
};

std::vector<int> randomWidths(QRandomGenerator& random, int count)
{
    std::vector<int> widths;
    widths.reserve(count);
    for (int i = 0; i < count; ++i)
        widths.push_back(random.bounded(10) == 0 ? random.bounded(200, 900) : random.bounded(44, 160));
    return widths;
}

ChipFlow makeFlow(const std::vector<int>& widths, int availableWidth)
{
    ChipFlow flow;
    flow.setSpacing(16);
    flow.setRowHeight(ChipMetrics::height);
    flow.setWidths(widths);
    flow.setAvailableWidth(availableWidth);
    return flow;
}

QString randomName(QRandomGenerator& random)
{
    static const QStringList words{"office", "affluent", "AVATAR",  "To",     "Wave", "winter",   "fluffy",
                                   "ffi",    "Yes, we",  "é",       "naïve",  "中文", "风景",     "한국",
                                   "مرحبا",  "😀",        "e\u0301", "日本",   "ねこ", "1,234.5",  "Ávila",
                                   "ÝÄ",     "façade",   "🌲 Tree",  "Team 🎨", "🏽", "👨\u200d👩", "项目 2024"};
    QString name = words.at(random.bounded(words.size()));
    if (random.bounded(2))
        name += ' ' + words.at(random.bounded(words.size()));
    for (int i = random.bounded(6); i > 0; --i)
        name += QChar(random.bounded(0x20, 0x7F));
    return name;
}

}  // namespace

class ChipGeometryTest : public QObject
{
    Q_OBJECT

private slots:
    void rectanglesAndHitsAreThoseOfTheToolkit()
    {
        QRandomGenerator random(11);
        for (int round = 0; round < 20; ++round) {
            const std::vector<int> widths = randomWidths(random, random.bounded(1, 120));
            ToolkitFlow toolkit(widths);
            for (const int width : {1, 60, 200, 393, random.bounded(100, 1500), random.bounded(100, 1500)}) {
                toolkit.setWidth(width);
                const ChipFlow flow = makeFlow(widths, width);
                for (int row = 0; row < flow.rowCount(); ++row)
                    QCOMPARE(flow.rect(row), toolkit.rect(row));
                for (int i = 0; i < 50; ++i) {
                    const QPoint point(random.bounded(-5, 900), random.bounded(-5, 300));
                    QCOMPARE(flow.rowAt(point), toolkit.rowAt(point));
                }
            }
        }
    }

    void upAndDownFindTheNearestChip()
    {
        const ChipFlow flow = makeFlow({100, 100, 100, 50, 50, 50, 50}, 400);
        QCOMPARE(flow.rowInOtherLine(0, 1), 3);
        QCOMPARE(flow.rowInOtherLine(1, 1), 5);
        QCOMPARE(flow.rowInOtherLine(6, -1), 1);
        QCOMPARE(flow.rowInOtherLine(0, -1), 0);
        QCOMPARE(flow.rowInOtherLine(6, 1), 6);
    }

    void widthsAreThoseOfTheFont()
    {
        QRandomGenerator random(14);
        const QFontMetrics font(ChipMetrics::chipFont());
        ChipMetrics& metrics = ChipMetrics::shared();
        for (int i = 0; i < 20000; ++i) {
            const QString name = randomName(random);
            QVERIFY2(metrics.textWidth(name) == font.horizontalAdvance(name), qPrintable(name));
        }
        // More characters than are looked at one by one.
        constexpr ushort step = 7;
        for (ushort unit = 0x4E00; unit < 0xD7A0; unit += step) {
            const QString name = QString(QChar(unit)) + QChar(unit + 1);
            QVERIFY2(metrics.textWidth(name) == font.horizontalAdvance(name), qPrintable(name));
        }
        QCOMPARE(metrics.textWidth({}), 0);
        QCOMPARE(metrics.textWidth(QString(2000, 'x')), font.horizontalAdvance(QString(2000, 'x')));
    }

    void chipSizes()
    {
        struct Case
        {
            QString name;
            int fileCount;
            ChipLook look;
            QSize size;
        };
        const QFontMetrics font(ChipMetrics::chipFont());
        const QString longName(60, 'w');
        const int longWidth = font.horizontalAdvance(longName);
        const QVector<Case> cases = {
            {"i", 1, {true, false}, {44, 22}},
            {longName, 3, {false, false}, {longWidth + 20, 22}},
            {longName, 1234, {true, false}, {longWidth + 30 + font.horizontalAdvance("1234"), 22}},
            {longName, 3, {false, true}, {longWidth + 26, 26}},
            {"i", 3, {false, true}, {50, 26}},
            {{}, 99999, {true, true}, {88, 26}}};
        for (const Case& each : cases)
            QCOMPARE(ChipMetrics::shared().chipSize(each.name, each.fileCount, each.look), each.size);
    }
};

QTEST_MAIN(ChipGeometryTest)
#include "tst_chipgeometry.moc"
