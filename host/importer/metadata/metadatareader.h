// SPDX-License-Identifier: MIT
#pragma once

/// The option by which a program is asked to be the reader process of its own import.
constexpr char metadataReaderOption[] = "--read-metadata";

/// The version of what is read from a file. Raised when other facts are read, or read otherwise, so that files which
/// did not change are read again.
constexpr int metadataReaderVersion = 3;

/// The reader process of an import: answers each request with one line of MetadataAnswer (see readerservice). Files
/// that are damaged or made to do harm take only this process with them. Needs no application object. Returns the exit
/// status.
int runMetadataReader();
