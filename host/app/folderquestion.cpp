// SPDX-License-Identifier: MIT
#include "host/app/folderquestion.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileDialog>
#include <QGuiApplication>
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

}  // namespace

std::optional<QByteArray> askForPictureFolder()
{
    const QString platform = QGuiApplication::platformName();
    if (platform == QLatin1String("offscreen") || platform == QLatin1String("minimal"))
        return std::nullopt;
    const QString folder = QFileDialog::getExistingDirectory(
        nullptr, FolderQuestion::tr("Open a Folder of Pictures — Vellum"), firstFolder());
    return QFile::encodeName(folder);
}
