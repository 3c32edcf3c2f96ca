// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Style sheet of the program's own buttons: flat, in the skin's colours.
QString flatButtonStyle();
