// SPDX-License-Identifier: MIT
#pragma once

/// The reader process of an import: reads paths from standard input, each ended by a NUL byte, and answers each with
/// one MetadataAnswer on standard output until standard input ends. Damaged files that crash or exhaust it take only
/// this process with them. Needs no application object. Returns the exit status.
int runMetadataReader();
