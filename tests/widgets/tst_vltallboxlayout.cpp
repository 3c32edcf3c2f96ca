// SPDX-License-Identifier: MIT
#include "widgets/vltallboxlayout.h"

#include <QRandomGenerator>
#include <QTest>

namespace {

QWidget* fixedWidget(int height, QWidget* parent)
{
    auto* widget = new QWidget(parent);
    widget->setFixedHeight(height);
    return widget;
}

/// Fills \a layout with a column that depends on \a seed only; one item always takes the room that is left.
void fillColumn(QVBoxLayout* layout, quint32 seed)
{
    QRandomGenerator random(seed);
    layout->setContentsMargins(random.bounded(9), random.bounded(9), random.bounded(9), random.bounded(9));
    layout->setSpacing(random.bounded(7));
    if (random.bounded(2) == 0)
        layout->setAlignment(Qt::AlignTop);
    const int count = 2 + static_cast<int>(random.bounded(8));
    for (int i = 0; i < count; ++i) {
        const int height = 5 + static_cast<int>(random.bounded(40));
        switch (random.bounded(6)) {
        case 0:
            layout->addSpacing(height);
            break;
        case 1:
            layout->addWidget(fixedWidget(height, layout->parentWidget()));
            layout->itemAt(layout->count() - 1)->widget()->hide();
            break;
        case 2: {
            auto* row = new QHBoxLayout;
            row->setContentsMargins(1, 2, 3, 4);
            row->addWidget(fixedWidget(height, layout->parentWidget()));
            row->addWidget(fixedWidget(height + 3, layout->parentWidget()));
            layout->addLayout(row);
            break;
        }
        case 3: {
            QWidget* widget = fixedWidget(height, layout->parentWidget());
            widget->setFixedWidth(30);
            layout->addWidget(widget, 0, random.bounded(2) == 0 ? Qt::AlignRight : Qt::AlignHCenter);
            break;
        }
        default:
            layout->addWidget(fixedWidget(height, layout->parentWidget()));
        }
    }
    auto* filler = new QWidget(layout->parentWidget());
    filler->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    layout->insertWidget(static_cast<int>(random.bounded(layout->count() + 1)), filler);
}

QVector<QRect> childRects(const QWidget& widget)
{
    QVector<QRect> rects;
    for (const QWidget* child : widget.findChildren<QWidget*>()) {
        if (!child->isHidden())
            rects.append(child->geometry());
    }
    return rects;
}

}  // namespace

class TestTallBoxLayout : public QObject
{
    Q_OBJECT

private slots:
    void placesAsTheToolkitsColumn()
    {
        for (quint32 seed = 1; seed <= 200; ++seed) {
            QWidget expected;
            QWidget actual;
            fillColumn(new QVBoxLayout(&expected), seed);
            fillColumn(new VLTallBoxLayout(&actual), seed);
            QCOMPARE(actual.sizeHint(), expected.sizeHint());
            QCOMPARE(actual.minimumSizeHint(), expected.minimumSizeHint());
            for (QWidget* widget : {&expected, &actual}) {
                widget->resize(180, 600);
                widget->layout()->activate();
            }
            QVERIFY2(childRects(actual) == childRects(expected), qPrintable(QStringLiteral("seed %1").arg(seed)));
        }
    }

    void sharesRoomWithinLimits()
    {
        QWidget column;
        auto* layout = new VLTallBoxLayout(&column);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        QVector<QWidget*> widgets;
        for (const int stretch : {1, 2, 1}) {
            widgets.append(new QWidget);
            layout->addWidget(widgets.last(), stretch);
        }
        widgets.at(1)->setMaximumHeight(100);
        column.resize(100, 700);
        layout->activate();
        QCOMPARE(widgets.at(0)->height(), 300);
        QCOMPARE(widgets.at(1)->height(), 100);
        QCOMPARE(widgets.at(2)->geometry(), QRect(0, 400, 100, 300));

        // What can shrink gives the room that lacks.
        widgets.at(1)->setFixedHeight(60);
        widgets.at(2)->setFixedHeight(10);
        column.resize(100, 90);
        layout->activate();
        QCOMPARE(widgets.at(0)->geometry(), QRect(0, 0, 100, 20));
        QCOMPARE(widgets.at(2)->geometry(), QRect(0, 80, 100, 10));
    }
};

QTEST_MAIN(TestTallBoxLayout)
#include "tst_vltallboxlayout.moc"
