// SPDX-License-Identifier: MIT
#pragma once

#include "tests/robust/walkmodel.h"
#include "tests/robust/walkstep.h"
#include "tests/support/installedhost.h"
#include "tests/support/windowuser.h"

/// A library, a window over it, and the account of what both have to be.
class RandomWalk
{
public:
    RandomWalk();
    ~RandomWalk();

    /// Does the step in the library or the window and in the account. Answers what is on the screen and should not be,
    /// or the other way round; empty when all is well.
    QString walk(const WalkStep& step);

private:
    void hostStep(const WalkStep& step);
    void tagStep(const WalkStep& step);
    void menuStep(const WalkStep& step, qint64 id);
    void groupStep(const WalkStep& step);
    void addTags(const WalkStep& step);
    void enter(const QString& name, bool isTaken, const std::function<void()>& onSuccess);
    void check(const QString& what, const QString& shown, const QString& expected);
    void dropChip(const WalkStep& step);
    [[nodiscard]] QVector<qint64> someTags(const WalkStep& step) const;
    [[nodiscard]] qint64 someGroup(int number) const;
    [[nodiscard]] QStringList shown() const;

    InstalledHost m_host;
    WindowUser m_user;
    WalkModel m_model;
    QString m_problem;
    bool m_answersAtOnce = false;
    QVector<qint64> m_filesOfTags;
    QVector<qint64> m_filesOfGroups;
};
