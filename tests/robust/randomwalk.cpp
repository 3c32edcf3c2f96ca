// SPDX-License-Identifier: MIT
#include "tests/robust/randomwalk.h"

#include "dialogs/vltagmodifywidget.h"
#include "pages/ctaggroupitemwidget.h"
#include "taglist/vltaggrouplistview.h"
#include "taglist/vltaglistview.h"
#include "tests/support/chipdrag.h"
#include "tests/support/gestures.h"
#include "tests/support/screenfault.h"

#include <ivltagmanagerwidget.h>

#include <QApplication>
#include <QHBoxLayout>
#include <QMenu>
#include <QScreen>
#include <QScrollBar>
#include <QWindow>

#include <iterator>

/// Of the toolkit, which declares it in a private header.
class Q_DECL_IMPORT QHighDpiScaling
{
public:
    static void setScreenFactor(QScreen* screen, qreal factor);
};

namespace {

constexpr int groupLimit = 8;
constexpr int tagLimit = 60;
constexpr int panelWidth = 300;
constexpr quint32 stepsPerLook = 60;

/// As moving the window to another screen does.
void setScale(QWidget* window, qreal scale)
{
    QHighDpiScaling::setScreenFactor(window->screen(), scale);
    if (!window->windowHandle())
        return;
    // What is painted into gets its new size with the window's.
    window->resize(window->width(), window->height() - 1);
    QEvent change(QEvent::ScreenChangeInternal);
    QCoreApplication::sendEvent(window->windowHandle(), &change);
}

const QVector<void (*)(RandomWalk&)> steps{
    [](RandomWalk& w) { w.addTags(); },
    [](RandomWalk& w) {
        const QVector<qint64> tags = w.someTags();
        w.host.removeTags(tags);
        w.model.removeTags(tags);
    },
    [](RandomWalk& w) {
        const qint64 tag = w.someTag();
        const QString name = w.someTagName();
        if (tag != 0 && w.model.tagId(name) == 0) {
            w.model.renameTag(tag, name);
            w.host.renameTag(tag, name);
        }
    },
    [](RandomWalk& w) {
        if (const qint64 tag = w.someTag()) {
            w.host.setFileCount(tag, w.model.tags[tag].fileCount = w.number(500));
            w.host.setTagColor(tag, w.model.tags[tag].color = w.number(8));
        }
    },
    [](RandomWalk& w) {
        const bool favorite = w.number(2) == 0;
        for (const qint64 id : w.someTags()) {
            w.host.setFavorite(id, favorite);
            w.model.setFavorite(id, favorite);
        }
    },
    [](RandomWalk& w) {
        const QString name = w.someGroupName();
        if (w.model.groups.size() < groupLimit && w.model.groupId(name) == 0) {
            w.host.addGroup(name);
            w.model.addGroup(name);
        }
    },
    [](RandomWalk& w) {
        const qint64 group = w.someGroup();
        w.host.removeGroup(group);
        w.model.removeGroup(group);
    },
    [](RandomWalk& w) {
        const qint64 group = w.someGroup();
        const QString name = w.someGroupName();
        if (group != 0 && w.model.groupId(name) == 0) {
            w.host.renameGroup(group, name);
            w.model.groups[group].name = name;
        }
    },
    [](RandomWalk& w) {
        const qint64 group = w.someGroup();
        const QVector<qint64> tags = w.someTags();
        w.host.addTagsToGroups({group}, tags);
        if (group != 0)
            w.model.groups[group].tags += QSet<qint64>(tags.begin(), tags.end());
    },
    [](RandomWalk& w) {
        const qint64 group = w.someGroup();
        const QVector<qint64> tags = w.someTags();
        w.host.removeTagsFromGroups({group}, tags);
        if (group != 0)
            w.model.groups[group].tags -= QSet<qint64>(tags.begin(), tags.end());
    },
    [](RandomWalk& w) {
        w.answersAtOnce = w.number(2) == 0;
        w.host.setAnswers(w.answersAtOnce ? MemoryHost::Answers::AtOnce : MemoryHost::Answers::Later);
    },
    [](RandomWalk& w) {
        w.model.page = w.number(3);
        w.user.selectPage(w.model.page);
    },
    [](RandomWalk& w) {
        const QString text = QString("|a|b|an|Z|1|nothing|\u56fd").split('|').at(w.number(8));
        if (w.model.page != WindowUser::Categories) {
            w.user.search(text);
            w.model.search(text);
        }
    },
    [](RandomWalk& w) {
        const qint64 id = w.someShownTag();
        // Results of a search ask for no files.
        if (id != 0 && w.model.searches.value(w.model.page).isEmpty()) {
            gestures::doubleClickChip(w.user.list(), w.model.tags[id].name);
            w.check("double click", QString::number(w.filesOfTags.value(0)), QString::number(id));
        }
    },
    [](RandomWalk& w) {
        w.withTagMenu([&w](QMenu* menu, qint64 id) {
            const bool isFavorite = w.model.favorites.contains(id);
            WindowUser::choose(menu, isFavorite ? "Cancel set as Favorite Tag" : "Set as Favorite Tag");
            w.model.setFavorite(id, !isFavorite);
        });
    },
    [](RandomWalk& w) {
        w.withTagMenu([&w](QMenu*, qint64 id) {
            const qint64 group = w.someGroup();
            if (group != 0 && w.user.chooseGroup(w.model.groups[group].name))
                w.model.groups[group].tags.insert(id);
        });
    },
    [](RandomWalk& w) {
        w.withTagMenu([&w](QMenu* menu, qint64 id) {
            if (WindowUser::choose(menu, "Remove the Tag from the Category"))
                w.model.groups[w.model.selectedGroup].tags.remove(id);
        });
    },
    [](RandomWalk& w) {
        w.withTagMenu([&w](QMenu* menu, qint64 id) {
            const QString name = w.someTagName();
            WindowUser::choose(menu, "Rename Tag");
            w.enter(name, w.model.tagId(name) != 0, [&] { w.model.renameTag(id, name); });
        });
    },
    [](RandomWalk& w) {
        w.withTagMenu([&w](QMenu*, qint64 id) { w.user.chooseColor(w.model.tags[id].color = w.number(8)); });
    },
    [](RandomWalk& w) {
        w.withTagMenu([&w](QMenu* menu, qint64 id) {
            const bool isSure = w.number(3) != 0;
            WindowUser::choose(menu, "Delete Tag");
            w.user.answerBox(isSure);
            if (isSure)
                w.model.removeTags({id});
        });
    },
    [](RandomWalk& w) {
        // A tag that the page does not show closes the dialog by the answer alone, and an answer from inside the
        // request comes before anybody waits for it.
        if (w.model.page == WindowUser::Categories && w.model.selectedGroup != 0 && w.answersAtOnce)
            return;
        const QString name = w.someTagName();
        if (w.model.page != WindowUser::Favorites && w.model.tags.size() < tagLimit) {
            w.user.clickCreateTag();
            w.model.search({});
            w.enter(name, w.model.tagId(name) != 0, [&] { w.model.addTag({name}); });
        }
    },
    [](RandomWalk& w) {
        if (w.model.page != WindowUser::Categories)
            return;
        w.model.selectedGroup = w.number(4) == 0 ? 0 : w.someGroup();
        w.user.clickTile(w.user.tile(w.model.groups.value(w.model.selectedGroup).name));
    },
    [](RandomWalk& w) {
        const QString name = w.someGroupName();
        if (w.model.page == WindowUser::Categories && w.model.groups.size() < groupLimit) {
            w.user.clickTile(w.user.addNewTile());
            w.enter(name, w.model.groupId(name) != 0, [&] { w.model.addGroup(name); });
        }
    },
    [](RandomWalk& w) {
        w.withGroupMenu([&w](QMenu* menu, qint64 group) {
            const QString name = w.someGroupName();
            if (WindowUser::choose(menu, "Rename Category"))
                w.enter(name, w.model.groupId(name) != 0, [&] { w.model.groups[group].name = name; });
        });
    },
    [](RandomWalk& w) {
        w.withGroupMenu([&w](QMenu* menu, qint64 group) {
            const bool isSure = w.number(3) != 0;
            if (!WindowUser::choose(menu, "Delete Category"))
                return;
            w.user.answerBox(isSure);
            if (isSure)
                w.model.removeGroup(group);
        });
    },
    [](RandomWalk& w) {
        w.withGroupMenu([&w](QMenu* menu, qint64 group) {
            if (WindowUser::choose(menu, "View Related Files"))
                w.check("category files", QString::number(w.filesOfGroups.value(0)), QString::number(group));
        });
    },
    [](RandomWalk& w) { w.dropChip(); },
    [](RandomWalk& w) { w.frame.resize(900 + w.number(500), 300 + w.number(300)); },
    [](RandomWalk& w) { w.panel->setVisible(!w.panel->isVisible()); },
    [](RandomWalk& w) {
        QFont font = w.applicationFont;
        font.setWeight(w.number(2) == 0 ? QFont::Normal : QFont::Bold);
        font.setStretch(w.number(2) == 0 ? QFont::Unstretched : QFont::Expanded);
        QApplication::setFont(font);
    },
    [](RandomWalk& w) {
        setScale(&w.frame, QVector<qreal>{1, 1, 1, 1.5, 2}.at(w.number(5)));
    },
    [](RandomWalk& w) {
        if (QScrollBar* bar = w.user.scrollBar())
            bar->setValue(w.number(bar->maximum() + 1));
    },
};

}  // namespace

