// SPDX-License-Identifier: MIT
#pragma once

#include <ivltagmanagerplugin.h>
#include <ivltagmanagerwidget.h>

#include <QObject>
#include <QPointer>
#include <QVector>

/// A tag manager window as bare as the interface allows: three page buttons, pages below a strip, a record of what it
/// is told.
class FakeTagWindow : public IVLTagManagerWidget
{
    Q_OBJECT

public:
    static constexpr int stripHeight = 83;  // logical pixels

    explicit FakeTagWindow(QWidget* parent);

    void updateMaximizeButton(bool maximized) override { m_told.append(maximized); }

    [[nodiscard]] QVector<bool> told() const { return m_told; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* m_pages = nullptr;
    QVector<bool> m_told;
};

/// A plug-in that makes such windows.
class FakePlugin : public QObject, public IVLTagManagerPlugin
{
    Q_OBJECT
    Q_INTERFACES(IVLTagManagerPlugin)

public:
    QObject* pluginObject() override { return this; }
    IVLTagManagerWidget* createTagManagerWidget(QWidget* parent) override;
    void setDataProvider(const QSharedPointer<ILibraryDataProvider>& /*provider*/) override {}
    void clearDataProvider() override {}
    void setTagColorProvider(ITagColorProvider* /*provider*/) override {}

    [[nodiscard]] FakeTagWindow* window() const { return m_window; }

private:
    QPointer<FakeTagWindow> m_window;
};
