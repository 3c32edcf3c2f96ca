// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

class QMimeData;

/// What a drag of pictures carries beside the URLs for other programs: their ids in the library.
namespace filedrag {

void setFiles(QMimeData& data, const QVector<qint64>& ids);
/// Empty for a drag of anything else, and for one out of another process.
[[nodiscard]] QVector<qint64> filesOf(const QMimeData& data);

/// The tag of a chip that is dragged out of the tag manager's window; 0 for a drag of anything else.
[[nodiscard]] qint64 tagOf(const QMimeData& data);

}  // namespace filedrag
