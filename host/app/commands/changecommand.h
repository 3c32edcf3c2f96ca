// SPDX-License-Identifier: MIT
#pragma once

struct CommandLine;

/// Puts tags on files, takes them off, merges or renames tags, and prints what that changed; returns the program's exit
/// status. All of it or, when anything is wrong, nothing.
[[nodiscard]] int runChangeCommand(const CommandLine& commandLine);
