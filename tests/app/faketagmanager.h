// SPDX-License-Identifier: MIT
#pragma once

#include <ivltagmanagercontrol.h>
#include <ivltagmanagerplugin.h>
#include <ivltagmanagerwidget.h>

#include <QPointer>
#include <QPushButton>

/// A tag manager window as bare as the interfaces allow: a strip with a button above a page, and a record of the calls.
class FakeTagWindow : public IVLTagManagerWidget, public IVLTagManagerControl
{
    Q_OBJECT
    Q_INTERFACES(IVLTagManagerControl)

public:
    static constexpr int stripHeight = 83;  // logical pixels

    explicit FakeTagWindow(QWidget* parent)
        : IVLTagManagerWidget(parent)
        , button(new QPushButton(this))
        , m_events(new VLTagManagerEvents(this))
    {
        button->setGeometry(20, 30, 96, 28);
    }

    void updateMaximizeButton(bool maximized) override { told.append(maximized); }

    [[nodiscard]] VLTagManagerEvents* events() const override { return m_events; }
    [[nodiscard]] TagManagerPage currentPage() const override { return page; }
    bool showPage(TagManagerPage shown) override
    {
        page = shown;
        return true;
    }
    [[nodiscard]] QString searchText() const override { return {}; }
    bool setSearchText(const QString& /*text*/) override { return false; }
    bool focusSearch() override
    {
        isSearching = page != TagManagerPage::Categories;
        return isSearching;
    }
    [[nodiscard]] bool isSearchFocused() const override { return isSearching; }
    QVector<qint64> searchResults(int limit) override { return results.mid(0, limit); }
    [[nodiscard]] TagManagerItem itemAt(const QPoint& /*pos*/) const override { return {}; }
    bool revealTag(qint64 /*tagId*/) override { return false; }
    [[nodiscard]] qint64 selectedCategory() const override { return 0; }
    bool selectCategory(qint64 /*categoryId*/) override { return false; }
    [[nodiscard]] bool isMoveArea(const QPoint& pos) const override
    {
        return rect().contains(pos) && pos.y() < stripHeight;
    }
    [[nodiscard]] bool isNameBeingTyped() const override { return false; }
    void allowNameAgain() override { ++namesAllowed; }
    void setChipsDraggable(bool /*onEveryPage*/) override {}
    [[nodiscard]] int scrollPosition() const override { return 0; }
    void setScrollPosition(int /*pixels*/) override {}

    QPushButton* button;
    TagManagerPage page = TagManagerPage::AllTags;
    QVector<bool> told;
    QVector<qint64> results;
    bool isSearching = false;
    int namesAllowed = 0;

private:
    VLTagManagerEvents* m_events;
};

/// A plug-in that makes such windows.
class FakePlugin : public QObject, public IVLTagManagerPlugin
{
    Q_OBJECT
    Q_INTERFACES(IVLTagManagerPlugin)

public:
    QObject* pluginObject() override { return this; }
    IVLTagManagerWidget* createTagManagerWidget(QWidget* parent) override
    {
        m_window = new FakeTagWindow(parent);
        return m_window;
    }
    void setDataProvider(const QSharedPointer<ILibraryDataProvider>& /*provider*/) override {}
    void clearDataProvider() override {}
    void setTagColorProvider(ITagColorProvider* /*provider*/) override {}

    [[nodiscard]] FakeTagWindow* window() const { return m_window; }

private:
    QPointer<FakeTagWindow> m_window;
};
