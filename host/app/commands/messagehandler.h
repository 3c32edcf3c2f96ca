// SPDX-License-Identifier: MIT
#pragma once

/// From now on, messages of Qt and of the program go to stderr with everything escaped that could steer a terminal:
/// they may quote names and contents of files.
void installMessageHandler();
