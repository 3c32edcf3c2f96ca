// SPDX-License-Identifier: MIT
#include "host/app/screenshot.h"

#include "host/app/commandline.h"
#include "host/app/hostwindow.h"
#include "host/app/quietmoment.h"

#include <QFile>
#include <QImageWriter>
#include <QPixmap>
#include <QSaveFile>

Screenshot::Screenshot(HostWindow& window, const CommandLine& commandLine, QObject* parent)
    : QObject(parent)
    , m_window(window)
    , m_commandLine(commandLine)
    , m_quietMoment(new QuietMoment(window, this))
{
    connect(m_quietMoment, &QuietMoment::reached, this, &Screenshot::write);
}

void Screenshot::take()
{
    m_quietMoment->wait();
}

void Screenshot::write()
{
    QSaveFile file(QFile::decodeName(m_commandLine.screenshotFile));
    if (!file.open(QIODevice::WriteOnly)) {
        emit finished(tr("The picture cannot be written: ") + file.errorString());
        return;
    }
    QImageWriter writer(&file, "png");
    if (!writer.write(m_window.grab().toImage()))
        emit finished(tr("The picture cannot be written: ") + writer.errorString());
    else if (!file.commit())
        emit finished(tr("The picture cannot be written: ") + file.errorString());
    else
        emit finished({});
}
