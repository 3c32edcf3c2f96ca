// SPDX-License-Identifier: MIT
#pragma once

#include <QtTest>

// What is waited for may be done by another thread or process, which gets no time for seconds on a busy machine. Only a
// failure waits this long, in milliseconds.
#undef QTRY_VERIFY
#undef QTRY_VERIFY2
#undef QTRY_COMPARE
#define QTRY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT(condition, 60000)
#define QTRY_VERIFY2(condition, message) QTRY_VERIFY2_WITH_TIMEOUT(condition, message, 60000)
#define QTRY_COMPARE(actual, expected) QTRY_COMPARE_WITH_TIMEOUT(actual, expected, 60000)