RandomWalk::RandomWalk()
    : panel(new QWidget(&frame))
    , applicationFont(QApplication::font())
{
    // From the start: texts are laid out without hinting where there are scales.
    setScale(&frame, 1);
    panel->setFixedWidth(panelWidth);
    panel->hide();
    auto* row = new QHBoxLayout(&frame);
    row->addWidget(panel);
    row->addWidget(user.window());
    frame.resize(1000, 500);
    frame.show();
    // Tiles show all of a name this short with any font.
    host.renameGroup(MemoryHost::Uncategorized, WalkModel::rootName());
    user.selectPage(WindowUser::AllTags);
    QObject::connect(user.window(), &IVLTagManagerWidget::signalCheckoutTagFile, user.window(),
                     [this](const QVector<qint64>& ids) { filesOfTags = ids; });
    QObject::connect(user.window(), &IVLTagManagerWidget::signalCheckoutGroupFile, user.window(),
                     [this](const QVector<qint64>& ids) { filesOfGroups = ids; });
}

RandomWalk::~RandomWalk()
{
    QApplication::setFont(applicationFont);
    setScale(&frame, 1);
}

int RandomWalk::kindsOfSteps()
{
    return steps.size();
}

QString RandomWalk::walk(const WalkStep& step)
{
    random.seed(step.seed);
    steps.at(step.kind)(*this);
    settle();
    QStringList shown{user.counter()};
    shown += user.tiles();
    shown << user.header();
    for (const QString& name : user.groupChoices())
        shown << QStringLiteral("choice ") + name;
    shown += user.chips();
    QStringList colors;
    for (const TagColorEntry& entry : qAsConst(host.palette()->m_entries))
        colors << entry.color;
    check("window", shown.join('\n'), model.expected(colors).join('\n'));
    if (step.seed % stepsPerLook == 0)
        checkScreen();
    return problem;
}

