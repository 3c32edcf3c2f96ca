// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QByteArray>
#include <QLoggingCategory>
#include <QTest>

#include <functional>

class QWidget;

// Drags of a tag chip without a pointer that anybody moves: the events that the window system would send are sent by
// hand while a real drag is under way.

/// What a chip of that tag carries.
QByteArray chipPayload(qint64 tagId);

/// Starts a drag from \a source, carries out \a steps while it is under way, and gives it up.
void whileDragging(QWidget* source, const std::function<void()>& steps);

/// Brings a drag with that payload, null for none at all, over \a target. Answers whether the target would take it.
bool dragOver(QWidget* target, const QByteArray& payload);

/// Drops it there. Answers whether the target took it.
bool dropOn(QWidget* target, const QByteArray& payload);

/// As QTEST_MAIN, on the "minimal" platform: "offscreen" knows no drags.
#define DRAG_TEST_MAIN(TestClass)                                                                                      \
    int main(int argc, char* argv[])                                                                                   \
    {                                                                                                                  \
        QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));                                       \
        /* In milliseconds: long random walks, and the shrinking of what they find, take longer than tests usually     \
         * may. */                                                                                                     \
        qputenv("QTEST_FUNCTION_TIMEOUT", "1500000");                                                                  \
        qputenv("QT_QPA_PLATFORM", "minimal");                                                                         \
        const QApplication application(argc, argv);                                                                    \
        TestClass test;                                                                                                \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }
