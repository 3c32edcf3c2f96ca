// SPDX-License-Identifier: MIT
#pragma once

#include <ivltagmanagerplugin.h>
#include <ivltagmanagerwidget.h>

#include <QDialog>
#include <QPointer>
#include <QPushButton>
#include <QStackedWidget>

/// A tag manager window as bare as the interface allows: three page buttons, pages below a strip, a record of what it
/// is told.
class FakeTagWindow : public IVLTagManagerWidget
{
    Q_OBJECT

public:
    static constexpr int stripHeight = 83;  // logical pixels

    explicit FakeTagWindow(QWidget* parent)
        : IVLTagManagerWidget(parent)
        , m_pages(new QStackedWidget(this))
    {
        for (const int x : {20, 136, 252}) {
            auto* button = new QPushButton(this);
            button->setObjectName(QStringLiteral("tag_manager_title_btn"));
            button->setGeometry(x, 30, 96, 28);
        }
    }

    void updateMaximizeButton(bool maximized) override { told.append(maximized); }

    QVector<bool> told;

protected:
    void resizeEvent(QResizeEvent* /*event*/) override
    {
        m_pages->setGeometry(0, stripHeight, width(), height() - stripHeight);
    }

private:
    QWidget* m_pages;
};

/// The dialog for a name, known to the host by its class: its button is disabled once it has sent the name.
class VLTagModifyWidget : public QDialog
{
    Q_OBJECT

public:
    explicit VLTagModifyWidget(QWidget* parent)
        : QDialog(parent)
        , button(new QPushButton(this))
    {
        button->setObjectName(QStringLiteral("tag_popup_btn"));
        button->setEnabled(false);
    }

    QPushButton* button;
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
