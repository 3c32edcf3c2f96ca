// SPDX-License-Identifier: MIT
#pragma once

#include "bench/library/libraryside.h"
#include "host/importer/importsummary.h"

#include <QByteArray>
#include <QObject>

#include <functional>

class HostWindow;
class LibrarySession;
class VLTagMnagerPlugin;

namespace bench {

/// The host on a library file: the library and the importer, and, if wanted, the window with the tag manager in it.
class HostSide : public LibrarySide
{
public:
    /// \a pictures is the folder that importFolder() imports.
    HostSide(const QString& file, const QString& pictures, bool hasWindow, Clock clock);
    ~HostSide() override;

    double open() override;
    double carryOut(const MeasuredCommand& command) override;
    double import(const LibraryContent& content) override;
    /// Finds the pictures, has their keywords read by processes, and writes them, as when a folder is opened.
    double importFolder(const LibraryContent& content);

    /// Only where there is one.
    [[nodiscard]] HostWindow& window() const { return *m_window; }
    [[nodiscard]] LibrarySession& session() const { return *m_session; }
    [[nodiscard]] int tagCount() const;
    /// Runs the event loop until everything that the library has committed by now is in memory and emitted.
    void waitUntilEmitted();

private:
    [[nodiscard]] double elapsed(const std::function<void()>& action) const;
    void openLibrary();
    void openWindow();

    QString m_file;
    QString m_pictures;
    bool m_hasWindow;
    Clock m_clock;
    std::unique_ptr<LibrarySession> m_session;
    std::unique_ptr<VLTagMnagerPlugin> m_plugin;
    std::unique_ptr<HostWindow> m_window;
};

}  // namespace bench
