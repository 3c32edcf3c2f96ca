// SPDX-License-Identifier: MIT
#pragma once

#include "tests/robust/walkmodel.h"
#include "tests/support/installedhost.h"
#include "tests/support/windowuser.h"

#include <QFont>
#include <QRandomGenerator>
#include <QWidget>

#include <functional>

class QMenu;

/// What is done and the seed of what it is done with, which suits any library, so that any list of steps can be walked.
struct WalkStep
{
    int kind;
    quint32 seed;
};

/// A library, a window over it, and the account of what both have to be.
struct RandomWalk
{
    RandomWalk();
    ~RandomWalk();
    Q_DISABLE_COPY(RandomWalk)

    static int kindsOfSteps();
    /// Does the step in the library or the window and in the account. Answers what is on the screen and should not be,
    /// or the other way round; empty when all is well.
    QString walk(const WalkStep& step);

    int number(int bound) { return random.bounded(bound); }
    QString someTagName();
    QString someGroupName();
    /// 0 when there is none, as below.
    qint64 someTag() { return someTags().value(0); }
    QVector<qint64> someTags();
    /// One that the page shows.
    qint64 someShownTag();
    qint64 someGroup();

    void addTags();
    void dropChip();
    /// Confirms the open dialog; it stays open when the name is taken.
    void enter(const QString& name, bool isTaken, const std::function<void()>& onSuccess);
    /// Opens the menu of a tag or of a category of the page, checks its entries and lets \a choose go on.
    void withTagMenu(const std::function<void(QMenu*, qint64 id)>& choose);
    void withGroupMenu(const std::function<void(QMenu*, qint64 group)>& choose);
    void check(const QString& what, const QString& shown, const QString& expected);
    /// Compares the pixels with the widgets, which takes as long as some ten steps.
    void checkScreen();

    QRandomGenerator random;
    InstalledHost host;
    QWidget frame;   ///< The host's window, in which the tag manager stands beside a panel.
    QWidget* panel;  ///< Takes width from the tag manager while it is shown.
    WindowUser user;
    WalkModel model;
    QString problem;
    bool answersAtOnce = false;
    QFont applicationFont;
    QVector<qint64> filesOfTags;
    QVector<qint64> filesOfGroups;
};
