// SPDX-License-Identifier: MIT
#include "host/app/files/querybar.h"

#include "host/app/tagging/flowlayout.h"
#include "host/app/widgets/escapablelineedit.h"
#include "host/app/widgets/flatbuttonstyle.h"

#include <vlskinsetting.h>

#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int sideMargin = 16;
constexpr int spacing = 6;

}  // namespace

QueryBar::QueryBar(QWidget* parent)
    : QWidget(parent)
    , m_field(new EscapableLineEdit(this))
{
    auto* all = new QPushButton(tr("All pictures"), this);
    all->setObjectName(QStringLiteral("all_pictures"));
    auto* untagged = new QPushButton(tr("Untagged"), this);
    untagged->setObjectName(QStringLiteral("untagged_pictures"));
    m_field->setObjectName(QStringLiteral("query_field"));
    m_field->setPlaceholderText(tr("Find: beach and not (family or blurry)"));
    m_field->setToolTip(
        tr("Tags with and, or, not and brackets; \"exact tag\", untagged, category:…, name:…, folder:…, "
           "date:2024-05"));
    m_field->setClearButtonEnabled(true);
    auto* buttons = new FlowLayout(spacing);
    buttons->addWidget(all);
    buttons->addWidget(untagged);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(sideMargin, 0, sideMargin, 0);
    layout->setSpacing(spacing);
    layout->addLayout(buttons);
    layout->addWidget(m_field);
    connect(all, &QPushButton::clicked, this, &QueryBar::allRequested);
    connect(untagged, &QPushButton::clicked, this, &QueryBar::untaggedRequested);
    connect(m_field, &QLineEdit::returnPressed, this, [this] { emit queryEntered(m_field->text()); });
    applySkin();
}

void QueryBar::setQuery(const QString& query)
{
    m_field->setText(query);
    m_field->setCursorPosition(0);
}

void QueryBar::showMistake(int position)
{
    m_field->setFocus();
    m_field->setCursorPosition(position);
}

void QueryBar::applySkin()
{
    const VLSkinSetting* skin = VLSkinSetting::GetInstance();
    const QString sheet = QStringLiteral("QLineEdit { background: %1; color: %2; border: 1px solid %3;"
                                         " border-radius: 4px; padding: 4px 8px; font-size: 13px; }"
                                         "QLineEdit:focus { border-color: %4; }");
    setStyleSheet(sheet.arg(skin->GetTagManagerTagGroupItemBackColor().name(), skin->GetTextColor(0).name(),
                            skin->GetPopupWinBorderColor().name(), skin->GetPopupWinBlueColor().name()) +
                  flatButtonStyle());
}
