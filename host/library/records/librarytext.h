// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

/// The library's texts for people: LibraryText::tr(), callable on any thread, under the one context "LibraryText",
/// which lupdate finds by the same name.
class LibraryText
{
    Q_DECLARE_TR_FUNCTIONS(LibraryText)
};
