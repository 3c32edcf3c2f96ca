// SPDX-License-Identifier: MIT
#pragma once

#include "host/app/tagmanagerloader.h"

#include <QString>

#include <memory>

class HostWindow;
class LibrarySession;
struct CommandLine;

/// The program with a window: from the command line to the end of the event loop.
class HostApplication
{
    Q_DECLARE_TR_FUNCTIONS(HostApplication)

public:
    /// Chooses platform and scale. To be called before there is a QApplication; changes the environment.
    static void prepare(const CommandLine& commandLine);

    explicit HostApplication(const CommandLine& commandLine);
    ~HostApplication();

    /// Returns the exit status; errors have been told on stderr. Needs a QApplication.
    int run();

private:
    bool openLibrary();
    bool loadPlugin();
    void setUpWindow();
    void openView();
    int runWindow();
    int runScreenshot();

    const CommandLine& m_commandLine;
    TagManagerLoader m_loader;
    std::unique_ptr<LibrarySession> m_session;
    std::unique_ptr<HostWindow> m_window;
    int m_failure = 0;  ///< Exit status of the step that failed.
};
