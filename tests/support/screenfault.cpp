// SPDX-License-Identifier: MIT
#include "tests/support/screenfault.h"

#include "taglist/vltaglistview.h"
#include "widgets/vlscrollbar.h"

#include <QApplication>
#include <QBackingStore>
#include <QCursor>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QRegion>
#include <QScrollArea>

#include <algorithm>

namespace {

/// The scroll area that a list of chips is scrolled by.
QScrollArea* areaAround(const QWidget* list)
{
    for (QWidget* parent = list->parentWidget(); parent; parent = parent->parentWidget()) {
        auto* area = qobject_cast<QScrollArea*>(parent);
        if (area && area->widget() && area->widget()->isAncestorOf(list))
            return area;
    }
    return nullptr;
}

QRect placeIn(const QWidget* window, const QWidget* widget, const QRect& rect)
{
    return {widget->mapTo(window, rect.topLeft()), rect.size()};
}

/// What the window has painted.
QImage painted(const QWidget* window)
{
    QBackingStore* store = window->backingStore();
    const QPaintDevice* device = store ? store->paintDevice() : nullptr;
    return device && device->devType() == QInternal::Image ? static_cast<const QImage*>(device)->copy() : QImage();
}

QModelIndex hovered(const VLTagListView* list)
{
    const QPoint pointer = QCursor::pos();
    const bool isUnder = QApplication::widgetAt(pointer) == list->viewport();
    return isUnder ? list->indexAt(list->viewport()->mapFromGlobal(pointer)) : QModelIndex();
}

/// One scroll area of chips in a window, and what it has to look like.
class ChipScreen
{
public:
    ChipScreen(const QWidget* window, const QScrollArea* area, const QImage& shown)
        : m_window(window)
        , m_view(placeIn(window, area->viewport(), area->viewport()->rect()))
        , m_shown(shown)
        , m_scale(shown.devicePixelRatio())
        , m_expected(shown.copy())
    {
        m_expected.setDevicePixelRatio(m_scale);
        QPainter painter(&m_expected);
        fill(&painter, m_view);
        for (const VLTagListView* list : area->widget()->findChildren<VLTagListView*>()) {
            if (list->isVisible())
                draw(&painter, list);
        }
        for (const VLScrollBar* bar : area->findChildren<VLScrollBar*>()) {
            if (bar->isVisible())
                m_ignored += inPixels(placeIn(window, bar, bar->rect()));
        }
    }

    [[nodiscard]] QString fault() const
    {
        const QRect compared = inPixels(m_view) & m_shown.rect();
        if (m_shown.copy(compared) == m_expected.copy(compared))
            return m_fault;
        for (int y = compared.top(); y <= compared.bottom(); ++y) {
            for (int x = compared.left(); x <= compared.right(); ++x) {
                if (m_shown.pixel(x, y) != m_expected.pixel(x, y) && !m_ignored.contains(QPoint(x, y)))
                    return describe(QPoint(x, y));
            }
        }
        return m_fault;
    }

private:
    struct Chip
    {
        QString name;
        QRect place;
    };

    [[nodiscard]] QRect inPixels(const QRect& rect) const
    {
        return QRectF(rect.x() * m_scale, rect.y() * m_scale, rect.width() * m_scale, rect.height() * m_scale).toRect();
    }

    /// No chip touches the left edge of a list.
    void fill(QPainter* painter, const QRect& place) const
    {
        const QRect inView = place & m_view;
        if (!inView.isEmpty())
            painter->fillRect(inView, m_shown.pixelColor(inPixels(inView).topLeft()));
    }

    void draw(QPainter* painter, const VLTagListView* list)
    {
        fill(painter, placeIn(m_window, list, list->rect()));
        fill(painter, placeIn(m_window, list->viewport(), list->viewport()->rect()));
        auto* letter = list->findChild<QLabel*>();
        if (letter && letter->isVisible())
            letter->render(painter, letter->mapTo(m_window, QPoint()), {}, {});
        for (int row = 0; row < list->model()->rowCount(); ++row)
            draw(painter, list, list->model()->index(row, 0));
    }

    void draw(QPainter* painter, const VLTagListView* list, const QModelIndex& index)
    {
        QStyleOptionViewItem option;
        option.initFrom(list);
        option.rect = list->visualRect(index);
        option.state.setFlag(QStyle::State_HasFocus, list->hasFocus() && list->currentIndex() == index);
        option.state.setFlag(QStyle::State_MouseOver, hovered(list) == index);
        const QString name = list->tagAt(index).name;
        if (list->itemDelegate()->sizeHint(option, index) != option.rect.size() && m_fault.isEmpty())
            m_fault = QStringLiteral("the item of “%1” is not of its chip's size").arg(name);
        if (!list->viewport()->rect().contains(option.rect) && m_fault.isEmpty())
            m_fault = QStringLiteral("“%1” lies outside its list").arg(name);
        const QRect place = placeIn(m_window, list->viewport(), option.rect);
        if (!place.intersects(m_view))
            return;
        m_chips.append({name, place});
        const QPoint shift = place.topLeft() - option.rect.topLeft();
        painter->save();
        painter->translate(shift);
        list->itemDelegate()->paint(painter, option, index);
        painter->restore();
    }

    [[nodiscard]] QString describe(const QPoint& pixel) const
    {
        const auto hit = std::find_if(m_chips.begin(), m_chips.end(),
                                      [&](const Chip& chip) { return inPixels(chip.place).contains(pixel); });
        const QString where = hit == m_chips.end() ? QStringLiteral("outside all chips")
                                                   : QStringLiteral("in the chip “%1”").arg(hit->name);
        return QStringLiteral("pixel %1, %2, %3, is %4 instead of %5")
            .arg(QString::number(pixel.x()), QString::number(pixel.y()), where, m_shown.pixelColor(pixel).name(),
                 m_expected.pixelColor(pixel).name());
    }

    const QWidget* m_window;
    QRect m_view;  ///< Logical pixels of the window.
    QImage m_shown;
    qreal m_scale;
    QImage m_expected;
    QVector<Chip> m_chips;
    QRegion m_ignored;  ///< Device pixels.
    QString m_fault;
};

}  // namespace

QString screenFault(QWidget* window)
{
    const QImage shown = painted(window);
    if (shown.isNull())
        return QStringLiteral("nothing is painted");
    const QImage anew = window->grab().toImage().convertToFormat(QImage::Format_RGB32);
    if (shown.convertToFormat(QImage::Format_RGB32) != anew)
        return QStringLiteral("painted anew, the window looks otherwise");
    QVector<const QScrollArea*> areas;
    for (const VLTagListView* list : window->findChildren<VLTagListView*>()) {
        const QScrollArea* area = list->isVisible() && list->model()->rowCount() > 0 ? areaAround(list) : nullptr;
        if (area && !areas.contains(area))
            areas.append(area);
    }
    for (const QScrollArea* area : qAsConst(areas)) {
        QString fault = ChipScreen(window, area, shown).fault();
        if (!fault.isEmpty())
            return fault;
    }
    return {};
}
