// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>
#include <utility>

/// Owns a file descriptor and closes it.
class FileDescriptor
{
public:
    FileDescriptor() = default;
    /// Takes \a number over; negative: holds none.
    explicit FileDescriptor(int number)
        : m_number(number)
    {
    }
    FileDescriptor(FileDescriptor&& other) noexcept
        : m_number(std::exchange(other.m_number, -1))
    {
    }
    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor()
    {
        if (m_number >= 0)
            close(m_number);
    }

    [[nodiscard]] bool isValid() const { return m_number >= 0; }
    [[nodiscard]] int number() const { return m_number; }

private:
    int m_number = -1;
};
