// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>
#include <QString>

#include <functional>

class QWidget;

/// Paints a quiet text onto the background of a widget while that has nothing else to show. Adds no widget.
/// GUI thread only.
class EmptyHint : public QObject
{
    Q_OBJECT

public:
    /// \a text is asked at each paint and layout of \a content, which owns the hint, and so must not call the host;
    /// empty stands for no hint.
    /// \a corner is the text's upper left one, in logical pixels.
    EmptyHint(QWidget* content, const QPoint& corner, std::function<QString()> text);
    ~EmptyHint() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void paint() const;

    QWidget* m_content;
    QPoint m_corner;
    std::function<QString()> m_text;
    QString m_painted;
};
