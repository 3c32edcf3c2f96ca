// SPDX-License-Identifier: MIT
#include "host/app/files/filepanel.h"
#include "host/app/files/fileview.h"
#include "host/app/hostwindow.h"
#include "host/app/librarysession.h"
#include "host/library/library.h"
#include "tests/app/faketagmanager.h"
#include "tests/app/picturefolder.h"
#include "tests/importer/readermain.h"

#include <ilibrarydataprovider.h>
#include <itagaction.h>
#include <itaggroupdataprovider.h>
#include <itagmanagerdataprovider.h>

#include <QFile>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

namespace {

ImportedFile taggedFile(const QByteArray& path, const QVector<QString>& keywords)
{
    ImportedFile file;
    file.path = path;
    file.keywords = keywords;
    return file;
}

// Sends the events itself: QTest's own moves carry no buttons.
void drag(QWidget* widget, const QPoint& from, const QPoint& delta)
{
    const auto send = [widget](QEvent::Type type, const QPoint& global, Qt::MouseButtons buttons) {
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, widget->mapFromGlobal(global), global, button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &event);
    };
    const QPoint start = widget->mapToGlobal(from);
    send(QEvent::MouseButtonPress, start, Qt::LeftButton);
    send(QEvent::MouseMove, start + delta / 2, Qt::LeftButton);
    send(QEvent::MouseMove, start + delta, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, start + delta, Qt::NoButton);
}

}  // namespace

