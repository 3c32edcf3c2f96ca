// SPDX-License-Identifier: MIT
#include "host/app/files/filepanel.h"

#include "host/app/files/fileview.h"
#include "host/app/files/querybar.h"
#include "host/app/tagging/tagstrip.h"
#include "host/app/widgets/elidedlabel.h"
#include "host/app/widgets/wrappedlabel.h"

#include <vlskinsetting.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QShortcut>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int narrowestPanel = 180;
constexpr int headerTop = 30;  // where the tag window's page buttons begin, beside the panel
constexpr int headerHeight = 28;
constexpr int sideMargin = 20;
constexpr int closeButtonSide = 24;
constexpr int closeIconSide = 12;
constexpr int titleFontPixels = 13;
constexpr int noticeBottom = 8;

}  // namespace

FilePanel::FilePanel(QWidget* parent)
    : QWidget(parent)
    , m_title(new ElidedLabel(this))
    , m_closeButton(new QToolButton(this))
    , m_body(new QStackedWidget(this))
    , m_view(new FileView(this))
    , m_message(new QLabel(this))
    , m_notice(new WrappedLabel(this))
    , m_queryBar(new QueryBar(this))
    , m_strip(new TagStrip(this))
{
    setObjectName(QStringLiteral("file_panel"));
    setAttribute(Qt::WA_StyledBackground);
    setMinimumWidth(narrowestPanel);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, headerTop, 1, 0);
    layout->setSpacing(8);
    setUpHeader();
    setUpBody();
    applySkin();
    auto* escape = new QShortcut(Qt::Key_Escape, this);
    connect(escape, &QShortcut::activated, this, &FilePanel::closeRequested);
    connect(m_closeButton, &QToolButton::clicked, this, &FilePanel::closeRequested);
}

void FilePanel::setTitle(const QString& title)
{
    m_title->setText(title);
}

QString FilePanel::title() const
{
    return m_title->text();
}

void FilePanel::showMessage(const QString& message)
{
    m_message->setText(message);
    m_body->setCurrentWidget(m_message);
    m_view->setFiles({}, false);
    setNotice({});
}

void FilePanel::setNotice(const QString& notice)
{
    m_notice->setText(notice);
    m_notice->setVisible(!notice.isEmpty());
}

QString FilePanel::message() const
{
    return m_body->currentWidget() == m_message ? m_message->text() : QString();
}

bool FilePanel::isHeaderAt(const QPoint& pos) const
{
    return isVisible() && rect().contains(pos) && pos.y() < m_queryBar->y();
}

void FilePanel::showFiles(const QVector<qint64>& ids, bool keepPlace)
{
    m_body->setCurrentWidget(m_view);
    m_view->setFiles(ids, keepPlace);
}

void FilePanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    emit visibilityChanged(true);
}

void FilePanel::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    emit visibilityChanged(false);
}

void FilePanel::setUpHeader()
{
    QFont font = m_title->font();
    font.setPixelSize(titleFontPixels);
    m_title->setFont(font);
    m_title->setObjectName(QStringLiteral("file_panel_title"));
    m_closeButton->setObjectName(QStringLiteral("file_panel_close"));
    m_closeButton->setFixedSize(closeButtonSide, closeButtonSide);
    m_closeButton->setIconSize(QSize(closeIconSide, closeIconSide));
    m_closeButton->setAutoRaise(true);
    m_closeButton->setFocusPolicy(Qt::NoFocus);
    m_closeButton->setAccessibleName(tr("Fold the pictures away"));
    m_closeButton->setToolTip(tr("Fold away (F9)"));
    const VLSkinSetting* skin = VLSkinSetting::GetInstance();
    m_closeButton->setIcon(QIcon(skin->GetResourceAbsolutePath(QStringLiteral("title_window_close_normal.svg"))));

    auto* row = new QHBoxLayout;
    row->setContentsMargins(sideMargin, (headerHeight - closeButtonSide) / 2, sideMargin / 2, 0);
    row->addWidget(m_title, 1);
    row->addWidget(m_closeButton);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void FilePanel::setUpBody()
{
    m_message->setObjectName(QStringLiteral("file_panel_message"));
    m_message->setTextFormat(Qt::PlainText);
    m_message->setAlignment(Qt::AlignCenter);
    m_message->setWordWrap(true);
    m_message->setMargin(sideMargin);
    m_body->addWidget(m_view);
    m_body->addWidget(m_message);
    m_notice->setObjectName(QStringLiteral("file_panel_notice"));
    m_notice->setContentsMargins(sideMargin, 0, sideMargin, noticeBottom);
    m_notice->hide();
    auto* column = static_cast<QVBoxLayout*>(layout());
    column->addWidget(m_queryBar);
    column->addWidget(m_body, 1);
    column->addWidget(m_notice);
    column->addWidget(m_strip);
}

void FilePanel::applySkin()
{
    const VLSkinSetting* skin = VLSkinSetting::GetInstance();
    const QString sheet =
        QStringLiteral("#file_panel { border-right: 1px solid %4; }"
                       "ElidedLabel, WrappedLabel, QLabel { color: %1; font-size: 13px; }"
                       "QListView { background: transparent; padding-left: 6px; }"
                       "QToolButton { border: 0; border-radius: 4px; }"
                       "QToolButton:hover { background: %2; }"
                       "QScrollBar:vertical { background: transparent; width: 8px; margin: 0; }"
                       "QScrollBar::handle:vertical { background: %3; border-radius: 4px; min-height: 32px; }"
                       "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }"
                       "QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }");
    setStyleSheet(sheet.arg(
        skin->GetTextColor(1).name(QColor::HexArgb), skin->GetTagManagerTagGroupItemBackColor().name(QColor::HexArgb),
        skin->GetTreeScrollHandleColor().name(QColor::HexArgb), skin->GetPopupWinBorderColor().name(QColor::HexArgb)));
}
