// SPDX-License-Identifier: MIT
#include "host/app/hostwindow.h"

#include "host/app/commands/picturefile.h"
#include "host/app/dialogs/missingpicturesquestion.h"
#include "host/app/dialogs/skippedfilesdialog.h"
#include "host/app/files/filepanel.h"
#include "host/app/files/filepresenter.h"
#include "host/app/files/selectiontagger.h"
#include "host/app/librarysession.h"
#include "host/app/picturedrop.h"
#include "host/app/refusaltext.h"
#include "host/app/widgets/elidedlabel.h"
#include "host/app/widgets/flatbuttonstyle.h"
#include "host/app/widgets/importbar.h"
#include "host/app/widgets/noticebar.h"
#include "host/app/widgets/windowgeometry.h"
#include "host/library/library.h"
#include "host/library/memory/libraryresponse.h"
#include "host/library/records/librarystatus.h"

#include <ilibrarydataprovider.h>
#include <iresponseinfo.h>
#include <itagaction.h>
#include <itaggroupaction.h>
#include <ivltagmanagercontrol.h>
#include <ivltagmanagerplugin.h>
#include <ivltagmanagerwidget.h>
#include <vlskinsetting.h>

#include <QApplication>
#include <QEvent>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>
#include <QWindow>

namespace {

constexpr QSize smallestSize(800, 480);
constexpr int smallestTagWindow = 600;  // wide enough for the pages' descriptions
constexpr int firstPanelWidth = 330;    // two thumbnails side by side
constexpr QPoint titlePosition(20, 7);
constexpr int titleHeight = 18;
constexpr int titleGap = 12;
constexpr int titleFontPixels = 12;
constexpr int windowButtonsWidth = 120;  // kept free at the right of the title
constexpr qint64 silentImport = 1000;    // milliseconds
constexpr int longestHold = 30000;       // milliseconds; changes by others are held back while a name is typed
const QString splitterKey = QStringLiteral("window/panel");
const QString picturesKey = QStringLiteral("window/pictures");  // whether they are shown

}  // namespace

HostWindow::HostWindow(LibrarySession& session, IVLTagManagerPlugin& plugin, QWidget* parent)
    : FrameWindow(parent)
    , m_session(session)
{
    setObjectName(QStringLiteral("host_window"));
    setMinimumSize(smallestSize);
    setUpContent(plugin);
    setUpTitle();
    setUpShortcuts();
    connectTagWindow();
    connectSession();
    connectAnswers();
}

HostWindow::~HostWindow()
{
    // A name dialog may still be open, and the library outlives this window.
    m_session.library().releaseNotifications();
}

IVLTagManagerWidget* HostWindow::tagWindow() const
{
    return m_tagWindow;
}

IVLTagManagerControl* HostWindow::tagManager() const
{
    return qobject_cast<IVLTagManagerControl*>(m_tagWindow.data());
}

void HostWindow::restoreGeometryKept()
{
    const QSettings settings;
    WindowGeometry::load(settings).applyTo(*this);
    m_splitter->restoreState(settings.value(splitterKey).toByteArray());
    if (settings.value(picturesKey, true).toBool())
        m_presenter->showAll();
    m_keepsGeometry = true;
}

void HostWindow::startImport()
{
    m_importTime.start();
    showAbsentFolders();
    ImportOptions options;
    options.rereads = m_session.choice().rereads;
    if (!m_session.startImport(options))
        m_presenter->showHintIfEmpty();
    else if (m_session.choice().isNew)
        m_importBar->showProgress(0, 0);
}

bool HostWindow::isMoveArea(const QPoint& pos) const
{
    const IVLTagManagerControl* control = tagManager();
    return FrameWindow::isMoveArea(pos) || m_files->isHeaderAt(m_files->mapFrom(this, pos)) ||
           (control && control->isMoveArea(m_tagWindow->mapFrom(this, pos)));
}

void HostWindow::closeEvent(QCloseEvent* event)
{
    if (m_keepsGeometry)
        saveGeometryKept();
    FrameWindow::closeEvent(event);
}

void HostWindow::resizeEvent(QResizeEvent* event)
{
    FrameWindow::resizeEvent(event);
    placeTitle();
}

/// The button for the pictures stands behind the title, in the strip that the pages leave free.
void HostWindow::placeTitle()
{
    const int button = m_picturesButton->sizeHint().width();
    const int room = contentWidget()->width() - titlePosition.x() - windowButtonsWidth;
    const int width = std::min(m_title->sizeHint().width(), room - button - titleGap);
    m_title->setGeometry(QRect(titlePosition, QSize(width, titleHeight)));
    m_picturesButton->setGeometry(titlePosition.x() + width + titleGap, titlePosition.y() - 3, button, 24);
}

void HostWindow::togglePictures()
{
    if (m_files->isHidden())
        m_presenter->showAgain();
    else
        closeFiles();
}

void HostWindow::showEvent(QShowEvent* event)
{
    FrameWindow::showEvent(event);
    connect(windowHandle(), &QWindow::screenChanged, this, &HostWindow::updateScale, Qt::UniqueConnection);
    updateScale();
}

