// SPDX-License-Identifier: MIT
#include "host/app/hostapplication.h"

#include "host/app/commands/commandline.h"
#include "host/app/commands/librarychoice.h"
#include "host/app/dialogs/folderquestion.h"
#include "host/app/hostwindow.h"
#include "host/app/librarysession.h"
#include "host/app/screenshot.h"
#include "host/app/widgets/windowgeometry.h"
#include "host/library/library.h"
#include "host/library/records/escapedtext.h"
#include "host/library/records/tagpalette.h"

#include <ilibrarydataprovider.h>
#include <ivltagmanagercontrol.h>
#include <ivltagmanagerplugin.h>
#include <vlskinsetting.h>

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QScreen>
#include <QSettings>
#include <QStyleFactory>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

constexpr int exitFailure = 1;
constexpr QSize defaultSize(1100, 700);  // logical pixels
const QString scaledKey = QStringLiteral("screen/scaled");
constexpr double unscaledDpi = 96;  // Qt's, on every platform but macOS
// Below 1.125 a screen counts as unscaled: 1.25 is the smallest factor in use.
constexpr double smallestScaling = 0.125;

// Messages may quote file names, which must not reach the terminal as control sequences.
void printError(const QString& message)
{
    std::fprintf(stderr, "vellum: %s\n", escapedText(message.toUtf8()).constData());
}

void printSkipped(const SkippedFile& file)
{
    std::fprintf(stderr, "vellum: %s: %s\n", escapedText(file.path).constData(),
                 escapedText(file.reason.toUtf8()).constData());
}

// Unless the desktop sets a resolution, X servers derive it from the size of the screen in whole millimetres: an
// unscaled screen gets 96.08 or 99.89 dots per inch. A window that is scaled by such a factor shows gaps between the
// areas that are repainted.
bool hasScaledScreen()
{
    // With Qt's scaling on, the logical resolution is what remains after it.
    const bool applied = QCoreApplication::testAttribute(Qt::AA_EnableHighDpiScaling);
    const QByteArray chosen = qgetenv("QT_SCALE_FACTOR");
    const double factor = chosen.isEmpty() ? 1 : chosen.toDouble();
    const QList<QScreen*> screens = QGuiApplication::screens();
    return std::any_of(screens.cbegin(), screens.cend(), [applied, factor](const QScreen* screen) {
        const double dpi = screen->logicalDotsPerInch() * (applied ? screen->devicePixelRatio() / factor : 1);
        return std::abs(dpi / unscaledDpi - 1) > smallestScaling;
    });
}

// Screenshots have the requested size; the resolution of the screen that Qt invents for them does not count.
bool rendersToFile(const CommandLine& commandLine)
{
    return qgetenv("QT_QPA_PLATFORM").startsWith("offscreen") || commandLine.action == CommandLine::Action::Screenshot;
}

QPalette skinPalette()
{
    const VLSkinSetting* skin = VLSkinSetting::GetInstance();
    QPalette palette(skin->GetPopupWinBackgroundColor());
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, skin->GetTextColor(1));
    for (const QPalette::ColorRole role : {QPalette::Base, QPalette::ToolTipBase})
        palette.setColor(role, skin->GetTagManagerTagGroupItemBackColor());
    palette.setColor(QPalette::Highlight, skin->GetInputAndButtonColor());
    palette.setColor(QPalette::HighlightedText, skin->GetTextColor(0));
    return palette;
}

// The offscreen platform has a default font of its own; use fontconfig's, as a window on a display does.
void applyFont()
{
    if (QGuiApplication::platformName() != QLatin1String("offscreen"))
        return;
    QFont font = QApplication::font();
    font.setFamily(QStringLiteral("Sans Serif"));
    QApplication::setFont(font);
}

void applySkin()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(skinPalette());
    applyFont();
    const QString icon = VLSkinSetting::GetInstance()->GetResourceAbsolutePath(QStringLiteral("vellum.svg"));
    QApplication::setWindowIcon(QIcon(icon));
}

}  // namespace

bool HostApplication::hasDisplay()
{
    const auto names = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    return std::any_of(names.begin(), names.end(), [](const char* name) { return qEnvironmentVariableIsSet(name); });
}

void HostApplication::prepare(const CommandLine& commandLine)
{
    const bool offscreen = commandLine.action == CommandLine::Action::Screenshot || !hasDisplay();
    if (offscreen && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (commandLine.scale)
        qputenv("QT_SCALE_FACTOR", QByteArray::number(*commandLine.scale));
    const bool scaled = !rendersToFile(commandLine) && QSettings().value(scaledKey).toBool();
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling, scaled);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QGuiApplication::setDesktopFileName(QStringLiteral("vellum"));
}

