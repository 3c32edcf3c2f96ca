// SPDX-License-Identifier: MIT
#pragma once

#include "bench/side.h"
#include "plugin/state/tagitem.h"

#include <QHash>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>

class QListView;

namespace bench {

/// What a user of Qt would write instead of the tag manager: one QListView in icon mode over a QStandardItemModel
/// behind a QSortFilterProxyModel, the records in the user role.
///
/// It is written with care: the model is filled before it is attached, new tags are appended in one call, sorting and
/// filtering are left to the toolkit.
class Baseline : public Side
{
public:
    explicit Baseline(MemoryHost* host);
    ~Baseline() override;

    void open() override;
    [[nodiscard]] QWidget* window() const override;
    [[nodiscard]] QScrollBar* scrollBar() const override;
    [[nodiscard]] QWidget* viewport() const override;
    void setWidth(int width) override;
    void search(const QString& text) override;
    void follow(qint64 tag_id) override;
    [[nodiscard]] int shownTags() const override;

private:
    void append(const QHash<qint64, QSharedPointer<ITagDataProvider>>& providers);
    void addTags(const QVector<qint64>& tag_ids);
    void removeTags(const QVector<qint64>& tag_ids);
    void makeView();

    MemoryHost* m_host;
    QHash<qint64, QStandardItem*> m_items;
    QStandardItemModel m_model;
    QSortFilterProxyModel m_proxy;
    std::unique_ptr<QWidget> m_window;
    QListView* m_view = nullptr;
};

}  // namespace bench
