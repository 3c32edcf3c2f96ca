// SPDX-License-Identifier: MIT
#include "window/page/vltagbasewidget.h"

#include "widgets/fixedsize.h"
#include "widgets/vlsvgwidget.h"
#include "window/page/tagpages.h"
#include "window/page/vltagsearchlineedit.h"

#include <vlskinsetting.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int titlePixelSize = 18;
constexpr int descriptionPixelSize = 12;
const QSize searchFieldSize(240, 22);

QFont fontOfPixelSize(int pixels)
{
    QFont font;
    font.setPixelSize(pixels);
    return font;
}

}  // namespace

VLTagBaseWidget::VLTagBaseWidget(int type, QWidget* parent)
    : QWidget(parent)
    , m_page(tagPage(type))
{
    makeTitle();
    QHBoxLayout* searchRow = makeSearchRow();
    applyTexts();
    arrange(searchRow);
}

VLTagBaseWidget::~VLTagBaseWidget() = default;

void VLTagBaseWidget::rebuild() {}

void VLTagBaseWidget::updatePage() {}

VLTagSearchLineEdit* VLTagBaseWidget::searchField() const
{
    return m_page && !m_page->isSearched ? nullptr : m_searchEdit;
}

bool VLTagBaseWidget::eventFilter(QObject* watched, QEvent* event)
{
    return QObject::eventFilter(watched, event);
}

void VLTagBaseWidget::makeTitle()
{
    m_iconWidget = new VLSvgWidget(QString(), this);
    m_iconWidget->setFixedSize(16, 20);
    m_titleLabel = new QLabel(this);
    m_titleLabel->setObjectName(QStringLiteral("tag_page_title"));
    m_titleLabel->setFont(fontOfPixelSize(titlePixelSize));
    m_desLabel = new QLabel(this);
    m_desLabel->setObjectName(QStringLiteral("tag_page_des"));
    m_desLabel->setFont(fontOfPixelSize(descriptionPixelSize));
}

QHBoxLayout* VLTagBaseWidget::makeSearchRow()
{
    auto* row = new QHBoxLayout;
    row->setContentsMargins(20, 0, 0, 0);
    row->setAlignment(Qt::AlignLeft);
    auto* container = new QWidget(this);
    new FixedSize(container, searchFieldSize);

    m_searchEdit = new VLTagSearchLineEdit(container);
    m_searchEdit->focusChanged(false);
    m_searchEdit->setContextMenuPolicy(Qt::NoContextMenu);
    m_searchEdit->setPlaceholderText(tr("Search Tags"));
    new FixedSize(m_searchEdit, searchFieldSize);
    m_searchEdit->move(0, 0);
    m_searchEdit->installEventFilter(this);
    row->addWidget(container);
    connect(m_searchEdit, SIGNAL(textChanged(QString)), this, SIGNAL(signSearchChanged(QString)));
    // Through a queue, as the page follows the text: what was typed before Enter is shown by then.
    connect(m_searchEdit, &QLineEdit::returnPressed, this, &VLTagBaseWidget::searchSubmitted, Qt::QueuedConnection);

    const QString image =
        VLSkinSetting::GetInstance()->GetResourceAbsolutePath(QStringLiteral("search_icon_normel.svg"));
    m_searchIcon = new VLSvgWidget(image, container);
    m_searchIcon->setFixedSize(12, 12);
    m_searchIcon->move(10, 5);
    return row;
}

void VLTagBaseWidget::applyTexts()
{
    if (!m_page)
        return;
    m_titleLabel->setText(tr(m_page->title));
    m_desLabel->setText(tr(m_page->description));
    m_iconWidget->setIcon(VLSkinSetting::GetInstance()->GetResourceAbsolutePath(QLatin1String(m_page->icon)));
    if (!m_page->isSearched)
        m_searchEdit->hide();
}

void VLTagBaseWidget::arrange(QHBoxLayout* searchRow)
{
    m_mainLayout = new QVBoxLayout(this);
    m_mainLayout->setContentsMargins(0, 0, 4, 0);
    m_mainLayout->setSpacing(0);
    m_mainLayout->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    m_titleLayout = new QHBoxLayout;
    m_titleLayout->setContentsMargins(21, 0, 0, 0);
    m_titleLayout->setSpacing(0);
    m_titleLayout->addSpacing(1);
    m_titleLayout->addWidget(m_iconWidget);
    m_titleLayout->addSpacing(8);
    m_titleLayout->addWidget(m_titleLabel);

    m_desLayout = new QHBoxLayout;
    m_desLayout->setContentsMargins(46, 0, 0, 0);
    m_desLayout->addWidget(m_desLabel);

    m_mainLayout->addLayout(m_titleLayout);
    m_mainLayout->addSpacing(7);
    m_mainLayout->addLayout(m_desLayout);
    m_mainLayout->addSpacing(18);
    m_mainLayout->addLayout(searchRow);
}
