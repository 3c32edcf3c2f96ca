// SPDX-License-Identifier: MIT
#pragma once

#include "host/app/tagging/selectedtag.h"

#include <QWidget>

class ElidedLabel;
class FlowLayout;
class QScrollArea;
class TagField;

/// Below the pictures: how many are selected, the tags that they have, and the field to put on others.
class TagStrip : public QWidget
{
    Q_OBJECT

public:
    explicit TagStrip(QWidget* parent = nullptr);

    /// \a tags in the order to show them; no more than some hundreds.
    void showTags(const QVector<SelectedTag::Content>& tags, int selected);
    /// Names of the favourites that the keys 1, 2, … put on.
    void setFavorites(const QStringList& names);
    [[nodiscard]] TagField* field() const { return m_field; }

signals:
    void putOnAll(qint64 tagId);
    void takeOff(qint64 tagId);

private:
    void clear();
    void applySkin();

    ElidedLabel* m_title;
    QScrollArea* m_area;
    FlowLayout* m_tags;
    TagField* m_field;
    ElidedLabel* m_favorites;
};
