// SPDX-License-Identifier: MIT
#pragma once

#include <sys/mman.h>
#include <sys/stat.h>

/// The contents of an open file in memory, read as they are used. A file that is cut short meanwhile ends the process.
class MappedFile
{
public:
    explicit MappedFile(int descriptor)
    {
        struct stat status = {};
        if (fstat(descriptor, &status) != 0)
            return;
        m_size = status.st_size;
        void* const address = mmap(nullptr, size_t(m_size), PROT_READ, MAP_PRIVATE, descriptor, 0);
        m_address = address != MAP_FAILED ? address : nullptr;
    }
    ~MappedFile()
    {
        if (m_address)
            munmap(m_address, size_t(m_size));
    }
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    /// Null for an empty file, and for one that cannot be mapped.
    [[nodiscard]] const unsigned char* data() const { return static_cast<const unsigned char*>(m_address); }
    /// Bytes.
    [[nodiscard]] long size() const { return m_size; }

private:
    void* m_address = nullptr;
    long m_size = 0;
};
