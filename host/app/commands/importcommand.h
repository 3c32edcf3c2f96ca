// SPDX-License-Identifier: MIT
#pragma once

struct CommandLine;

/// Imports a folder into a library without a window: progress and problems go to stderr, one line of totals to stdout.
/// Needs a QCoreApplication and runs its event loop until the import has ended.
/// Returns the exit status: 0, 1 when the import failed, 2 when there is no such folder, 130 when interrupted by SIGINT
/// or SIGTERM (what was written until then stays).
int runImportCommand(const CommandLine& commandLine);