/// The host's window around a bare tag manager window and a real library.
class TestHostWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("vellum-test"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QFile::decodeName(m_settings.path()));
    }

    void init()
    {
        QSettings().clear();
        QSettings().setValue(QStringLiteral("window/pictures"), false);
        m_folder = std::make_unique<PictureFolder>();
        LibraryChoice choice;
        choice.file = m_folder->path("holidays.vellum");
        openSession(choice);
    }

    void cleanup()
    {
        m_window.reset();
        m_session.reset();
    }

    void buttonsOfTheTagWindow()
    {
        emit m_plugin.window()->signalSoftWareMax();
        QVERIFY(m_window->isMaximized());
        QTRY_COMPARE(m_plugin.window()->told.value(m_plugin.window()->told.size() - 1), true);
        QTest::keyClick(m_window.get(), Qt::Key_F11);
        QVERIFY(!m_window->isMaximized());
        QTRY_COMPARE(m_plugin.window()->told.last(), false);
        QTest::keyClick(m_window.get(), Qt::Key_F11);
        emit m_plugin.window()->signalSoftWareMax();
        QVERIFY(!m_window->isMaximized());
        emit m_plugin.window()->signalSoftWareMin();
        QVERIFY(m_window->isMinimized());
        m_window->showNormal();
        emit m_plugin.window()->signalSoftWareClose();
        QVERIFY(!m_window->isVisible());
    }

    void doubleClickOnTheStripMaximises()
    {
        FakeTagWindow* tags = m_plugin.window();
        QTest::mouseDClick(tags, Qt::LeftButton, {}, QPoint(400, FakeTagWindow::stripHeight - 1));
        QVERIFY(m_window->isMaximized());
        QTest::mouseDClick(tags, Qt::LeftButton, {}, QPoint(400, 4));
        QVERIFY(!m_window->isMaximized());
        QTest::mouseDClick(tags, Qt::LeftButton, {}, QPoint(400, FakeTagWindow::stripHeight + 5));
        QVERIFY2(!m_window->isMaximized(), "the pages are not the frame's");
        QTest::mouseDClick(tags->button, Qt::LeftButton);
        QVERIFY2(!m_window->isMaximized(), "a button is not the frame's");
    }

    void draggingResizesAndMoves()
    {
        m_window->setGeometry(50, 50, 840, 600);
        drag(m_window.get(), QPoint(839, 300), QPoint(-40, 0));
        QCOMPARE(m_window->geometry(), QRect(50, 50, 800, 600));
        QCOMPARE(m_plugin.window()->parentWidget()->width(), 790);
        drag(m_plugin.window(), QPoint(400, 5), QPoint(30, 20));
        QCOMPARE(m_window->geometry(), QRect(80, 70, 800, 600));
    }

    void geometryIsKept()
    {
        const QRect place(20, 30, 800, 500);
        m_window->setGeometry(place);
        m_window->close();
        openWindow();
        QCOMPARE(m_window->geometry(), place);

        m_window->showMaximized();
        m_window->close();
        openWindow();
        QVERIFY(m_window->isMaximized());
        m_window->showNormal();
        QTRY_COMPARE(m_window->geometry(), place);
    }

    void filesOfTags()
    {
        const QString name = QStringLiteral("<b>%1 & co</b>");
        Library& library = m_session->library();
        const qint64 root = library.addRootAndWait("/nowhere").rootId;
        QVERIFY(library.importAndWait(root, {taggedFile("a.png", {name})}).succeeded());
        const FilePanel& panel = *m_window->filePanel();
        QVERIFY(panel.isHidden());
        emit m_plugin.window()->signalCheckoutTagFile({1});
        QTRY_COMPARE(panel.title(), QStringLiteral("1 file tagged ‘<b>%1 & co</b>’"));
        QVERIFY(panel.isVisible());
        QVERIFY(library.importAndWait(root, {taggedFile("b.png", {name})}).succeeded());
        QTRY_COMPARE(panel.title(), QStringLiteral("2 files tagged ‘<b>%1 & co</b>’"));
        QTRY_COMPARE(panel.view()->model()->index(1, 0).data().toString(), QStringLiteral("b.png"));
        emit m_plugin.window()->signalCheckoutGroupFile({0});
        QTRY_VERIFY(panel.title().startsWith(QLatin1String("2 files in category")));
        QVERIFY(library.forgetAndWait(root, {"a.png", "b.png"}).succeeded());
        QTRY_VERIFY(panel.message().startsWith(QLatin1String("No file")));
        QTest::keyClick(m_window.get(), Qt::Key_Escape);
        QVERIFY(panel.isHidden());
    }

    void search()
    {
        Library& library = m_session->library();
        const qint64 root = library.addRootAndWait("/nowhere").rootId;
        QVERIFY(library.importAndWait(root, {taggedFile("a.png", {"A", "B"})}).succeeded());
        FakeTagWindow& window = *m_plugin.window();
        window.showPage(TagManagerPage::Categories);
        QTest::keyClick(m_window.get(), Qt::Key_F, Qt::ControlModifier);
        QVERIFY(window.isSearching && window.page == TagManagerPage::AllTags);
        const FilePanel& panel = *m_window->filePanel();
        emit window.events()->searchSubmitted(window.page);
        QVERIFY2(panel.isHidden(), "a search without a result has files");
        window.results = {2, 1};
        emit window.events()->searchSubmitted(window.page);
        QTRY_COMPARE(panel.title(), QStringLiteral("1 file tagged ‘B’"));
        emit window.events()->searchResultActivated(1);
        QTRY_COMPARE(panel.title(), QStringLiteral("1 file tagged ‘A’"));
    }

    void othersChangesWaitForTheName()
    {
        Library& library = m_session->library();
        const auto tags = library.dataProvider()->tagManagerDataProvider()->tagGroup(-1);
        const qint64 root = library.addRootAndWait("/nowhere").rootId;
        const auto imported = [&library, root](const QByteArray& path) {
            const bool done = library.importAndWait(root, {taggedFile(path, {QString::fromUtf8(path)})}).succeeded();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
            return done;
        };
        FakeTagWindow& window = *m_plugin.window();
        emit window.events()->nameInputStarted();
        QVERIFY(imported("a"));
        QCOMPARE(tags->tagCount(1), 0);

        const auto action = library.dataProvider()->tagAction();
        QVector<int> tagsAtAnswers;
        connect(action.data(), &ITagAction::signalTagResult, &window, [&] { tagsAtAnswers.append(tags->tagCount(1)); });
        action->renameTag(4711, QStringLiteral("X"));
        QTRY_VERIFY2(window.namesAllowed > 0, "a name that was refused cannot be sent again");
        const auto* bar = m_window->findChild<QWidget*>(QStringLiteral("notice_bar"));
        QVERIFY(bar->isVisible());
        action->createTags({{QStringLiteral("Y"), 0, 0}});
        QTRY_VERIFY2(!bar->isVisible(), "the refusal is shown beside a later success");
        QCOMPARE(tagsAtAnswers, QVector<int>({1, 2}));

        QVERIFY(imported("b"));
        QCOMPARE(tags->tagCount(1), 2);
        emit window.events()->nameInputFinished();
        QTRY_COMPARE(tags->tagCount(1), 3);
        library.holdNotifications(0);
        QVERIFY(imported("c"));
        QTRY_VERIFY2(tags->tagCount(1) == 4, "held for longer than was asked for");
    }

    void importIsShown()
    {
        m_folder->writePng("plain.png");
        m_folder->write("broken.jpg", "no picture");
        LibraryChoice choice = m_session->choice();
        choice.folders = {m_folder->path()};
        choice.isNew = true;
        openSession(choice);
        const auto part = [this](const char* name) {
            return m_window->findChild<QWidget*>(QLatin1String("import_bar") + QLatin1String(name));
        };
        emit m_session->importProgress(3, 12);
        QVERIFY(part("_text")->accessibleName().contains(QLatin1String("3 of 12")));

        const QSignalSpy upToDate(m_window.get(), &HostWindow::upToDate);
        m_window->startImport();
        QTRY_COMPARE(upToDate.size(), 1);
        QVERIFY(m_window->filePanel()->title().startsWith(QLatin1String("1 picture without")));
        QTest::mouseClick(part("_skipped"), Qt::LeftButton);
        const auto* list = m_window->findChild<QPlainTextEdit*>();
        QVERIFY(list && list->toPlainText().contains(QLatin1String("broken.jpg")));
        list->window()->close();
        QTest::mouseClick(part("_dismiss"), Qt::LeftButton);
        QVERIFY(!part("")->isVisible());
    }

    void cancelledImportLeavesOutTheNextFolder()
    {
        const PictureFolder second;
        m_folder->writePng("first.png");
        second.writePng("second.png");
        LibraryChoice choice = m_session->choice();
        choice.folders = {m_folder->path(), second.path()};
        choice.isNew = true;
        openSession(choice);
        const QSignalSpy finished(m_session.get(), &LibrarySession::importFinished);
        m_window->startImport();
        QTest::mouseClick(m_window->findChild<QPushButton*>(QStringLiteral("import_bar_cancel")), Qt::LeftButton);
        QTRY_COMPARE(finished.size(), 1);
        const auto summary = finished.constFirst().constFirst().value<ImportSummary>();
        QVERIFY2(summary.cancelled && summary.totals.files < 2, "the import went on after Cancel");
        const auto* text = m_window->findChild<QWidget*>(QStringLiteral("import_bar_text"));
        QVERIFY(text->accessibleName().startsWith(QLatin1String("Cancelled.")));
    }

    void focusReturnsFromTheFiles()
    {
        QWidget* const button = m_plugin.window()->button;
        button->setFocus();
        emit m_plugin.window()->signalCheckoutTagFile({1});
        m_window->filePanel()->view()->setFocus();
        QTest::keyClick(m_window.get(), Qt::Key_Escape);
        QVERIFY(m_window->filePanel()->isHidden());
        QCOMPARE(m_window->focusWidget(), button);
    }

    void picturesAreFoldedAndShown()
    {
        Library& library = m_session->library();
        const qint64 root = library.addRootAndWait("/nowhere").rootId;
        QVERIFY(library.importAndWait(root, {taggedFile("a.png", {"A"}), taggedFile("b.png", {})}).succeeded());
        const FilePanel& panel = *m_window->filePanel();
        auto* const button = m_window->findChild<QPushButton*>(QStringLiteral("pictures_button"));
        QTest::mouseClick(button, Qt::LeftButton);
        QTRY_COMPARE(panel.title(), QStringLiteral("2 pictures"));
        QVERIFY(button->isHidden());
        QTest::mouseClick(panel.findChild<QPushButton*>(QStringLiteral("untagged_pictures")), Qt::LeftButton);
        QTRY_COMPARE(panel.title(), QStringLiteral("1 picture without tags"));
        auto* const query = panel.findChild<QLineEdit*>(QStringLiteral("query_field"));
        query->setText(QStringLiteral("a or (untagged"));
        QTest::keyClick(query, Qt::Key_Return);
        QCOMPARE(query->cursorPosition(), 5);
        QCOMPARE(panel.title(), QStringLiteral("1 picture without tags"));
        query->setText(QStringLiteral("a or untagged"));
        QTest::keyClick(query, Qt::Key_Return);
        QTRY_COMPARE(panel.title(), QStringLiteral("2 pictures found"));
        m_window->close();
        const LibraryChoice choice = m_session->choice();
        openSession(choice);
        QTRY_COMPARE(m_window->filePanel()->title(), QStringLiteral("2 pictures"));
        QTest::keyClick(m_window.get(), Qt::Key_F9);
        QVERIFY(m_window->filePanel()->isHidden());
    }

    void emptyLibraryTellsWhatToDo()
    {
        m_window->startImport();
        QTRY_COMPARE(m_window->filePanel()->title(), QStringLiteral("No pictures yet"));
    }

    void tagWindowMayGo()
    {
        connect(m_plugin.window(), &IVLTagManagerWidget::signalSoftWareMax, m_plugin.window(),
                [this] { delete m_plugin.window(); });
        emit m_plugin.window()->signalSoftWareMax();
        QVERIFY(!m_window->tagWindow());
        m_window->showNormal();
        QTest::keyClick(m_window.get(), Qt::Key_F, Qt::ControlModifier);
        QTest::mouseDClick(m_window.get(), Qt::LeftButton, {}, QPoint(400, 20));
        m_window->close();
    }

private:
    void openSession(const LibraryChoice& choice)
    {
        m_window.reset();
        m_session.reset();
        QString error;
        m_session = LibrarySession::open(choice, &error);
        QVERIFY2(m_session, qPrintable(error));
        openWindow();
    }

    void openWindow()
    {
        m_window = std::make_unique<HostWindow>(*m_session, m_plugin);
        m_window->restoreGeometryKept();
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    }

    PictureFolder m_settings;
    FakePlugin m_plugin;
    std::unique_ptr<PictureFolder> m_folder;
    std::unique_ptr<LibrarySession> m_session;
    std::unique_ptr<HostWindow> m_window;
};

int main(int argc, char** argv)
{
    // An import starts this program again, as its reader process.
    const int status = runAsHelper(argc, argv);
    if (status >= 0)
        return status;
    const QApplication app(argc, argv);
    TestHostWindow test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_hostwindow.moc"
