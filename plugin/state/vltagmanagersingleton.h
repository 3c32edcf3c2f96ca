// SPDX-License-Identifier: MIT
#pragma once

#include <itagcolorprovider.h>

#include <QColor>
#include <QObject>
#include <QSharedPointer>
#include <QVector>

class ILibraryDataProvider;
class IResponseInfo;
class ITagAction;
class ITagDataProvider;
class ITagGroupAction;
class ITagGroupDataProvider;
class ITagManagerDataProvider;

/// The one place through which every widget reaches the host's data, and the relay of changes of categories between
/// widgets.
///
/// GUI thread only, but for the first call of instance(). Without a library every operation answers empty: null
/// pointers, no categories, no colours. Nothing is followed here: widgets connect to the host's providers themselves.
class VLTagManagerSingleton : public QObject
{
    Q_OBJECT

public:
    /// The one object of the process, created by the first call and destroyed at process exit.
    static VLTagManagerSingleton* instance();

    /// Drops everything derived from the old library before it keeps the new one; null means that no library is open.
    void setDataProvider(const QSharedPointer<ILibraryDataProvider>& provider);
    /// Drops the library and everything derived from it. The palette stays.
    void clear();
    /// The palette stays owned by the host.
    void setTagColorProvider(ITagColorProvider* provider);

    /// Fetched from the library on first demand, then kept until the library changes.
    const QSharedPointer<ITagManagerDataProvider>& tagManagerProvider();
    /// The pseudo-category of every tag; fetched on first demand, then kept until the library changes.
    const QSharedPointer<ITagGroupDataProvider>& allTagsProvider();
    /// The fixed category of the Tag Categories page, asked of the host at every call.
    QSharedPointer<ITagGroupDataProvider> rootGroupProvider();
    /// The favourites, asked of the host at every call.
    QSharedPointer<ITagGroupDataProvider> favoriteTagsProvider();
    /// Null until something has called tagManagerProvider(): a look-up never fetches it.
    QSharedPointer<ITagGroupDataProvider> tagGroupProvider(qint64 g_id) const;
    /// Null until something has called tagManagerProvider(): a look-up never fetches it.
    QSharedPointer<ITagGroupDataProvider> tagGroupByName(const QString& name) const;
    /// Fills \a out with the user categories and returns their number.
    int tagGroups(QVector<QSharedPointer<ITagGroupDataProvider>>& out);
    /// Null for an unknown id, and until something has called tagManagerProvider().
    QSharedPointer<ITagDataProvider> tagProvider(qint64 t_id);
    /// Whether the favourites hold the tag.
    bool isFavoriteTag(qint64 t_id);

    QSharedPointer<ITagAction> tagAction() const;
    QSharedPointer<ITagGroupAction> tagGroupAction() const;
    /// True when the status is 0 and the response rejects no tag, no category and no file. A null response is a
    /// failure.
    bool isResponseSucceeded(const QSharedPointer<const IResponseInfo>& response) const;

    /// The palette's entries in their order.
    const QVector<TagColorEntry>& tagColors() const;
    /// The palette's answer as it is, or an invalid colour without a palette.
    QColor tagColor(int index) const;

signals:
    void signalAddGroupAction(qint64 g_id);
    void signalRemoveGroupAction(qint64 g_id);
    void signalUpdateGroupAction(qint64 g_id);

private:
    VLTagManagerSingleton();
    ~VLTagManagerSingleton() override;

    QSharedPointer<ILibraryDataProvider> m_dataProvider;
    ITagColorProvider* m_colorProvider = nullptr;
    QSharedPointer<ITagManagerDataProvider> m_tagManagerProvider;
    QSharedPointer<ITagGroupDataProvider> m_allTagsProvider;
};
