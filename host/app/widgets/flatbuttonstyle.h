// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Style sheet of the buttons beside the tag manager: flat, in the skin's colours.
QString flatButtonStyle();
