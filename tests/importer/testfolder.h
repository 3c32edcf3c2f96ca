// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// A temporary folder that is removed with everything in it, names that are no valid UTF-8 included.
class TestFolder
{
public:
    TestFolder();
    ~TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    /// Without links in it.
    [[nodiscard]] const QByteArray& path() const { return m_path; }
    [[nodiscard]] QByteArray file(const QByteArray& name) const { return m_path + '/' + name; }

private:
    QByteArray m_path;
};
