// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// The folder for what the program keeps for the person (vellum in XDG_DATA_HOME, else in ~/.local/share), made when
/// it is not there, for the person's eyes only. The bytes of an absolute path; empty when the system names no home for
/// the person, or when the folder cannot be made.
[[nodiscard]] QByteArray personalDataFolder();
