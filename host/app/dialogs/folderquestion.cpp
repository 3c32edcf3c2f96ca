// SPDX-License-Identifier: MIT
#include "host/app/dialogs/folderquestion.h"

#include "host/app/widgets/framedmessagebox.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileDialog>
#include <QGuiApplication>
#include <QPushButton>
#include <QStandardPaths>

namespace {

struct FolderQuestion
{
    Q_DECLARE_TR_FUNCTIONS(FolderQuestion)
};

QString firstFolder()
{
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return QFile::exists(pictures) ? pictures : QDir::homePath();
}

bool canAsk()
{
    const QString platform = QGuiApplication::platformName();
    return platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
}

}  // namespace

std::optional<QByteArray> askForPictureFolder()
{
    if (!canAsk())
        return std::nullopt;
    const QString folder = QFileDialog::getExistingDirectory(
        nullptr, FolderQuestion::tr("Open a Folder of Pictures — Vellum"), firstFolder());
    return QFile::encodeName(folder);
}

std::optional<bool> askWhetherMoved(const QByteArray& from, const QByteArray& to)
{
    if (!canAsk())
        return std::nullopt;
    FramedMessageBox question;
    question.setObjectName(QStringLiteral("moved_folder_question"));
    question.setWindowTitle(FolderQuestion::tr("Moved Folder — Vellum"));
    question.setText(FolderQuestion::tr("Was this folder moved?"));
    question.setInformativeText(
        FolderQuestion::tr("The pictures in\n%1\nwere in\n%2\nand are not there any more. Their tags and "
                           "categories are still in its library.")
            .arg(QFile::decodeName(to), QFile::decodeName(from)));
    QPushButton* const yes = question.addButton(FolderQuestion::tr("Moved: Use Its Library"), QMessageBox::AcceptRole);
    QPushButton* const no = question.addButton(FolderQuestion::tr("Another Folder"), QMessageBox::NoRole);
    question.addButton(FolderQuestion::tr("Cancel"), QMessageBox::RejectRole);
    question.setDefaultButton(yes);
    question.exec();
    if (question.clickedButton() != yes && question.clickedButton() != no)
        return std::nullopt;
    return question.clickedButton() == yes;
}
