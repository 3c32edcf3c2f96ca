// SPDX-License-Identifier: MIT
#include "host/app/refusaltext.h"

#include <QCoreApplication>

namespace {

struct Refusal
{
    Q_DECLARE_TR_FUNCTIONS(Refusal)
};

}  // namespace

QString refusalText(ChangeKind kind, const QString& reason)
{
    switch (kind) {
    case ChangeKind::CreateTags:
        return Refusal::tr("The tag was not created. %1").arg(reason);
    case ChangeKind::RenameTag:
        return Refusal::tr("The tag was not renamed. %1").arg(reason);
    case ChangeKind::RecolorTag:
        return Refusal::tr("The colour of the tag was not changed. %1").arg(reason);
    case ChangeKind::DeleteTags:
        return Refusal::tr("The tag was not deleted. %1").arg(reason);
    case ChangeKind::AddToCategories:
        return Refusal::tr("The tag was not added. %1").arg(reason);
    case ChangeKind::RemoveFromCategories:
        return Refusal::tr("The tag was not taken out. %1").arg(reason);
    case ChangeKind::CreateCategory:
        return Refusal::tr("The category was not created. %1").arg(reason);
    case ChangeKind::RenameCategory:
        return Refusal::tr("The category was not renamed. %1").arg(reason);
    case ChangeKind::DeleteCategory:
        return Refusal::tr("The category was not deleted. %1").arg(reason);
    case ChangeKind::TagFiles:
        return Refusal::tr("The tags of the pictures were not changed. %1").arg(reason);
    case ChangeKind::MergeTags:
        return Refusal::tr("The tags were not merged. %1").arg(reason);
    default:
        return Refusal::tr("Nothing was changed. %1").arg(reason);
    }
}
