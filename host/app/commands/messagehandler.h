// SPDX-License-Identifier: MIT
#pragma once

/// Prints messages of Qt and of the program to stderr with control characters escaped, as they may quote names and
/// contents of files.
void installMessageHandler();
