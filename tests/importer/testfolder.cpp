// SPDX-License-Identifier: MIT
#include "tests/importer/testfolder.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <system_error>

TestFolder::TestFolder()
    : m_path(QByteArray::fromStdString(std::filesystem::canonical(std::filesystem::temp_directory_path()).string()) +
             "/vellum-test-XXXXXX")
{
    if (!mkdtemp(m_path.data()))
        throw std::runtime_error("No temporary folder");
}

TestFolder::~TestFolder()
{
    std::error_code error;
    std::filesystem::remove_all(m_path.toStdString(), error);
}
