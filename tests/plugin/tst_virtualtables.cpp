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
    void pluginInterfaces();
    void window();
    void providers();
    void actions();
    void plainRecords();
};

void TestVirtualTables::pluginInterfaces()
{
    QCOMPARE(position(&IPlugin::pluginObject), 0);
    QCOMPARE(position(&IPlugin::pluginId), 1);
    QCOMPARE(position(&IPlugin::pluginInfo), 2);
    QCOMPARE(position(&IPlugin::initialize), 3);
    QCOMPARE(position(&IPlugin::uninitialize), 4);
    QCOMPARE(position(&IPlugin::activate), 5);
    QCOMPARE(position(&IPlugin::deactivate), 6);
    QCOMPARE(position(&IVLTagManagerPlugin::pluginObject), 0);
    QCOMPARE(position(&IVLTagManagerPlugin::createTagManagerWidget), 1);
    QCOMPARE(position(&IVLTagManagerPlugin::setDataProvider), 2);
    QCOMPARE(position(&IVLTagManagerPlugin::clearDataProvider), 3);
    QCOMPARE(position(&IVLTagManagerPlugin::setTagColorProvider), 4);
}

void TestVirtualTables::window()
{
    QCOMPARE(ownPosition<QWidget>(&IVLTagManagerWidget::updateMaximizeButton), 0);
}

void TestVirtualTables::providers()
{
    QCOMPARE(ownPosition<QObject>(&ILibraryDataProvider::tagAction), 6);
    QCOMPARE(ownPosition<QObject>(&ILibraryDataProvider::tagGroupAction), 16);
    QCOMPARE(ownPosition<QObject>(&ILibraryDataProvider::tagManagerDataProvider), 22);
    QCOMPARE(position(&After<IDataProvider>::first), position(&After<QObject>::first));
    QCOMPARE(ownPosition<QObject>(&ITagManagerDataProvider::tagGroup), 7);
    QCOMPARE(ownPosition<QObject>(&ITagManagerDataProvider::tagGroupByName), 8);
    QCOMPARE(ownPosition<QObject>(&ITagManagerDataProvider::tagGroups), 12);
    QCOMPARE(ownPosition<QObject>(&ITagGroupDataProvider::tagCount), 0);
    QCOMPARE(ownPosition<QObject>(&ITagGroupDataProvider::groupName), 2);
    QCOMPARE(ownPosition<QObject>(&ITagGroupDataProvider::groupInfo), 6);
    QCOMPARE(ownPosition<QObject>(&ITagGroupDataProvider::groupId), 7);
    QCOMPARE(ownPosition<QObject>(&ITagGroupDataProvider::tags), 8);
    QCOMPARE(ownPosition<QObject>(&ITagGroupDataProvider::tagsByIds), 11);
    QCOMPARE(ownPosition<QObject>(&ITagGroupDataProvider::tagByName), 12);
    QCOMPARE(ownPosition<QObject>(&ITagDataProvider::fileCount), 0);
    QCOMPARE(ownPosition<QObject>(&ITagDataProvider::name), 2);
    QCOMPARE(ownPosition<QObject>(&ITagDataProvider::tagInfo), 7);
}

void TestVirtualTables::actions()
{
    QCOMPARE(ownPosition<QObject>(&ITagAction::createTags), 0);
    QCOMPARE(ownPosition<QObject>(&ITagAction::renameTag), 1);
    QCOMPARE(ownPosition<QObject>(&ITagAction::setTagColor), 2);
    QCOMPARE(ownPosition<QObject>(&ITagAction::deleteTags), 3);
    QCOMPARE(ownPosition<QObject>(&ITagAction::addTagsToGroups), 4);
    QCOMPARE(ownPosition<QObject>(&ITagAction::removeTagsFromGroups), 7);
    QCOMPARE(ownPosition<QObject>(&ITagGroupAction::addTagGroup), 0);
    QCOMPARE(ownPosition<QObject>(&ITagGroupAction::removeTagGroup), 1);
    QCOMPARE(ownPosition<QObject>(&ITagGroupAction::renameTagGroup), 2);
}

void TestVirtualTables::plainRecords()
{
    QCOMPARE(position(&IResponseInfo::status), 2);
    QCOMPARE(position(&IResponseInfo::message), 3);
    QCOMPARE(position(&IResponseInfo::rejectedTags), 4);
    QCOMPARE(position(&IResponseInfo::rejectedGroups), 5);
    QCOMPARE(position(&IResponseInfo::rejectedFiles), 8);
    QCOMPARE(position(&ITagColorProvider::colorEntries), 1);
    QCOMPARE(position(&ITagColorProvider::color), 5);
    QCOMPARE(position(&ITagInfo::id), 1);
    QCOMPARE(position(&ITagInfo::name), 2);
    QCOMPARE(position(&ITagInfo::colorIndex), 3);
    QCOMPARE(position(&ITagGroupInfo::id), 1);
    QCOMPARE(position(&ITagGroupInfo::name), 2);
}

QTEST_GUILESS_MAIN(TestVirtualTables)
#include "tst_virtualtables.moc"
