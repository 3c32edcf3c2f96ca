// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

/// The library's texts for people, under one translation context. Callable on any thread.
namespace librarytext {

[[nodiscard]] inline QString tr(const char* source)
{
    return QCoreApplication::translate("Library", source);
}

}  // namespace librarytext
