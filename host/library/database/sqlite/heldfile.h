// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <sys/types.h>

#include <utility>

/// A file that this process keeps open, for reading, as long as anybody holds it. Any thread.
///
/// Closing any descriptor of a file gives up every POSIX lock that the process has on it, those of SQLite among them
/// (https://www.sqlite.org/howtocorrupt.html, "Posix advisory locks canceled by a separate thread doing close()");
/// another program would then believe to be the last one and remove the log that is still written to. So every
/// connection to a library holds its file, and who looks into it past SQLite does so with this.
class HeldFile
{
public:
    explicit HeldFile(const QString& path);
    ~HeldFile();

    [[nodiscard]] bool isOpen() const { return m_descriptor >= 0; }
    /// Why the file could not be opened.
    [[nodiscard]] QString errorString() const { return m_error; }
    /// Whether the file is what one finds at \a path now.
    [[nodiscard]] bool isAt(const QString& path) const;
    /// Size in bytes and time of the last change in nanoseconds: what changes whenever anybody writes to the file.
    using Stamp = std::pair<qint64, qint64>;
    [[nodiscard]] Stamp stamp() const;
    /// The first bytes of the file, at most \a size.
    [[nodiscard]] QByteArray head(int size) const;

private:
    Q_DISABLE_COPY(HeldFile)

    int m_descriptor = -1;  ///< Shared by all who hold the file.
    std::pair<dev_t, ino_t> m_identity;
    QString m_error;
};