void HostWindow::setUpTitle()
{
    const QString title = m_session.choice().title();
    setWindowTitle(tr("%1 — Vellum").arg(title));
    m_title = new ElidedLabel(contentWidget());
    m_title->setObjectName(QStringLiteral("library_title"));
    m_title->setText(title);
    m_title->setAttribute(Qt::WA_TransparentForMouseEvents);
    QFont font = m_title->font();
    font.setPixelSize(titleFontPixels);
    m_title->setFont(font);
    QPalette colors = m_title->palette();
    colors.setColor(QPalette::WindowText, VLSkinSetting::GetInstance()->GetTextColor(2));
    m_title->setPalette(colors);
    m_title->raise();
    m_picturesButton = new QPushButton(tr("Pictures"), contentWidget());
    m_picturesButton->setObjectName(QStringLiteral("pictures_button"));
    m_picturesButton->setToolTip(tr("Show the pictures (F9)"));
    m_picturesButton->setStyleSheet(flatButtonStyle());
    m_picturesButton->raise();
    connect(m_picturesButton, &QPushButton::clicked, this, &HostWindow::togglePictures);
    connect(m_files, &FilePanel::visibilityChanged, m_picturesButton, &QWidget::setHidden);
}

void HostWindow::setUpContent(IVLTagManagerPlugin& plugin)
{
    m_splitter = new QSplitter(contentWidget());
    m_splitter->setChildrenCollapsible(false);
    // The panel paints the separator; QSplitter makes the sensitive area wider than the handle.
    m_splitter->setHandleWidth(0);
    m_files = new FilePanel(m_splitter);
    m_tagWindow = plugin.createTagManagerWidget(m_splitter);
    m_tagWindow->setMinimumWidth(smallestTagWindow);
    // The file panel is on the left, so that the window buttons stay in the upper right corner.
    m_splitter->addWidget(m_files);
    m_splitter->addWidget(m_tagWindow);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setSizes({firstPanelWidth, smallestTagWindow});
    m_files->hide();
    m_noticeBar = new NoticeBar(contentWidget());
    m_importBar = new ImportBar(contentWidget());
    auto* layout = new QVBoxLayout(contentWidget());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_splitter, 1);
    layout->addWidget(m_noticeBar);
    layout->addWidget(m_importBar);
    m_presenter = new FilePresenter(m_session.library(), *m_files, this);
}

void HostWindow::setUpShortcuts()
{
    const auto add = [this](const QKeySequence& keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    add(QKeySequence(Qt::CTRL + Qt::Key_F), [this] { focusSearch(); });
    add(QKeySequence(Qt::Key_F9), [this] { togglePictures(); });
    add(QKeySequence(Qt::CTRL + Qt::Key_T), [this] { m_presenter->focusTagField(); });
    add(QKeySequence(Qt::CTRL + Qt::Key_Return), [this] { m_presenter->tagger()->putOnAgain(); });
    add(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_C), [this] { m_presenter->tagger()->copyTags(); });
    add(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_V), [this] { m_presenter->tagger()->pasteTags(); });
    add(QKeySequence(Qt::CTRL + Qt::Key_Q), [this] { close(); });
    add(QKeySequence(Qt::CTRL + Qt::Key_W), [this] { close(); });
    add(QKeySequence(Qt::Key_F11), [this] { toggleMaximized(); });
}

void HostWindow::connectTagWindow()
{
    connect(m_tagWindow, &IVLTagManagerWidget::signalSoftWareMin, this, &QWidget::showMinimized);
    connect(m_tagWindow, &IVLTagManagerWidget::signalSoftWareMax, this, &FrameWindow::toggleMaximized);
    connect(m_tagWindow, &IVLTagManagerWidget::signalSoftWareClose, this, &QWidget::close);
    connect(m_tagWindow, &IVLTagManagerWidget::signalCheckoutTagFile, m_presenter, &FilePresenter::showTagFiles);
    connect(m_tagWindow, &IVLTagManagerWidget::signalCheckoutGroupFile, m_presenter, &FilePresenter::showCategoryFiles);
    connect(this, &FrameWindow::maximizedChanged, m_tagWindow, &IVLTagManagerWidget::updateMaximizeButton);
    connect(m_files, &FilePanel::closeRequested, this, &HostWindow::closeFiles);
    connect(qApp, &QApplication::focusChanged, this, &HostWindow::rememberFocus);
    connectTagManager();
}

void HostWindow::connectTagManager()
{
    IVLTagManagerControl* control = tagManager();
    if (!control)
        return;
    control->setChipsDraggable(true);
    const auto* drop = new PictureDrop(this, m_tagWindow);
    connect(drop, &PictureDrop::picturesDropped, m_presenter->tagger(), &SelectionTagger::putOnFiles);
    VLTagManagerEvents* events = control->events();
    connect(events, &VLTagManagerEvents::searchResultActivated, m_presenter,
            [this](qint64 tagId) { m_presenter->showTagFiles({tagId}); });
    connect(events, &VLTagManagerEvents::searchSubmitted, this, &HostWindow::showFirstResult);
    // Any change of a tag that the tag window is notified of closes the dialog, and the typed name is lost.
    connect(events, &VLTagManagerEvents::nameInputStarted, this,
            [this] { m_session.library().holdNotifications(longestHold); });
    connect(events, &VLTagManagerEvents::nameInputFinished, this,
            [this] { m_session.library().releaseNotifications(); });
}