bool HostApplication::hasOtherScale(const CommandLine& commandLine)
{
    if (rendersToFile(commandLine))
        return false;
    const bool scaled = hasScaledScreen();
    QSettings settings;
    if (settings.value(scaledKey).toBool() != scaled)
        settings.setValue(scaledKey, scaled);
    return QCoreApplication::testAttribute(Qt::AA_EnableHighDpiScaling) != scaled;
}

HostApplication::HostApplication(const CommandLine& commandLine, bool hasDisplay)
    : m_commandLine(commandLine)
    , m_hasDisplay(hasDisplay)
{
}

HostApplication::~HostApplication()
{
    // The window reads from the library as long as it exists.
    m_window.reset();
    if (m_loader.tagManager())
        m_loader.tagManager()->clearDataProvider();
}

int HostApplication::run()
{
    applySkin();
    if (!openLibrary() || !loadPlugin())
        return m_failure;
    const bool screenshot = m_commandLine.action == CommandLine::Action::Screenshot;
    if (!m_hasDisplay && !screenshot) {
        printError(tr("There is no display to open a window on; --screenshot FILE renders it to a picture."));
        return exitFailure;
    }
    m_window = std::make_unique<HostWindow>(*m_session, *m_loader.tagManager());
    return screenshot ? runScreenshot() : runWindow();
}

std::optional<LibraryChoice> HostApplication::chooseLibrary() const
{
    const QSettings settings;
    CommandLine answered = m_commandLine;
    LibraryChoice choice = LibraryChoice::make(answered, settings);
    if (m_commandLine.action != CommandLine::Action::OpenWindow)
        return choice;
    if (!choice.error.isEmpty() && choice.isUndecided) {
        const std::optional<QByteArray> folder = askForPictureFolder();
        if (!folder)
            return choice;
        if (folder->isEmpty())
            return std::nullopt;
        answered.folder = *folder;
        choice = LibraryChoice::make(answered, settings);
    }
    if (!choice.error.isEmpty() && choice.moved && m_hasDisplay) {
        answered.relocate =
            askWhetherMoved(choice.moved->from.isEmpty() ? choice.moved->name.toUtf8() : choice.moved->from,
                            choice.folders.constFirst());
        if (!answered.relocate)
            return std::nullopt;
        choice = LibraryChoice::make(answered, settings);
    }
    return choice;
}

bool HostApplication::openLibrary()
{
    const std::optional<LibraryChoice> choice = chooseLibrary();
    if (!choice)
        return false;
    if (!choice->error.isEmpty()) {
        printError(choice->error);
        m_failure = CommandLine::exitUsage;
        return false;
    }
    QString error;
    m_session = LibrarySession::open(*choice, &error);
    if (!m_session) {
        printError(error);
        m_failure = exitFailure;
    }
    return m_session != nullptr;
}

bool HostApplication::loadPlugin()
{
    QString error;
    if (!m_loader.load(QFile::decodeName(m_commandLine.pluginFile), &error)) {
        printError(error);
        m_failure = exitFailure;
        return false;
    }
    m_loader.tagManager()->setDataProvider(m_session->library().dataProvider());
    m_loader.tagManager()->setTagColorProvider(TagPalette::instance());
    return true;
}

int HostApplication::runWindow()
{
    QSettings settings;
    m_session->choice().save(settings);
    m_window->restoreGeometryKept();
    if (m_commandLine.size)
        resizeOnScreen(*m_window, *m_commandLine.size);
    m_window->show();
    openView();
    m_window->startImport();
    return QApplication::exec();
}

int HostApplication::runScreenshot()
{
    Screenshot screenshot(*m_window, m_commandLine);
    QObject::connect(&screenshot, &Screenshot::finished, [](const QString& error) {
        if (!error.isEmpty())
            printError(error);
        QCoreApplication::exit(error.isEmpty() ? 0 : exitFailure);
    });
    QObject::connect(m_session.get(), &LibrarySession::importFinished, &screenshot,
                     [this](const ImportSummary& summary) { printOutcome(summary); });
    QObject::connect(m_window.get(), &HostWindow::upToDate, &screenshot, [this, &screenshot] {
        openView();
        screenshot.take();
    });
    m_window->resize(m_commandLine.size.value_or(defaultSize));
    m_window->show();
    m_window->startImport();
    return QApplication::exec();
}

void HostApplication::printOutcome(const ImportSummary& summary) const
{
    for (const SkippedFile& file : m_session->skippedFiles())
        printSkipped(file);
    if (summary.error.isEmpty())
        return;
    printError(summary.error);
    QCoreApplication::exit(exitFailure);
}

void HostApplication::openView()
{
    IVLTagManagerControl* control = m_window->tagManager();
    if (!control)
        return;
    control->showPage(m_commandLine.page);
    if (!m_commandLine.search.isEmpty())
        control->setSearchText(m_commandLine.search);
}
