// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <system_error>

/// A temporary folder that is removed with everything in it, names that are no valid UTF-8 included.
class TestFolder
{
public:
    TestFolder()
        : m_path(QByteArray::fromStdString(canonical(std::filesystem::temp_directory_path()).string()) +
                 "/vellum-test-XXXXXX")
    {
        if (!mkdtemp(m_path.data()))
            throw std::runtime_error("No temporary folder");
    }
    ~TestFolder()
    {
        std::error_code error;
        std::filesystem::remove_all(m_path.toStdString(), error);
    }
    Q_DISABLE_COPY(TestFolder)

    /// Without links in it.
    [[nodiscard]] const QByteArray& path() const { return m_path; }
    [[nodiscard]] QByteArray file(const QByteArray& name) const { return m_path + '/' + name; }

private:
    QByteArray m_path;
};