void HostWindow::connectSession()
{
    connect(&m_session, &LibrarySession::importProgress, this, &HostWindow::showImportProgress);
    connect(&m_session, &LibrarySession::importFinished, this, &HostWindow::showImportOutcome);
    connect(m_presenter, &FilePresenter::hintDecided, this, &HostWindow::upToDate);
    connect(m_importBar, &ImportBar::cancelRequested, &m_session, &LibrarySession::cancelImport);
    connect(m_importBar, &ImportBar::skippedRequested, this, &HostWindow::showSkippedFiles);
    connect(m_importBar, &ImportBar::removalRequested, this, &HostWindow::askToRemoveMissing);
}

void HostWindow::showAbsentFolders()
{
    QStringList names;
    for (const QByteArray& folder : m_session.choice().absentFolders)
        names.append(PictureFile::displayName(folder));
    if (!names.isEmpty())
        m_importBar->showAbsence(names);
}

void HostWindow::connectAnswers()
{
    const auto show = [this](qint64, const QSharedPointer<const IResponseInfo>& answer) {
        if (!answer)
            return;
        if (answer->status() == static_cast<int>(LibraryStatus::Done))
            m_noticeBar->hide();
        else
            showRefusal(*answer);
    };
    const auto library = m_session.library().dataProvider();
    connect(library->tagAction().data(), &ITagAction::signalTagResult, this, show);
    connect(library->tagGroupAction().data(), &ITagGroupAction::signalTagGroupResult, this, show);
    connect(m_presenter->tagger(), &SelectionTagger::refused, this,
            [this](const QString& reason) { m_noticeBar->showNotice(refusalText(ChangeKind::TagFiles, reason)); });
    connect(&m_session.library(), &Library::failed, m_noticeBar, &NoticeBar::showNotice);
}

void HostWindow::showImportProgress(int done, int found)
{
    // Updating a known library shows nothing unless it takes long.
    if (m_session.choice().isNew || m_importTime.elapsed() > silentImport)
        m_importBar->showProgress(done, found);
}

void HostWindow::showImportOutcome(const ImportSummary& summary)
{
    m_importBar->showOutcome(summary);
    m_missing = summary.missing;
    if (summary.error.isEmpty() && !summary.cancelled)
        m_presenter->showHintIfEmpty();
    else
        emit upToDate();
}

void HostWindow::showSkippedFiles()
{
    auto* dialog = new SkippedFilesDialog(m_session.skippedFiles(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->show();
}

void HostWindow::showRefusal(const IResponseInfo& answer)
{
    const auto* own = dynamic_cast<const LibraryResponse*>(&answer);
    m_noticeBar->showNotice(own ? refusalText(own->kind(), answer.message()) : answer.message());
    if (IVLTagManagerControl* control = tagManager())
        control->allowNameAgain();
}

void HostWindow::askToRemoveMissing()
{
    auto* question = new MissingPicturesQuestion(m_missing, this);
    question->setAttribute(Qt::WA_DeleteOnClose);
    connect(question, &MissingPicturesQuestion::removalConfirmed, &m_session, &LibrarySession::forgetMissing);
    question->open();
}

void HostWindow::rememberFocus(QWidget* before, QWidget* now)
{
    if (m_files->isAncestorOf(now) && before && !m_files->isAncestorOf(before) && before->window() == this)
        m_focusBeforeFiles = before;
}

void HostWindow::closeFiles()
{
    const bool hadFocus = m_files->isAncestorOf(focusWidget());
    m_files->hide();
    // Qt would move the focus to the next widget in the tab order.
    if (hadFocus && m_focusBeforeFiles && m_focusBeforeFiles->isVisible())
        m_focusBeforeFiles->setFocus(Qt::OtherFocusReason);
}

void HostWindow::focusSearch()
{
    IVLTagManagerControl* control = tagManager();
    if (control && !control->focusSearch() && control->showPage(TagManagerPage::AllTags))
        control->focusSearch();
}

void HostWindow::showFirstResult()
{
    IVLTagManagerControl* control = tagManager();
    const QVector<qint64> results = control ? control->searchResults(1) : QVector<qint64>();
    if (!results.isEmpty())
        m_presenter->showTagFiles(results);
}

void HostWindow::updateScale()
{
    VLSkinSetting::GetInstance()->SetDpi(devicePixelRatioF());
}

void HostWindow::saveGeometryKept() const
{
    QSettings settings;
    WindowGeometry::of(*this).save(settings);
    settings.setValue(splitterKey, m_splitter->saveState());
    settings.setValue(picturesKey, !m_files->isHidden());
}
