// SPDX-License-Identifier: MIT
#pragma once

#include <ilibrarydataprovider.h>

/// The object of an open library that the tag manager is given.
class LibraryProvider final : public ILibraryDataProvider
{
    Q_OBJECT

public:
    LibraryProvider(const QSharedPointer<ITagAction>& tagAction, const QSharedPointer<ITagGroupAction>& groupAction,
                    const QSharedPointer<ITagManagerDataProvider>& manager);
    ~LibraryProvider() override;

    [[nodiscard]] QSharedPointer<ITagAction> tagAction() const override;
    [[nodiscard]] QSharedPointer<ITagGroupAction> tagGroupAction() const override;
    [[nodiscard]] QSharedPointer<ITagManagerDataProvider> tagManagerDataProvider() const override;

private:
    QSharedPointer<ITagAction> m_tagAction;
    QSharedPointer<ITagGroupAction> m_groupAction;
    QSharedPointer<ITagManagerDataProvider> m_manager;
};
