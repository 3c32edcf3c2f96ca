// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

/// A line edit in the skin's colours that restyles itself when it gains or loses the keyboard focus.
class VLLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit VLLineEdit(QWidget* parent = nullptr);
    ~VLLineEdit() override;

    /// Called when the focus was gained or lost, before the event is handled: applies the style that goes with it.
    virtual void focusChanged(bool hasFocus);

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

    /// The skin's style declarations for a field; \a alignment is the name of a Qt::AlignmentFlag.
    static QString fieldStyle(bool hasFocus, const QString& alignment);

private:
    void restorePlaceholderColor();
};
