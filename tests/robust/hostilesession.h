// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/hostilehost.h"
#include "tests/support/messagecatcher.h"
#include "tests/support/windowuser.h"

#include <memory>

/// A library and somebody who works with it through a window, and with every command. What is done is the same every
/// time, as far as the window is still there to do it.
struct HostileSession
{
    HostileSession();

    /// Carries out every step, the first of which opens a window if none is open; \a before is called with each step's
    /// number.
    void play(const std::function<void(int step)>& before = {});
    /// Opens the window on the page of categories.
    void openCategories();

    MessageCatcher log;
    HostileHost host;
    std::unique_ptr<WindowUser> user;
};

/// What a host does at the worst moment.
struct HostileDeed
{
    const char* name = nullptr;
    void (*run)(HostileSession&) = nullptr;
    bool keepsPage = true;  ///< The page of all tags still follows the library afterwards.
};

const QVector<HostileDeed>& hostileDeeds();
