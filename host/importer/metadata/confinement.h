// SPDX-License-Identifier: MIT
#pragma once

class QByteArray;

/// What a process does to itself before it looks at the contents of a file, which may be made to take it over. Each
/// step holds until the process ends and for all threads that are started after it.
namespace confinement {

/// Bytes that the process may allocate. The pixels of the largest picture take half of it. Files that are mapped for
/// reading do not count.
constexpr unsigned long long memoryLimit = 1ULL << 30;

/// The first step: closes what was inherited beyond standard input, output and error, ends the process with the thread
/// that has started it, and sets the limits: memory, no core file, no growing file, less urgent than the window.
void limit();

/// The second, once all that the process reads for itself is open: the file system is closed (Landlock), where the
/// kernel can do that.
void closeFileSystem();

/// The last: no call to the system but those that work on what is open already (seccomp). No file, no connection, no
/// process, no thread, no code. Also for the threads that are running. Returns the reason when that cannot be done, and
/// nothing may be read then.
[[nodiscard]] QByteArray closeSystem();

}  // namespace confinement
