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
    /// True if there is a display, or the user has chosen a platform. Must be called before prepare().
    [[nodiscard]] static bool hasDisplay();
    /// Chooses platform and scale. Must be called before a QApplication exists; changes the environment.
    static void prepare(const CommandLine& commandLine);
    /// Whether prepare() assumed the wrong thing about the screens being scaled: it uses what the last start found.
    /// Stores the right value, so that the caller can repeat prepare() and create the QApplication again.
    [[nodiscard]] static bool hasOtherScale(const CommandLine& commandLine);

    /// \a hasDisplay is hasDisplay() before prepare(); without a display only screenshots can be made.
    HostApplication(const CommandLine& commandLine, bool hasDisplay);
    ~HostApplication();

    /// Returns the exit status; prints errors to stderr. Needs a QApplication.
    int run();

private:
    /// Empty if the user was asked and cancelled.
    [[nodiscard]] std::optional<LibraryChoice> chooseLibrary() const;
    bool openLibrary();
    bool loadPlugin();
    void openView();
    int runWindow();
    int runScreenshot();
    void printOutcome(const ImportSummary& summary) const;

    const CommandLine& m_commandLine;
    const bool m_hasDisplay;
    TagManagerLoader m_loader;
    std::unique_ptr<LibrarySession> m_session;
    std::unique_ptr<HostWindow> m_window;
    int m_failure = 0;  ///< Exit status of the step that failed; 0 if the user cancelled.
};
