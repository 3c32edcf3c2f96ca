// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/patience.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QtTest>

/// Set in the environment, makes the reader processes of a test program do harm: a file's name with "crash" in it ends
/// the process, one with "hang" is never answered, one with "babble" is answered by nonsense, one with "endless" by
/// more than an answer may hold, and one with "liberties" by a keyword that names what a confined process should not be
/// able to do.
constexpr char harmfulReaderVariable[] = "VELLUM_TEST_HARMFUL_READER";
/// As the first argument, makes a test program do what the program vellum does without a display.
constexpr char commandArgument[] = "--command";
/// As the first argument, makes a test program read the file that is named next, and never end.
constexpr char readArgument[] = "--read";

/// The exit status when the test program was started as a reader process or for a command; else -1.
int runAsHelper(int argc, char** argv);

/// As QTEST_GUILESS_MAIN, for tests that need reader processes or commands.
#define READER_TEST_MAIN(TestClass) READER_TEST_MAIN_WITH(QCoreApplication, TestClass)

/// As QTEST_MAIN, the same; the program includes QApplication.
#define READER_GUI_TEST_MAIN(TestClass) READER_TEST_MAIN_WITH(QApplication, TestClass)

#define READER_TEST_MAIN_WITH(Application, TestClass)                                                                  \
    int main(int argc, char** argv)                                                                                    \
    {                                                                                                                  \
        const int status = runAsHelper(argc, argv);                                                                    \
        if (status >= 0)                                                                                               \
            return status;                                                                                             \
        Application app(argc, argv);                                                                                   \
        TestClass test;                                                                                                \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }
