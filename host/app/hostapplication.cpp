// SPDX-License-Identifier: MIT
#include "host/app/hostapplication.h"

#include "host/app/commandline.h"
#include "host/app/hostwindow.h"
#include "host/app/librarychoice.h"
#include "host/app/librarysession.h"
#include "host/app/screenshot.h"
#include "host/app/tagwindow.h"
#include "host/library/library.h"
#include "host/library/tagpalette.h"

#include <ilibrarydataprovider.h>
#include <ivltagmanagerplugin.h>
#include <ivltagmanagerwidget.h>
#include <vlskinsetting.h>

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QLineEdit>
#include <QSettings>
#include <QStyleFactory>

#include <cstdio>

namespace {

constexpr int exitFailure = 1;
constexpr QSize defaultSize(1100, 700);  // logical pixels

void tell(const QString& message)
{
    const QByteArray line = message.toLocal8Bit();
    std::fprintf(stderr, "vellum: %s\n", line.constData());
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

void applySkin()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(skinPalette());
    const QString icon = VLSkinSetting::GetInstance()->GetResourceAbsolutePath(QStringLiteral("vellum.svg"));
    QApplication::setWindowIcon(QIcon(icon));
}

}  // namespace

void HostApplication::prepare(const CommandLine& commandLine)
{
    const bool hasDisplay = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    const bool offscreen = commandLine.action == CommandLine::Action::Screenshot || !hasDisplay;
    if (offscreen && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (commandLine.scale)
        qputenv("QT_SCALE_FACTOR", QByteArray::number(*commandLine.scale));
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QGuiApplication::setDesktopFileName(QStringLiteral("vellum"));
}

HostApplication::HostApplication(const CommandLine& commandLine)
    : m_commandLine(commandLine)
{
}

HostApplication::~HostApplication()
{
    // The window reads from the library until it is gone.
    m_window.reset();
    if (m_loader.tagManager())
        m_loader.tagManager()->clearDataProvider();
}

int HostApplication::run()
{
    if (!openLibrary() || !loadPlugin())
        return m_failure;
    applySkin();
    setUpWindow();
    return m_commandLine.action == CommandLine::Action::Screenshot ? runScreenshot() : runWindow();
}

bool HostApplication::openLibrary()
{
    const LibraryChoice choice = LibraryChoice::make(m_commandLine, QSettings());
    if (!choice.error.isEmpty()) {
        tell(choice.error);
        m_failure = CommandLine::exitUsage;
        return false;
    }
    QString error;
    m_session = LibrarySession::open(choice, &error);
    if (!m_session) {
        tell(tr("The library cannot be opened: ") + error);
        m_failure = exitFailure;
    }
    return m_session != nullptr;
}

bool HostApplication::loadPlugin()
{
    QString error;
    if (!m_loader.load(QFile::decodeName(m_commandLine.pluginFile), &error)) {
        tell(error);
        m_failure = exitFailure;
        return false;
    }
    m_loader.tagManager()->setDataProvider(m_session->library().dataProvider());
    m_loader.tagManager()->setTagColorProvider(TagPalette::instance());
    return true;
}

void HostApplication::setUpWindow()
{
    m_window = std::make_unique<HostWindow>(*m_session, *m_loader.tagManager());
}

int HostApplication::runWindow()
{
    QSettings settings;
    m_session->choice().save(settings);
    m_window->restoreGeometryKept();
    if (m_commandLine.size)
        m_window->resize(*m_commandLine.size);
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
            tell(error);
        QCoreApplication::exit(error.isEmpty() ? 0 : exitFailure);
    });
    const auto show = [this, &screenshot] {
        openView();
        screenshot.take();
    };
    QObject::connect(m_session.get(), &LibrarySession::importFinished, &screenshot,
                     [this, show](const ImportSummary& summary) {
                         for (const SkippedFile& file : m_session->skippedFiles())
                             tell(QString::fromUtf8(file.path) + QLatin1String(": ") + file.reason);
                         if (!summary.error.isEmpty()) {
                             tell(summary.error);
                             QCoreApplication::exit(exitFailure);
                             return;
                         }
                         show();
                     });
    m_window->resize(m_commandLine.size.value_or(defaultSize));
    m_window->show();
    if (!m_window->startImport())
        show();
    return QApplication::exec();
}

void HostApplication::openView()
{
    if (!m_window->tagWindow())
        return;
    TagWindow::showPage(*m_window->tagWindow(), m_commandLine.page);
    QLineEdit* field = TagWindow::searchField(*m_window->tagWindow());
    if (field && !m_commandLine.search.isEmpty())
        field->setText(m_commandLine.search);
}
