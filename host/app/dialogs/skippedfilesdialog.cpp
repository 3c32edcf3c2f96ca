// SPDX-License-Identifier: MIT
#include "host/app/dialogs/skippedfilesdialog.h"

#include "host/app/widgets/flatbuttonstyle.h"
#include "host/importer/skippedfile.h"

#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

SkippedFilesDialog::SkippedFilesDialog(const QVector<SkippedFile>& files, QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Files left out"));
    resize(640, 360);
    QStringList lines;
    lines.reserve(files.size());
    for (const SkippedFile& file : files)
        lines.append(QString::fromUtf8(file.path) + QLatin1String("\n    ") + file.reason);
    auto* list = new QPlainTextEdit(this);
    list->setReadOnly(true);
    list->setLineWrapMode(QPlainTextEdit::NoWrap);
    list->setPlainText(lines.join(QLatin1Char('\n')));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    // The icons of desktops are made for their own colours.
    buttons->button(QDialogButtonBox::Close)->setIcon(QIcon());
    buttons->setStyleSheet(flatButtonStyle());
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(list);
    layout->addWidget(buttons);
}
