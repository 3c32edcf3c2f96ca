// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QPointer>

class CPopupTitleBarWidget;
class QVBoxLayout;

/// A frameless, rounded dialog in the skin's popup colours: a title bar on top, below it a layout for a subclass to
/// fill.
class CPopupDialog : public QDialog
{
    Q_OBJECT

public:
    /// \a closeButton, \a logo and \a title: what the title bar shows; a click on the close button closes the dialog.
    /// \a movable: the title bar drags the dialog. \a deleteOnClose: the dialog deletes itself once it is closed.
    CPopupDialog(QWidget* parent, bool closeButton, bool logo, bool title, bool movable, bool deleteOnClose);

    /// Opens the dialog modally and returns at once.
    void showPopup();
    /// In logical pixels.
    void setTitleBarHeight(int height);
    void setLogoVisible(bool visible);
    void setCloseButtonVisible(bool visible);
    /// Centred vertically between the title bar and the bottom edge; owned by the dialog.
    [[nodiscard]] QVBoxLayout* contentLayout() const { return m_contentLayout; }

public slots:
    void slotCloseBtnClicked(bool checked);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildFrame(bool closeButton, bool logo, bool title, bool movable);
    void styleFrame();

    QPointer<CPopupTitleBarWidget> m_titleBar;
    QVBoxLayout* m_contentLayout = nullptr;
    QWidget* m_mainWidget = nullptr;
};
