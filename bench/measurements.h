// SPDX-License-Identifier: MIT
#pragma once

#include "bench/result.h"
#include "bench/side.h"

#include <QHash>
#include <QStringList>
#include <QVector>

namespace bench {

/// What fresh processes of this program have measured, over all runs. Problems are told on the standard error.
class Measurements
{
public:
    /// Runs this program once with \a arguments and keeps the lines "operation value shown" that it writes. False when
    /// the process failed or showed something else than the other side after the same operation.
    bool measure(SideKind side, const QStringList& arguments);

    /// In the order in which they were done.
    [[nodiscard]] QStringList operations() const { return m_operations; }
    /// The medians of one operation.
    [[nodiscard]] Result result(const QString& operation, int n) const;

private:
    bool keepLine(SideKind side, const QByteArray& line);

    QStringList m_operations;
    QHash<QString, qint64> m_shown;
    QHash<QString, QVector<double>> m_values[2];  ///< By side.
};

/// Writes a line to the standard error.
void tell(const QString& text);

/// The name of the side in arguments of this program.
QString sideName(SideKind side);
/// Writes the line of one operation to the standard output.
void reportLine(const QString& operation, double value, qint64 shown);

}  // namespace bench
