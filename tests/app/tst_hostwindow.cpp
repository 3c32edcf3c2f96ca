// SPDX-License-Identifier: MIT
#include "host/app/filepanel.h"
#include "host/app/fileview.h"
#include "host/app/hostwindow.h"
#include "host/app/librarysession.h"
#include "host/library/library.h"
#include "tests/app/fakeplugin.h"
#include "tests/app/picturefolder.h"

#include <QFile>
#include <QMouseEvent>
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
    void initTestCase();
    void init();
    void cleanup();

    void buttonsOfTheTagWindow();
    void maximiseButtonFollowsEveryCause();
    void doubleClickOnTheStripMaximises();
    void draggingTheEdgeResizes();
    void draggingTheStripMoves();
    void geometryIsKept();
    void filesOfTags();
    void filesFollowTheLibrary();
    void emptyLibraryGetsAHint();
    void tagWindowMayGo();

private:
    void openWindow();

    PictureFolder m_settings;
    FakePlugin m_plugin;
    std::unique_ptr<PictureFolder> m_folder;
    std::unique_ptr<LibrarySession> m_session;
    std::unique_ptr<HostWindow> m_window;
};

void TestHostWindow::initTestCase()
{
    QCoreApplication::setOrganizationName(QStringLiteral("vellum-test"));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QFile::decodeName(m_settings.path()));
}

void TestHostWindow::init()
{
    QSettings().clear();
    m_folder = std::make_unique<PictureFolder>();
    LibraryChoice choice;
    choice.file = m_folder->path("holidays.vellum");
    QString error;
    m_session = LibrarySession::open(choice, &error);
    QVERIFY2(m_session, qPrintable(error));
    openWindow();
}

void TestHostWindow::cleanup()
{
    m_window.reset();
    m_session.reset();
}

void TestHostWindow::openWindow()
{
    m_window = std::make_unique<HostWindow>(*m_session, m_plugin);
    m_window->restoreGeometryKept();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void TestHostWindow::buttonsOfTheTagWindow()
{
    emit m_plugin.window()->signalSoftWareMax();
    QVERIFY(m_window->isMaximized());
    emit m_plugin.window()->signalSoftWareMax();
    QVERIFY(!m_window->isMaximized());
    emit m_plugin.window()->signalSoftWareMin();
    QVERIFY(m_window->isMinimized());
    m_window->showNormal();
    emit m_plugin.window()->signalSoftWareClose();
    QVERIFY(!m_window->isVisible());
}

void TestHostWindow::maximiseButtonFollowsEveryCause()
{
    m_window->showMaximized();
    QTRY_VERIFY(!m_plugin.window()->told().isEmpty());
    QCOMPARE(m_plugin.window()->told().last(), true);
    QTest::keyClick(m_window.get(), Qt::Key_F11);
    QTRY_COMPARE(m_plugin.window()->told().last(), false);
    QVERIFY(!m_window->isMaximized());
}

void TestHostWindow::doubleClickOnTheStripMaximises()
{
    FakeTagWindow* tags = m_plugin.window();
    QTest::mouseDClick(tags, Qt::LeftButton, {}, QPoint(400, FakeTagWindow::stripHeight - 1));
    QVERIFY(m_window->isMaximized());
    QTest::mouseDClick(tags, Qt::LeftButton, {}, QPoint(400, 4));
    QVERIFY(!m_window->isMaximized());
    QTest::mouseDClick(tags, Qt::LeftButton, {}, QPoint(400, FakeTagWindow::stripHeight + 5));
    QVERIFY2(!m_window->isMaximized(), "the pages are not the frame's");
    QTest::mouseDClick(tags->findChild<QWidget*>(QStringLiteral("tag_manager_title_btn")), Qt::LeftButton);
    QVERIFY2(!m_window->isMaximized(), "a button is not the frame's");
}

void TestHostWindow::draggingTheEdgeResizes()
{
    m_window->setGeometry(50, 50, 900, 600);
    drag(m_window.get(), QPoint(899, 300), QPoint(-40, 0));
    QCOMPARE(m_window->geometry(), QRect(50, 50, 860, 600));
    QCOMPARE(m_plugin.window()->parentWidget()->width(), 850);
}

void TestHostWindow::draggingTheStripMoves()
{
    m_window->setGeometry(50, 50, 800, 600);
    drag(m_plugin.window(), QPoint(400, 5), QPoint(30, 20));
    QCOMPARE(m_window->pos(), QPoint(80, 70));
    QCOMPARE(m_window->size(), QSize(800, 600));
}

void TestHostWindow::geometryIsKept()
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

void TestHostWindow::filesOfTags()
{
    const QString name = QStringLiteral("<b>%1 & co</b>");
    QVERIFY(m_session->library().importAndWait({taggedFile("/a.png", {name}), taggedFile("/b.png", {name})}).succeeded);
    QVERIFY(m_window->filePanel()->isHidden());

    emit m_plugin.window()->signalCheckoutTagFile({1});
    QTRY_COMPARE(m_window->filePanel()->title(), QStringLiteral("2 files tagged ‘<b>%1 & co</b>’"));
    QVERIFY(m_window->filePanel()->isVisible());
    QCOMPARE(m_window->filePanel()->view()->model()->rowCount(), 2);
    QTRY_COMPARE(m_window->filePanel()->view()->model()->index(1, 0).data().toString(), QStringLiteral("b.png"));

    emit m_plugin.window()->signalCheckoutTagFile({});
    QTRY_VERIFY(m_window->filePanel()->message().startsWith(QLatin1String("No file")));
    emit m_plugin.window()->signalCheckoutGroupFile({0});
    QTRY_VERIFY(m_window->filePanel()->title().startsWith(QLatin1String("2 files in category")));
    QTest::keyClick(m_window.get(), Qt::Key_Escape);
    QVERIFY(m_window->filePanel()->isHidden());
}

void TestHostWindow::filesFollowTheLibrary()
{
    const QString name = QStringLiteral("sea");
    QVERIFY(m_session->library().importAndWait({taggedFile("/a.png", {name})}).succeeded);
    emit m_plugin.window()->signalCheckoutTagFile({1});
    QTRY_COMPARE(m_window->filePanel()->title(), QStringLiteral("1 file tagged ‘sea’"));
    QVERIFY(m_session->library().importAndWait({taggedFile("/b.png", {name})}).succeeded);
    QTRY_COMPARE(m_window->filePanel()->title(), QStringLiteral("2 files tagged ‘sea’"));
    QVERIFY(m_session->library().forgetAndWait({"/a.png", "/b.png"}).succeeded);
    QTRY_COMPARE(m_window->filePanel()->title(), QStringLiteral("No files tagged ‘sea’"));
    QVERIFY(!m_window->filePanel()->message().isEmpty());
}

void TestHostWindow::emptyLibraryGetsAHint()
{
    QSignalSpy upToDate(m_window.get(), &HostWindow::upToDate);
    m_window->startImport();
    QTRY_COMPARE(upToDate.size(), 1);
    QCOMPARE(m_window->filePanel()->title(), QStringLiteral("No pictures yet"));
    QVERIFY(!m_window->filePanel()->message().isEmpty());
}

void TestHostWindow::tagWindowMayGo()
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

QTEST_MAIN(TestHostWindow)
#include "tst_hostwindow.moc"
