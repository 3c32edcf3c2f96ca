// SPDX-License-Identifier: MIT
#include "window/vltagbasewidget.h"
#include "window/vltagsearchlineedit.h"

#include <QLabel>
#include <QSignalSpy>
#include <QTest>

class TestTagBaseWidget : public QObject
{
    Q_OBJECT

private slots:
    void texts_data();
    void texts();
    void reportsEveryEditOfTheSearchField();
    void laysItsRowsOut();
};

void TestTagBaseWidget::texts_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("description");
    QTest::addColumn<bool>("searchable");
    QTest::newRow("all") << 0 << QStringLiteral("All Tags")
                         << QStringLiteral("Tag-based file classification and filing help categorize and organize "
                                           "files more efficiently.")
                         << true;
    QTest::newRow("categories") << 1 << QStringLiteral("Tag Categories")
                                << QStringLiteral("You can categorize the tags with different meanings to manage and "
                                                  "conveniently use them.")
                                << false;
    QTest::newRow("favorites") << 2 << QStringLiteral("Favorite Tags")
                               << QStringLiteral("You can save frequently used tags as Favorite Tags for easier "
                                                 "targeting and tagging.")
                               << true;
    QTest::newRow("other") << 7 << QString() << QString() << true;
}

void TestTagBaseWidget::texts()
{
    QFETCH(int, type);
    VLTagBaseWidget page(type, nullptr);
    page.show();
    QTEST(page.findChild<QLabel*>(QStringLiteral("tag_page_title"))->text(), "title");
    QTEST(page.findChild<QLabel*>(QStringLiteral("tag_page_des"))->text(), "description");
    auto* field = page.findChild<VLTagSearchLineEdit*>();
    QTEST(field->isVisible(), "searchable");
    QVERIFY(field->parentWidget()->isVisible());
    QCOMPARE(field->parentWidget()->size(), QSize(240, 22));
}

void TestTagBaseWidget::reportsEveryEditOfTheSearchField()
{
    VLTagBaseWidget page(0, nullptr);
    page.show();
    QSignalSpy changes(&page, &VLTagBaseWidget::signSearchChanged);
    auto* field = page.findChild<VLTagSearchLineEdit*>();
    QCOMPARE(field->placeholderText(), QStringLiteral("Search Tags"));
    QTest::keyClicks(field, QStringLiteral("a"));
    QTest::keyClick(field, Qt::Key_Backspace);
    QCOMPARE(changes.count(), 2);
    QCOMPARE(changes.at(0).first().toString(), QStringLiteral("a"));
    QCOMPARE(changes.at(1).first().toString(), QString());
}

void TestTagBaseWidget::laysItsRowsOut()
{
    VLTagBaseWidget page(0, nullptr);
    page.resize(800, 400);
    page.show();
    const auto* title = page.findChild<QLabel*>(QStringLiteral("tag_page_title"));
    const auto* description = page.findChild<QLabel*>(QStringLiteral("tag_page_des"));
    const QWidget* search = page.findChild<VLTagSearchLineEdit*>()->parentWidget();
    QCOMPARE(title->geometry().left(), 21 + 1 + 16 + 8);
    QCOMPARE(description->geometry().left(), 46);
    QCOMPARE(description->geometry().top(), title->geometry().bottom() + 1 + 7);
    QCOMPARE(search->pos(), QPoint(20, description->geometry().bottom() + 1 + 18));
}

QTEST_MAIN(TestTagBaseWidget)
#include "tst_vltagbasewidget.moc"
