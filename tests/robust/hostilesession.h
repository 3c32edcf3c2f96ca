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
    using Step = void (*)(HostileSession&);

    struct NamedStep
    {
        const char* name;
        Step run;
    };

    HostileSession();

    static const QVector<NamedStep>& steps();

    MessageCatcher log;
    HostileHost host;
    std::unique_ptr<WindowUser> user;
};
