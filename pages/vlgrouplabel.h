// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QLabel>

/// The name on a category tile: plain text on at most two lines, each narrower than 64 logical pixels.
class VLGroupLabel : public QLabel
{
    Q_OBJECT

public:
    explicit VLGroupLabel(QWidget* parent = nullptr);
    ~VLGroupLabel() override;

    /// Shows \a text broken where a line would get too wide in the label's font; what does not fit two lines is
    /// dropped.
    void setWrappedText(const QString& text);

private:
    QString m_source;
    QFont m_wrappedFont;
};
