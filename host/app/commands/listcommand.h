// SPDX-License-Identifier: MIT
#pragma once

struct CommandLine;

/// Prints the tags, categories or files of a library to stdout. Opens the library read-only, also while a window has it
/// open. Needs a QCoreApplication.
/// Returns the exit status: 0, 1 if the library cannot be read or stdout cannot be written, 2 if there is no such file.
int runListCommand(const CommandLine& commandLine);
