// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

/// The title bar of a frameless window: logo, title, close button, from left to right.
///
/// All three always exist, so that each can be shown later. Object names for style sheets: "title_bar_logo",
/// "title_bar_title" and "title_bar_close_btn".
class CTitleBarWidget : public QWidget
{
    Q_OBJECT

public:
    /// The first three options say what is visible at first. A \a movable bar lets the user drag the window by it.
    /// \a margin: free space on every side and between the elements, in logical pixels.
    CTitleBarWidget(bool closeButton, bool logo, bool title, bool movable, int margin, QWidget* parent = nullptr);

    /// Shown as plain text.
    void setTitle(const QString& title);
    void setLogoVisible(bool visible);
    void setTitleVisible(bool visible);
    void setCloseButtonVisible(bool visible);

signals:
    void signalCloseBtnClicked(bool checked);

protected:
    void mousePressEvent(QMouseEvent* event) override;

    [[nodiscard]] QLabel* logoLabel() const { return m_logo; }
    [[nodiscard]] QLabel* titleLabel() const { return m_title; }
    [[nodiscard]] QPushButton* closeButton() const { return m_closeButton; }

private:
    void buildElements();
    void layOutElements(int margin);

    QLabel* m_logo = nullptr;
    QLabel* m_title = nullptr;
    QPushButton* m_closeButton = nullptr;
    bool m_movable = false;
};
