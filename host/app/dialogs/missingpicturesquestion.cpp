// SPDX-License-Identifier: MIT
#include "host/app/dialogs/missingpicturesquestion.h"

#include <QLocale>
#include <QPushButton>

MissingPicturesQuestion::MissingPicturesQuestion(int count, QWidget* parent)
    : FramedMessageBox(parent)
{
    setObjectName(QStringLiteral("missing_pictures_question"));
    setWindowTitle(tr("Remove Missing Pictures"));
    setText(count == 1 ? tr("Remove 1 missing picture from the library?")
                       : tr("Remove %1 missing pictures from the library?").arg(QLocale().toString(count)));
    setInformativeText(tr("Their tags are forgotten. No file is touched."));
    QPushButton* const remove = addButton(tr("Remove"), QMessageBox::DestructiveRole);
    QPushButton* const keep = addButton(tr("Keep"), QMessageBox::RejectRole);
    setDefaultButton(keep);
    setEscapeButton(keep);
    connect(remove, &QPushButton::clicked, this, &MissingPicturesQuestion::removalConfirmed);
}
