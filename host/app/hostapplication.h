// SPDX-License-Identifier: MIT
#pragma once

#include "host/app/tagmanagerloader.h"

#include <QString>

#include <memory>
#include <optional>

class HostWindow;
class LibrarySession;
struct CommandLine;
struct ImportSummary;
struct LibraryChoice;

/// The program with a window: from the command line to the end of the event loop.
class HostApplication
{
    Q_DECLARE_TR_FUNCTIONS(HostApplication)

public:
    /// True when there is a display, or the user has chosen a platform. To be asked before prepare().
    [[nodiscard]] static bool hasDisplay();
    /// Chooses platform and scale. To be called before there is a QApplication; changes the environment.
    static void prepare(const CommandLine& commandLine);
    /// Whether the screens are scaled though prepare() took them not to be, or the other way round; it went by what
    /// was seen at the last start. prepare() knows from now on, so a QApplication made after another call is right.
    [[nodiscard]] static bool hasOtherScale(const CommandLine& commandLine);

    /// \a hasDisplay as it was before prepare(); without one there is no window, but there are screenshots.
    HostApplication(const CommandLine& commandLine, bool hasDisplay);
    ~HostApplication();

    /// Returns the exit status; errors have been told on stderr. Needs a QApplication.
    int run();

private:
    /// Nothing when the person was asked and wants none.
    [[nodiscard]] std::optional<LibraryChoice> chooseLibrary() const;
    bool openLibrary();
    bool loadPlugin();
    void openView();
    int runWindow();
    int runScreenshot();
    void tellOutcome(const ImportSummary& summary) const;

    const CommandLine& m_commandLine;
    const bool m_hasDisplay;
    TagManagerLoader m_loader;
    std::unique_ptr<LibrarySession> m_session;
    std::unique_ptr<HostWindow> m_window;
    int m_failure = 0;  ///< Exit status of the step that failed; leaving without a library is no failure.
};
