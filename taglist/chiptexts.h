// SPDX-License-Identifier: MIT
#pragma once

#include <QCache>
#include <QFont>
#include <QSharedPointer>
#include <QString>

class QPainter;
class QPointF;
class QTextLayout;

/// A cache of laid-out chip texts: shaping the name is most of the cost of painting.
/// GUI thread only.
class ChipTexts
{
public:
    ChipTexts();
    ~ChipTexts();
    Q_DISABLE_COPY(ChipTexts)

    /// Shared by all who hold it at the time: fonts must not outlive the application.
    static QSharedPointer<ChipTexts> shared();

    /// As QPainter::drawText() with the painter's font, to the pixel.
    void draw(QPainter* painter, const QPointF& baselineLeft, const QString& text);

private:
    [[nodiscard]] QTextLayout* layoutOf(const QString& text);
    void keepFor(const QPainter* painter);

    QFont m_font;
    Qt::LayoutDirection m_direction = Qt::LeftToRight;
    QCache<QString, QTextLayout> m_layouts;
};
