// SPDX-License-Identifier: MIT
#include "bench/report.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <cmath>
#include <cstdio>

namespace {

/// The result of the same operation at the next smaller size; null when there is none.
const bench::Result* smallerResult(const QVector<bench::Result>& results, const bench::Result& result)
{
    const bench::Result* smaller = nullptr;
    for (const bench::Result& other : results) {
        const bool comesBefore = other.operation == result.operation && other.n < result.n;
        if (comesBefore && (!smaller || other.n > smaller->n))
            smaller = &other;
    }
    return smaller;
}

double exponent(double value, double smallerValue, int n, int smallerN)
{
    return std::log(value / smallerValue) / std::log(static_cast<double>(n) / smallerN);
}

}  // namespace

void bench::printTable(const QVector<Result>& results)
{
    std::printf("%-28s %8s %14s %14s %8s %8s\n", "operation", "n", "window", "baseline", "ratio", "growth");
    for (const Result& result : results) {
        std::printf("%-28s %8d %14.3f %14.3f %8.3f", qPrintable(result.operation), result.n, result.plugin,
                    result.baseline, result.ratio());
        if (const Result* smaller = smallerResult(results, result))
            std::printf(" %8.2f", exponent(result.plugin, smaller->plugin, result.n, smaller->n));
        std::printf("\n");
    }
    std::printf("Milliseconds; bytes per further tag for memory, bytes for window_memory.\n");
}

bool bench::writeJson(const QVector<Result>& results, const QString& path)
{
    QJsonArray array;
    for (const Result& result : results) {
        array.append(QJsonObject{{QStringLiteral("operation"), result.operation},
                                 {QStringLiteral("n"), result.n},
                                 {QStringLiteral("median_ms"), result.plugin},
                                 {QStringLiteral("baseline_ms"), result.baseline},
                                 {QStringLiteral("ratio"), result.ratio()}});
    }
    QSaveFile file(path);
    const bool written =
        file.open(QIODevice::WriteOnly) && file.write(QJsonDocument(array).toJson()) >= 0 && file.commit();
    if (!written)
        std::fprintf(stderr, "Cannot write %s: %s\n", qPrintable(path), qPrintable(file.errorString()));
    return written;
}
