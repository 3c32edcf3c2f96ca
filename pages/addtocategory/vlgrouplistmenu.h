// SPDX-License-Identifier: MIT
#pragma once

#include <QListWidget>
#include <QSet>
#include <QVector>

/// The categories that a tag can be added to, as a list inside a menu; rows are 30 logical pixels high.
///
/// Takes the keyboard focus when its menu opens: the arrow keys move, Enter and Space pick, Escape and Left are left to
/// the menu.
class VLGroupListMenu : public QListWidget
{
    Q_OBJECT

public:
    explicit VLGroupListMenu(QWidget* parent = nullptr);

    /// The category ids in row order.
    [[nodiscard]] QVector<qint64> ids() const { return m_ids; }
    /// True while a pick is reported, when the list must not be deleted at once.
    [[nodiscard]] bool isPicking() const { return m_picking; }
    /// The menu around the list cuts so many logical pixels off its bottom; the last rows scroll into what is left.
    void setHiddenBottom(int pixels);

signals:
    /// A row was picked. The id passes through a 32-bit integer.
    void signClicked(qint64 id);

public slots:
    /// Appends a row; the height stays as it is. A category that the list holds already is ignored.
    void slotAddItem(qint64 id, QString name);
    /// Shrinks the list to its rows, to 300 logical pixels at most. An unknown id changes nothing.
    void slotRemoveItem(qint64 id);
    void slotUpdateItem(qint64 id, QString name);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void pick(QListWidgetItem* item);
    /// For a menu that was opened with the keyboard, as menus do with their first entry.
    void highlightFirst();
    [[nodiscard]] bool hasHighlight() const;
    [[nodiscard]] bool isElided(const QListWidgetItem* row) const;

    QVector<qint64> m_ids;
    bool m_picking = false;
    QSet<qint64> m_knownIds;  ///< The same ids, so that filling the list stays linear.
};
