// SPDX-License-Identifier: MIT
#include "tests/robust/randomwalk.h"
#include "tests/support/messagecatcher.h"

#include <QElapsedTimer>
#include <QtTest>

#include <cstdio>

namespace {

constexpr int stepsOfWalk = 400;
constexpr quint32 firstSeed = 20240229;

/// The steps of the walk with that seed.
QVector<WalkStep> stepsOf(quint32 seed)
{
    QRandomGenerator numbers(seed);
    QVector<WalkStep> steps;
    for (int i = 0; i < stepsOfWalk; ++i)
        steps << WalkStep::random(numbers);
    return steps;
}

/// What is wrong after the first step that goes wrong, with \a walked set to the steps up to that one.
QString problemOf(const QVector<WalkStep>& steps, QVector<WalkStep>* walked = nullptr)
{
    RandomWalk walk;
    for (int i = 0; i < steps.size(); ++i) {
        QString problem = walk.walk(steps.at(i));
        if (problem.isEmpty())
            continue;
        if (walked)
            *walked = steps.mid(0, i + 1);
        return problem;
    }
    return {};
}

QString report(quint32 seed, const QVector<WalkStep>& steps)
{
    const QVector<WalkStep> few =
        shrunk(steps, [](const QVector<WalkStep>& fewer) { return !problemOf(fewer).isEmpty(); });
    QString text = QStringLiteral("seed %1, %2 steps:").arg(seed).arg(few.size());
    for (const WalkStep& step : few)
        text += QLatin1Char(' ') + step.text();
    return text + QLatin1Char('\n') + problemOf(few);
}

bool isLong()
{
    return qEnvironmentVariableIsSet("VELLUM_LONG_TESTS");
}

}  // namespace

/// Walks of random steps by a host and a person; after each step the window must show what a plain account says.
/// VELLUM_SEED walks one walk alone; VELLUM_LONG_TESTS walks for minutes, from a seed that differs each time.
class TestRandomWalk : public QObject
{
    Q_OBJECT

private slots:
    void windowShowsWhatItMust();
    void failuresShrink();
};

void TestRandomWalk::windowShowsWhatItMust()
{
    const MessageCatcher log;
    bool isOne = false;
    const quint32 asked = qEnvironmentVariable("VELLUM_SEED").toUInt(&isOne);
    const quint32 first = isOne ? asked : isLong() ? QRandomGenerator::global()->generate() : firstSeed;
    const qint64 limit = isLong() ? 300000 : 15000;
    QElapsedTimer elapsed;
    elapsed.start();
    int walks = 0;
    for (quint32 seed = first; walks == 0 || (!isOne && elapsed.elapsed() < limit); ++seed, ++walks) {
        // Told before, so that a crash leaves it behind.
        std::fprintf(stderr, "walk with seed %u\n", seed);
        QVector<WalkStep> walked;
        if (!problemOf(stepsOf(seed), &walked).isEmpty())
            QFAIL(qPrintable(report(seed, walked)));
    }
    std::fprintf(stderr, "%d walks of %d steps\n", walks, stepsOfWalk);
}

void TestRandomWalk::failuresShrink()
{
    QVector<WalkStep> steps = stepsOf(1);
    steps[100] = {WalkStep::SelectPage, 1, 2, 3};
    steps[300] = {WalkStep::Search, 4, 5, 6};
    const auto holdsBoth = [](const QVector<WalkStep>& fewer) {
        const auto holds = [&](int kind, int a) {
            return std::any_of(fewer.begin(), fewer.end(),
                               [&](const WalkStep& each) { return each.kind == kind && each.a == a; });
        };
        return holds(WalkStep::SelectPage, 1) && holds(WalkStep::Search, 4);
    };
    QCOMPARE(shrunk(steps, holdsBoth).size(), 2);
}

int main(int argc, char* argv[])
{
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    // Long walks, and the shrinking of what they find, take longer than test functions usually may; in milliseconds.
    qputenv("QTEST_FUNCTION_TIMEOUT", "1500000");
    // The offscreen platform knows no drags.
    qputenv("QT_QPA_PLATFORM", "minimal");
    QApplication application(argc, argv);
    TestRandomWalk test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_randomwalk.moc"
