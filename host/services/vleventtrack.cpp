// SPDX-License-Identifier: MIT
#include <vleventtrack.h>

VlEventTrack::VlEventTrack() = default;

VlEventTrack::~VlEventTrack() = default;

VlEventTrack* VlEventTrack::GetInstance()
{
    static VlEventTrack instance;
    return &instance;
}

void VlEventTrack::CreateTag(int source, const QString& name)
{
    emit signalTracked(QStringLiteral("CreateTag"), {source, name});
}

void VlEventTrack::SendLabelJoin(int value)
{
    emit signalTracked(QStringLiteral("SendLabelJoin"), {value});
}

void VlEventTrack::ClickTagManagerAddBtn(int page)
{
    emit signalTracked(QStringLiteral("ClickTagManagerAddBtn"), {page});
}

void VlEventTrack::SendBClickLabelMenu(const QString& entry, const QString& detail)
{
    emit signalTracked(QStringLiteral("SendBClickLabelMenu"), {entry, detail});
}