void RandomWalk::check(const QString& what, const QString& shown, const QString& expected)
{
    if (shown != expected && problem.isEmpty())
        problem = what + QStringLiteral(" shows\n") + shown + QStringLiteral("\ninstead of\n") + expected;
}

void RandomWalk::checkScreen()
{
    // A layout may take some turns of the event loop.
    QString fault = screenFault(&frame);
    for (int turn = 0; turn < 3 && !fault.isEmpty(); ++turn) {
        settle();
        fault = screenFault(&frame);
    }
    check("screen", fault, {});
}

/// Names that share beginnings, sections and letters; none is longer than a dialog takes.
QString RandomWalk::someTagName()
{
    static const QStringList stems{"ant", "Ant",           "bee",          "a",      "b",  "zoo", "7up",
                                   "#x",  "\u00e9t\u00e9", "\u4e2d\u56fd", "\u5b57", "ab", "Zed", "_u"};
    const int suffix = number(5);
    return stems.at(number(stems.size())) + (suffix == 0 ? QString() : QString::number(suffix));
}

QString RandomWalk::someGroupName()
{
    static const QStringList names{"Art", "Book", "art", "Zoo", "\u4e66", "Cup", "1st", "Den", "Elm", "b"};
    return names.at(number(names.size()));
}

QVector<qint64> RandomWalk::someTags()
{
    const QVector<qint64> all(model.tags.keyBegin(), model.tags.keyEnd());
    if (all.isEmpty())
        return {};
    return all.mid(number(all.size()), number(8) == 0 ? all.size() / 2 + 1 : number(3) + 1);
}

