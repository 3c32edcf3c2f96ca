// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QtTest>

/// Set in the environment, makes the reader processes of a test program do harm: a path with "crash" in it ends the
/// process, one with "hang" is never answered, one with "babble" is answered by nonsense.
constexpr char harmfulReaderVariable[] = "VELLUM_TEST_HARMFUL_READER";
/// As the first argument, makes a test program do what the program vellum does without a display.
constexpr char commandArgument[] = "--command";

/// The exit status when the test program was started as a reader process or for a command; else -1.
int runAsHelper(int argc, char** argv);

/// As QTEST_GUILESS_MAIN, for tests that need reader processes or commands.
#define READER_TEST_MAIN(TestClass)                                                                                    \
    int main(int argc, char** argv)                                                                                    \
    {                                                                                                                  \
        const int status = runAsHelper(argc, argv);                                                                    \
        if (status >= 0)                                                                                               \
            return status;                                                                                             \
        QCoreApplication app(argc, argv);                                                                              \
        TestClass test;                                                                                                \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }
