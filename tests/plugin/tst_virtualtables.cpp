// SPDX-License-Identifier: MIT
#include <ilibrarydataprovider.h>
#include <iplugin.h>
#include <iresponseinfo.h>
#include <itagaction.h>
#include <itagcolorprovider.h>
#include <itagdataprovider.h>
#include <itaggroupaction.h>
#include <itaggroupdataprovider.h>
#include <itagmanagerdataprovider.h>
#include <ivltagmanagercontrol.h>
#include <ivltagmanagerplugin.h>
#include <ivltagmanagerwidget.h>

#include <QTest>

#include <cstring>

namespace {

/// Position in the virtual table, read from the pointer's representation in the Itanium C++ ABI: its first word is the
/// offset in bytes, plus one where the flag of a virtual function is kept there.
template <typename Member>
int position(Member member)
{
    static_assert(sizeof(member) == 2 * sizeof(std::ptrdiff_t), "not the representation of the Itanium C++ ABI");
    std::ptrdiff_t words[2];
    std::memcpy(words, &member, sizeof(words));
#if defined(Q_PROCESSOR_ARM)
    return static_cast<int>(words[0] / std::ptrdiff_t(sizeof(void*)));
#else
    return static_cast<int>((words[0] - 1) / std::ptrdiff_t(sizeof(void*)));
#endif
}

/// Adds the first virtual operation after those of Base.
template <typename Base>
class After : public Base
{
public:
    virtual void first() {}
};

/// Positions among the operations that a class adds to Base.
template <typename Base, typename... Members>
QVector<int> ownPositions(Members... members)
{
    return {position(members) - position(&After<Base>::first)...};
}

template <typename... Members>
QVector<int> positions(Members... members)
{
    return {position(members)...};
}

}  // namespace

class TestVirtualTables : public QObject
{
    Q_OBJECT

private slots:
    void operationsStandWhereHostsCallThem()
    {
        using Positions = QVector<int>;
        QCOMPARE(positions(&IPlugin::pluginObject, &IPlugin::pluginId, &IPlugin::pluginInfo, &IPlugin::initialize,
                           &IPlugin::uninitialize, &IPlugin::activate, &IPlugin::deactivate),
                 Positions({0, 1, 2, 3, 4, 5, 6}));
        using Manager = IVLTagManagerPlugin;
        QCOMPARE(positions(&Manager::pluginObject, &Manager::createTagManagerWidget, &Manager::setDataProvider,
                           &Manager::clearDataProvider, &Manager::setTagColorProvider),
                 Positions({0, 1, 2, 3, 4}));
        QCOMPARE(ownPositions<QWidget>(&IVLTagManagerWidget::updateMaximizeButton), Positions({0}));
        using Control = IVLTagManagerControl;
        QCOMPARE(positions(&Control::events, &Control::currentPage, &Control::showPage, &Control::searchText,
                           &Control::setSearchText, &Control::focusSearch, &Control::isSearchFocused,
                           &Control::searchResults, &Control::itemAt, &Control::revealTag, &Control::selectedCategory,
                           &Control::selectCategory, &Control::isMoveArea, &Control::isNameBeingTyped,
                           &Control::allowNameAgain, &Control::setChipsDraggable, &Control::scrollPosition,
                           &Control::setScrollPosition, &Control::reserved31),
                 Positions({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 31}));
        QCOMPARE(ownPositions<QObject>(&After<IDataProvider>::first), Positions({0}));
        using Library = ILibraryDataProvider;
        QCOMPARE(ownPositions<QObject>(&Library::tagAction, &Library::tagGroupAction, &Library::tagManagerDataProvider),
                 Positions({6, 16, 22}));
        using Groups = ITagManagerDataProvider;
        QCOMPARE(ownPositions<QObject>(&Groups::tagGroup, &Groups::tagGroupByName, &Groups::tagGroups),
                 Positions({7, 8, 12}));
        using Group = ITagGroupDataProvider;
        QCOMPARE(ownPositions<QObject>(&Group::tagCount, &Group::groupName, &Group::groupInfo, &Group::groupId,
                                       &Group::tags, &Group::tagsByIds, &Group::tagByName),
                 Positions({0, 2, 6, 7, 8, 11, 12}));
        using Tag = ITagDataProvider;
        QCOMPARE(ownPositions<QObject>(&Tag::fileCount, &Tag::name, &Tag::tagInfo), Positions({0, 2, 7}));
        using Action = ITagAction;
        QCOMPARE(ownPositions<QObject>(&Action::createTags, &Action::renameTag, &Action::setTagColor,
                                       &Action::deleteTags, &Action::addTagsToGroups, &Action::removeTagsFromGroups),
                 Positions({0, 1, 2, 3, 4, 7}));
        using GroupAction = ITagGroupAction;
        QCOMPARE(ownPositions<QObject>(&GroupAction::addTagGroup, &GroupAction::removeTagGroup,
                                       &GroupAction::renameTagGroup),
                 Positions({0, 1, 2}));
        using Answer = IResponseInfo;
        QCOMPARE(positions(&Answer::status, &Answer::message, &Answer::rejectedTags, &Answer::rejectedGroups,
                           &Answer::rejectedFiles),
                 Positions({2, 3, 4, 5, 8}));
        QCOMPARE(positions(&ITagColorProvider::colorEntries, &ITagColorProvider::color), Positions({1, 5}));
        QCOMPARE(positions(&ITagInfo::id, &ITagInfo::name, &ITagInfo::colorIndex), Positions({1, 2, 3}));
        QCOMPARE(positions(&ITagGroupInfo::id, &ITagGroupInfo::name), Positions({1, 2}));
    }
};

QTEST_GUILESS_MAIN(TestVirtualTables)
#include "tst_virtualtables.moc"
