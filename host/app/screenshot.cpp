// SPDX-License-Identifier: MIT
#include "host/app/screenshot.h"

#include "host/app/commands/commandline.h"
#include "host/app/hostwindow.h"
#include "host/app/outputfile.h"
#include "host/app/quietmoment.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPixmap>

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
    QByteArray png;
    QBuffer buffer(&png);
    QImageWriter writer(&buffer, "png");
    const bool encoded = buffer.open(QIODevice::WriteOnly) && writer.write(m_window.grab().toImage());
    const QString error = encoded ? writeOutputFile(m_commandLine.screenshotFile, png) : writer.errorString();
    emit finished(error.isEmpty() ? QString() : tr("The picture cannot be written: %1").arg(error));
}
