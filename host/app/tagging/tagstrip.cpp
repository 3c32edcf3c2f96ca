// SPDX-License-Identifier: MIT
#include "host/app/tagging/tagstrip.h"

#include "host/app/tagging/flowlayout.h"
#include "host/app/tagging/tagfield.h"
#include "host/app/widgets/elidedlabel.h"

#include <vlskinsetting.h>

#include <QLocale>
#include <QResizeEvent>
#include <QScrollArea>
#include <QVBoxLayout>

namespace {

constexpr int sideMargin = 16;
constexpr int verticalMargin = 10;
constexpr int spacing = 6;
constexpr int mostTagsHeight = 3 * (26 + spacing);

/// As high as its chips need, up to three rows.
class ChipArea : public QScrollArea
{
public:
    explicit ChipArea(QWidget* parent)
        : QScrollArea(parent)
    {
        setWidgetResizable(true);
        setFrameShape(QFrame::NoFrame);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setFocusPolicy(Qt::NoFocus);
    }
    void fit()
    {
        const int needed = widget()->layout()->count() == 0 ? 0 : widget()->heightForWidth(viewport()->width());
        setFixedHeight(std::min(needed, mostTagsHeight));
    }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QScrollArea::resizeEvent(event);
        if (event->size().width() != event->oldSize().width())
            fit();
    }
};

}  // namespace

TagStrip::TagStrip(QWidget* parent)
    : QWidget(parent)
    , m_title(new ElidedLabel(this))
    , m_area(new ChipArea(this))
    , m_field(new TagField(this))
    , m_favorites(new ElidedLabel(this))
{
    setObjectName(QStringLiteral("tag_strip"));
    setAttribute(Qt::WA_StyledBackground);
    auto* tags = new QWidget;
    tags->setObjectName(QStringLiteral("tag_strip_tags"));
    m_tags = new FlowLayout(spacing, tags);
    m_area->setWidget(tags);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(sideMargin, verticalMargin, sideMargin, verticalMargin);
    layout->setSpacing(spacing + 2);
    layout->addWidget(m_title);
    layout->addWidget(m_area);
    layout->addWidget(m_field);
    layout->addWidget(m_favorites);
    m_favorites->hide();
    applySkin();
}

void TagStrip::showTags(const QVector<SelectedTag::Content>& tags, int selected)
{
    if (selected == 0)
        m_title->setText(tr("Select pictures to put tags on them"));
    else
        m_title->setText(selected == 1 ? tr("1 picture selected")
                                       : tr("%1 pictures selected").arg(QLocale().toString(selected)));
    m_field->setEnabled(selected > 0);
    clear();
    QVector<qint64> present;
    for (const SelectedTag::Content& tag : tags) {
        auto* chip = new SelectedTag(tag, m_area->widget());
        connect(chip, &SelectedTag::putOnAll, this, [this, id = tag.id] { emit putOnAll(id); });
        connect(chip, &SelectedTag::takeOff, this, [this, id = tag.id] { emit takeOff(id); });
        m_tags->addWidget(chip);
        chip->show();
        if (tag.files == selected)
            present.append(tag.id);
    }
    m_field->setPresent(present);
    static_cast<ChipArea*>(m_area)->fit();
}

void TagStrip::setFavorites(const QStringList& names)
{
    QStringList keys;
    for (int i = 0; i < names.size(); ++i)
        keys.append(tr("%1 %2").arg(QString::number(i + 1), names.at(i).simplified()));
    m_favorites->setText(keys.join(QStringLiteral("   ")));
    m_favorites->setVisible(!keys.isEmpty());
}

/// Later, as one of them may be what is being clicked.
void TagStrip::clear()
{
    while (QLayoutItem* const item = m_tags->takeAt(0)) {
        item->widget()->hide();
        item->widget()->deleteLater();
        delete item;
    }
}

void TagStrip::applySkin()
{
    const VLSkinSetting* skin = VLSkinSetting::GetInstance();
    const QString sheet = QStringLiteral("#tag_strip { border-top: 1px solid %1; }"
                                         "ElidedLabel { color: %2; font-size: 12px; }"
                                         "QScrollArea, #tag_strip_tags { background: transparent; }"
                                         "QToolButton { border: 0; border-radius: 10px; color: %2; font-size: 14px; }"
                                         "QToolButton:hover { background: %1; }"
                                         "QLineEdit { background: %3; color: %4; border: 1px solid %1;"
                                         " border-radius: 4px; padding: 4px 8px; font-size: 13px; }"
                                         "QLineEdit:disabled { color: %2; }"
                                         "QLineEdit:focus { border-color: %5; }");
    setStyleSheet(sheet.arg(skin->GetPopupWinBorderColor().name(), skin->GetTextColor(1).name(),
                            skin->GetTagManagerTagGroupItemBackColor().name(), skin->GetTextColor(0).name(),
                            skin->GetPopupWinBlueColor().name()));
}
