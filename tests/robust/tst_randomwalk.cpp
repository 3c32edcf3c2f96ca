// SPDX-License-Identifier: MIT
#include "tests/robust/randomwalk.h"
#include "tests/robust/shrunk.h"
#include "tests/support/chipdrag.h"
#include "tests/support/messagecatcher.h"

#include <QtTest>

#include <cstdio>

namespace {

constexpr int stepsOfWalk = 400;
constexpr int walksOfRow = 25;
constexpr int longRows = 100;
constexpr quint32 firstSeed = 20240229;

QVector<WalkStep> stepsOf(quint32 seed)
{
    QRandomGenerator random(seed);
    QVector<WalkStep> steps;
    for (int i = 0; i < stepsOfWalk; ++i)
        steps.append({random.bounded(RandomWalk::kindsOfSteps()), random.generate()});
    return steps;
}

/// What is wrong after the first step that goes wrong.
QString problemOf(const QVector<WalkStep>& steps)
{
    RandomWalk walk;
    QString problem;
    for (int i = 0; i < steps.size() && problem.isEmpty(); ++i)
        problem = walk.walk(steps.at(i));
    return problem;
}

/// The few steps that are needed for the problem, and the problem.
QString report(const QVector<WalkStep>& steps)
{
    const auto few = shrunk(steps, [](const QVector<WalkStep>& fewer) { return !problemOf(fewer).isEmpty(); });
    QString text;
    for (const WalkStep& step : few)
        text += QStringLiteral("{%1, %2} ").arg(step.kind).arg(step.seed);
    return text + problemOf(few);
}

}  // namespace

/// Walks of random steps by a host and a person; after each step the window must show what a plain account says, and
/// now and then its pixels must be what its widgets are. VELLUM_SEED walks one walk alone; VELLUM_LONG_TESTS walks a
/// million steps, from a seed that differs each time.
class TestRandomWalk : public QObject
{
    Q_OBJECT

private slots:
    void windowShowsWhatItMust_data()
    {
        QTest::addColumn<quint32>("first");
        QTest::addColumn<int>("walks");
        bool isOne = false;
        const quint32 asked = qEnvironmentVariable("VELLUM_SEED").toUInt(&isOne);
        const bool isLong = qEnvironmentVariableIsSet("VELLUM_LONG_TESTS") && !isOne;
        quint32 first = isOne ? asked : isLong ? QRandomGenerator::global()->generate() : firstSeed;
        // The limit of time that the test library sets holds for each row.
        for (int row = 0; row < (isLong ? longRows : 1); ++row, first += walksOfRow)
            QTest::newRow(QByteArray::number(first)) << first << (isOne ? 1 : walksOfRow);
    }
    void windowShowsWhatItMust()
    {
        const MessageCatcher log;
        QFETCH(const quint32, first);
        QFETCH(const int, walks);
        for (int walk = 0; walk < walks; ++walk) {
            // Told before, so that a crash leaves it behind.
            std::fprintf(stderr, "walk with seed %u\n", first + walk);
            const QVector<WalkStep> steps = stepsOf(first + walk);
            if (!problemOf(steps).isEmpty())
                QFAIL(qPrintable(report(steps)));
        }
        std::fprintf(stderr, "%d walks of %d steps\n", walks, stepsOfWalk);
    }
};

DRAG_TEST_MAIN(TestRandomWalk)
#include "tst_randomwalk.moc"