qint64 RandomWalk::someShownTag()
{
    QList<qint64> ids = model.shownTags().values();
    std::sort(ids.begin(), ids.end());
    return ids.isEmpty() ? 0 : ids.at(number(ids.size()));
}

qint64 RandomWalk::someGroup()
{
    return model.groups.isEmpty() ? 0 : *std::next(model.groups.keyBegin(), number(model.groups.size()));
}

void RandomWalk::addTags()
{
    QVector<example::NewTag> specs;
    for (int count = number(5) == 0 ? 25 : number(3) + 1; count > 0 && model.tags.size() < tagLimit; --count) {
        const example::NewTag spec{someTagName(), number(8), number(1000)};
        if (model.tagId(spec.name) != 0)
            continue;
        specs << spec;
        model.addTag({spec.name, spec.colorIndex, spec.fileCount});
    }
    host.addTags(specs);
}

void RandomWalk::dropChip()
{
    const qint64 id = someShownTag();
    if (model.page != WindowUser::Categories)
        return;
    const qint64 group = number(5) == 0 ? 0 : someGroup();
    const gestures::ChipPlace chip = gestures::findChip(user.list(), model.tags.value(id).name);
    CTagGroupItemWidget* tile = user.tile(model.groups.value(group).name);
    if (!chip.view || !tile)
        return;
    whileDragging(chip.view, [&] {
        dragOver(tile, chipPayload(id));
        dropOn(tile, chipPayload(id));
    });
    if (group != 0)
        model.groups[group].tags.insert(id);
}

void RandomWalk::enter(const QString& name, bool isTaken, const std::function<void()>& onSuccess)
{
    user.enterName(name);
    if (!isTaken)
        onSuccess();
    settle();
    check("dialog", user.dialog() ? "open" : "closed", isTaken ? "open" : "closed");
    user.closeDialog();
}

void RandomWalk::withTagMenu(const std::function<void(QMenu*, qint64 id)>& choose)
{
    const qint64 id = someShownTag();
    if (id == 0)
        return;
    QMenu* menu = user.openTagMenu(model.tags[id].name);
    check("tag menu", menu ? WindowUser::entries(menu) : QString(), model.tagMenu(id));
    if (!menu)
        return;
    choose(menu, id);
    menu->close();
}

void RandomWalk::withGroupMenu(const std::function<void(QMenu*, qint64 group)>& choose)
{
    if (model.page != WindowUser::Categories)
        return;
    const qint64 group = someGroup();
    QMenu* menu = user.openGroupMenu(model.groups.value(group).name);
    model.selectedGroup = group;
    check("category menu", menu ? WindowUser::entries(menu) : QString(), model.groupMenu(group));
    if (!menu)
        return;
    choose(menu, group);
    menu->close();
}
