// SPDX-License-Identifier: MIT
#include "host/app/dialogs/skippedfilesdialog.h"

#include "host/app/widgets/elidedlabel.h"
#include "host/app/widgets/flatbuttonstyle.h"
#include "host/importer/skippedfile.h"

#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace {

constexpr QSize firstSize(640, 360);
constexpr int margin = 15;

}  // namespace

SkippedFilesDialog::SkippedFilesDialog(const QVector<SkippedFile>& files, QWidget* parent)
    : FrameWindow(parent, Qt::Dialog)
{
    setWindowTitle(tr("Files left out"));
    setWindowModality(Qt::WindowModal);
    QStringList lines;
    lines.reserve(files.size());
    for (const SkippedFile& file : files)
        lines.append(QString::fromUtf8(file.path) + QLatin1String("\n    ") + file.reason);
    setUpContent(lines.join(QLatin1Char('\n')));
    resize(firstSize);
    if (parent)
        placeOver(*parent->window());
}

bool SkippedFilesDialog::isMoveArea(const QPoint& /*pos*/) const
{
    return true;
}

void SkippedFilesDialog::setUpContent(const QString& text)
{
    auto* title = new ElidedLabel(contentWidget());
    title->setText(windowTitle());
    auto* list = new QPlainTextEdit(contentWidget());
    list->setReadOnly(true);
    list->setLineWrapMode(QPlainTextEdit::NoWrap);
    list->setPlainText(text);
    auto* close = new QPushButton(tr("Close"), contentWidget());
    close->setStyleSheet(flatButtonStyle());
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
    auto* layout = new QVBoxLayout(contentWidget());
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addWidget(title);
    layout->addWidget(list);
    layout->addWidget(close, 0, Qt::AlignRight);
}

void SkippedFilesDialog::placeOver(const QWidget& window)
{
    move(window.geometry().center() - rect().center());
}
