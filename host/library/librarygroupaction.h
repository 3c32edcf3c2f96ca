// SPDX-License-Identifier: MIT
#pragma once

#include <itaggroupaction.h>

#include <QPointer>

class LibraryEngine;

/// Requests that change categories. An object that outlives its library answers every request with a failure.
class LibraryGroupAction final : public ITagGroupAction
{
    Q_OBJECT

public:
    explicit LibraryGroupAction(LibraryEngine* engine);
    ~LibraryGroupAction() override;

    qint64 addTagGroup(const QString& name) override;
    qint64 removeTagGroup(qint64 groupId) override;
    qint64 renameTagGroup(qint64 groupId, const QString& newName) override;

private:
    template <typename Operation>
    qint64 send(Operation operation);

    QPointer<LibraryEngine> m_engine;
};
