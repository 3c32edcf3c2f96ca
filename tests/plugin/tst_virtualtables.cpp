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

/// Position among the operations that a class adds to Base.
template <typename Base, typename Member>
int ownPosition(Member member)
{
    return position(member) - position(&After<Base>::first);
}

}  // namespace

class TestVirtualTables : public QObject
{
    Q_OBJECT

private slots:
    void operationsStandWhereHostsCallThem();
};

void TestVirtualTables::operationsStandWhereHostsCallThem()
{
    using Positions = QVector<int>;
    QCOMPARE((Positions{position(&IPlugin::pluginObject), position(&IPlugin::pluginId), position(&IPlugin::pluginInfo),
                        position(&IPlugin::initialize), position(&IPlugin::uninitialize), position(&IPlugin::activate),
                        position(&IPlugin::deactivate)}),
             (Positions{0, 1, 2, 3, 4, 5, 6}));
    using Manager = IVLTagManagerPlugin;
    QCOMPARE((Positions{position(&Manager::pluginObject), position(&Manager::createTagManagerWidget),
                        position(&Manager::setDataProvider), position(&Manager::clearDataProvider),
                        position(&Manager::setTagColorProvider)}),
             (Positions{0, 1, 2, 3, 4}));
    QCOMPARE(ownPosition<QWidget>(&IVLTagManagerWidget::updateMaximizeButton), 0);
    QCOMPARE(position(&After<IDataProvider>::first), position(&After<QObject>::first));
    using Library = ILibraryDataProvider;
    QCOMPARE((Positions{ownPosition<QObject>(&Library::tagAction), ownPosition<QObject>(&Library::tagGroupAction),
                        ownPosition<QObject>(&Library::tagManagerDataProvider)}),
             (Positions{6, 16, 22}));
    using Groups = ITagManagerDataProvider;
    QCOMPARE((Positions{ownPosition<QObject>(&Groups::tagGroup), ownPosition<QObject>(&Groups::tagGroupByName),
                        ownPosition<QObject>(&Groups::tagGroups)}),
             (Positions{7, 8, 12}));
    using Group = ITagGroupDataProvider;
    QCOMPARE((Positions{ownPosition<QObject>(&Group::tagCount), ownPosition<QObject>(&Group::groupName),
                        ownPosition<QObject>(&Group::groupInfo), ownPosition<QObject>(&Group::groupId),
                        ownPosition<QObject>(&Group::tags), ownPosition<QObject>(&Group::tagsByIds),
                        ownPosition<QObject>(&Group::tagByName)}),
             (Positions{0, 2, 6, 7, 8, 11, 12}));
    using Tag = ITagDataProvider;
    QCOMPARE((Positions{ownPosition<QObject>(&Tag::fileCount), ownPosition<QObject>(&Tag::name),
                        ownPosition<QObject>(&Tag::tagInfo)}),
             (Positions{0, 2, 7}));
    using Action = ITagAction;
    QCOMPARE((Positions{ownPosition<QObject>(&Action::createTags), ownPosition<QObject>(&Action::renameTag),
                        ownPosition<QObject>(&Action::setTagColor), ownPosition<QObject>(&Action::deleteTags),
                        ownPosition<QObject>(&Action::addTagsToGroups),
                        ownPosition<QObject>(&Action::removeTagsFromGroups)}),
             (Positions{0, 1, 2, 3, 4, 7}));
    using GroupAction = ITagGroupAction;
    QCOMPARE(
        (Positions{ownPosition<QObject>(&GroupAction::addTagGroup), ownPosition<QObject>(&GroupAction::removeTagGroup),
                   ownPosition<QObject>(&GroupAction::renameTagGroup)}),
        (Positions{0, 1, 2}));
    using Answer = IResponseInfo;
    QCOMPARE((Positions{position(&Answer::status), position(&Answer::message), position(&Answer::rejectedTags),
                        position(&Answer::rejectedGroups), position(&Answer::rejectedFiles)}),
             (Positions{2, 3, 4, 5, 8}));
    QCOMPARE((Positions{position(&ITagColorProvider::colorEntries), position(&ITagColorProvider::color)}),
             (Positions{1, 5}));
    QCOMPARE((Positions{position(&ITagInfo::id), position(&ITagInfo::name), position(&ITagInfo::colorIndex)}),
             (Positions{1, 2, 3}));
    QCOMPARE((Positions{position(&ITagGroupInfo::id), position(&ITagGroupInfo::name)}), (Positions{1, 2}));
}

QTEST_GUILESS_MAIN(TestVirtualTables)
#include "tst_virtualtables.moc"
