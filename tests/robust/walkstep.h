// SPDX-License-Identifier: MIT
#pragma once

#include <QRandomGenerator>
#include <QString>
#include <QVector>

/// One step of a random walk. The numbers mean something to the kind of step only, taken modulo what there is, so that
/// any list of steps can be walked.
struct WalkStep
{
    enum Kind
    {
        HostAddsTags,
        HostRemovesTags,
        HostRenamesTag,
        HostChangesTag,
        HostFavors,
        HostAddsGroups,
        HostRemovesGroups,
        HostRenamesGroup,
        HostFilesTags,
        HostUnfilesTags,
        SelectPage,
        Search,
        ClickTile,
        DoubleClickChip,
        FavorByMenu,
        FileByMenu,
        UnfileByMenu,
        RenameByMenu,
        ColorByMenu,
        DeleteByMenu,
        CreateTag,
        CreateGroup,
        RenameGroup,
        DeleteGroup,
        ViewGroupFiles,
        DropChip,
        AnswerLater,
        KindCount
    };

    int kind;
    int a;
    int b;
    int c;

    static WalkStep random(QRandomGenerator& numbers)
    {
        constexpr int most = 1 << 20;
        return {numbers.bounded(int(KindCount)), numbers.bounded(most), numbers.bounded(most), numbers.bounded(most)};
    }

    [[nodiscard]] QString text() const { return QStringLiteral("{%1, %2, %3, %4}").arg(kind).arg(a).arg(b).arg(c); }
};

/// Leaves out as many steps as can be spared while \a fails stays true.
template <typename Fails>
QVector<WalkStep> shrunk(QVector<WalkStep> steps, const Fails& fails)
{
    for (int size = steps.size() / 2; size > 0;) {
        bool spared = false;
        for (int start = 0; start + size <= steps.size();) {
            QVector<WalkStep> fewer = steps;
            fewer.remove(start, size);
            if (fails(fewer)) {
                steps = fewer;
                spared = true;
            } else {
                start += size;
            }
        }
        if (size > 1 || !spared)
            size /= 2;
    }
    return steps;
}
