// SPDX-License-Identifier: MIT
#pragma once

/// The option by which a program is asked to be the reader process of its own import.
constexpr char metadataReaderOption[] = "--read-metadata";
/// The first line that a reader process writes, once it is ready.
constexpr char metadataReaderReady[] = "ready\n";

/// The reader process of an import: reads paths from standard input, each ended by a NUL byte, and answers each with
/// one line of MetadataAnswer on standard output until standard input ends. Damaged files that crash or exhaust it take
/// only this process with them. Needs no application object. Returns the exit status.
int runMetadataReader();
