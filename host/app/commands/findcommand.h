// SPDX-License-Identifier: MIT
#pragma once

struct CommandLine;

/// Prints the files that a query finds; returns the program's exit status. Reads only.
[[nodiscard]] int runFindCommand(const CommandLine& commandLine);
