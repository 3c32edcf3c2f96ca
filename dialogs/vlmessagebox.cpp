// SPDX-License-Identifier: MIT
#include "dialogs/vlmessagebox.h"

#include "dialogs/lowlabel.h"
#include "dialogs/styletext.h"
#include "widgets/plaintooltip.h"
#include "widgets/roundedmask.h"

#include <vlskinsetting.h>

#include <QDebug>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>
#include <QVector>
#include <QWindow>

#include <algorithm>

namespace {
constexpr int cornerRadius = 10;  // Logical pixels.

QFont pixelFont(int pixelSize)
{
    QFont font;
    font.setPixelSize(pixelSize);
    return font;
}

QPushButton* newButton(const char* name, QWidget* parent)
{
    auto* button = new QPushButton(parent);
    button->setObjectName(QLatin1String(name));
    button->setFont(pixelFont(13));
    return button;
}

QString buttonStyle(const QColor& text, const QColor& background)
{
    return QLatin1String("color:") + colorText(text) + QLatin1String(";border-radius:14px;background-color:") +
           colorText(background) + QLatin1Char(';');
}
}  // namespace

VLMessageBox::VLMessageBox(QWidget* parent)
    : QDialog(parent)
{
    qRegisterMetaType<Mode>("Mode");
    qRegisterMetaType<ReturnValue>("ReturnValue");
    buildForm();
    translateForm();
    connectButtons();
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    resize(400, 200);
    placeElements();
    applySkin();
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowTitle(QStringLiteral("Vellum"));
    setAttribute(Qt::WA_DeleteOnClose);
}

VLMessageBox::~VLMessageBox()
{
    qDebug() << "VLMessage exec destory";
}

void VLMessageBox::setUp(int mode, const QString& title, const QString& text, QWidget* widget)
{
    Q_UNUSED(widget)
    m_returnValue = NoAnswer;
    translateForm();
    placeButtons();
    applySkin();
    showButtons(mode);
    m_bodyLabel->setText(text);
    m_bodyLabel->setToolTip({});
    m_closeButton->show();
    m_titleLabel->setText(title);
    update();
}

void VLMessageBox::showBox(int mode, const QString& title, const QString& text, QWidget* widget)
{
    setUp(mode, title, text, widget);
    setModal(true);
    open();
}

void VLMessageBox::setCloseButtonVisible(bool visible)
{
    m_closeButton->setVisible(visible);
}

void VLMessageBox::setBodyToolTip(const QString& plainText)
{
    m_bodyLabel->setToolTip(plainToolTip(plainText));
}

void VLMessageBox::on_confirm_btn_clicked()
{
    closeWith(Confirm);
}

void VLMessageBox::on_ok_btn_clicked()
{
    closeWith(Ok);
}

void VLMessageBox::on_cancel_btn_clicked()
{
    closeWith(Cancel);
}

void VLMessageBox::on_btn_close_clicked()
{
    if (m_closeMeansCancel == 1)
        closeWith(Cancel);
    else
        close();
}

void VLMessageBox::slotExecInThread(Mode mode, QString title, QString text, QWidget* widget)
{
    showBox(mode, title, text, widget);
}

void VLMessageBox::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        on_btn_close_clicked();
    else
        QDialog::keyPressEvent(event);
}

void VLMessageBox::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && windowHandle())
        windowHandle()->startSystemMove();
    else
        QDialog::mousePressEvent(event);
}

void VLMessageBox::buildForm()
{
    setObjectName(QStringLiteral("VLMessageBox"));
    auto* layout = new QGridLayout(this);
    layout->setObjectName(QStringLiteral("gridLayout"));
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    m_mainWidget = new QWidget(this);
    m_mainWidget->setObjectName(QStringLiteral("main_wid"));
    layout->addWidget(m_mainWidget);

    // The first one is what Enter presses, so a confirmation is not given by accident.
    m_cancelButton = newButton("cancel_btn", m_mainWidget);
    m_confirmButton = newButton("confirm_btn", m_mainWidget);
    m_okButton = newButton("ok_btn", m_mainWidget);
    m_cancelButton->setFocusPolicy(Qt::ClickFocus);
    m_confirmButton->setFocusPolicy(Qt::ClickFocus);

    m_titleLabel = new LowLabel(m_mainWidget);
    m_titleLabel->setObjectName(QStringLiteral("tips_lab"));
    m_titleLabel->setTextFormat(Qt::PlainText);
    m_titleLabel->setFont(pixelFont(16));
    m_titleLabel->setAlignment(Qt::AlignCenter);
    m_bodyLabel = new QLabel(m_mainWidget);
    m_bodyLabel->setObjectName(QStringLiteral("lab_context"));
    m_bodyLabel->setTextFormat(Qt::RichText);
    m_bodyLabel->setFont(pixelFont(13));
    m_bodyLabel->setAlignment(Qt::AlignCenter);
    m_bodyLabel->setWordWrap(true);
    m_bodyLabel->setOpenExternalLinks(true);
    m_closeButton = newButton("btn_close", m_mainWidget);
    m_closeButton->setAccessibleName(tr("Close"));
    m_closeButton->setFocusPolicy(Qt::NoFocus);
}

void VLMessageBox::connectButtons()
{
    connect(m_confirmButton, &QPushButton::clicked, this, &VLMessageBox::on_confirm_btn_clicked);
    connect(m_okButton, &QPushButton::clicked, this, &VLMessageBox::on_ok_btn_clicked);
    connect(m_cancelButton, &QPushButton::clicked, this, &VLMessageBox::on_cancel_btn_clicked);
    connect(m_closeButton, &QPushButton::clicked, this, &VLMessageBox::on_btn_close_clicked);
    // A push button keeps the arrow keys to itself, a shortcut comes before it.
    connect(new QShortcut(Qt::Key_Left, this), &QShortcut::activated, this, [this] { moveFocus(-1); });
    connect(new QShortcut(Qt::Key_Right, this), &QShortcut::activated, this, [this] { moveFocus(1); });
    connect(this, &VLMessageBox::signExecInThread, this, &VLMessageBox::slotExecInThread);
}

void VLMessageBox::translateForm()
{
    setWindowTitle(tr("VLMessageBox"));
    m_cancelButton->setText(tr("No"));
    m_confirmButton->setText(tr("Yes"));
    m_okButton->setText(tr("Ok"));
    m_titleLabel->setText(tr("MessageBox"));
    m_bodyLabel->setText(tr("TextLabel"));
    m_closeButton->setText({});
}

void VLMessageBox::placeElements()
{
    setFixedSize(364, 225);
    setMask(roundedMask(size(), cornerRadius));
    m_titleLabel->setGeometry(0, 30, 364, 17);
    m_bodyLabel->setGeometry(30, 76, 300, 70);
    m_closeButton->setGeometry(330, 10, 16, 16);
    placeButtons();
}

void VLMessageBox::placeButtons()
{
    m_confirmButton->setGeometry(56, 167, 106, 28);
    m_cancelButton->setGeometry(202, 167, 106, 28);
    m_okButton->setGeometry(129, 167, 106, 28);
}

void VLMessageBox::placeThreeButtons()
{
    m_confirmButton->setGeometry(31, 167, 90, 28);
    m_cancelButton->setGeometry(137, 167, 90, 28);
    m_okButton->setGeometry(243, 167, 90, 28);
}

void VLMessageBox::applySkin()
{
    const VLSkinSetting* skin = VLSkinSetting::GetInstance();
    const QColor text = skin->GetTextColor(0);
    const QColor border = skin->GetPopupWinBorderColor();
    m_mainWidget->setStyleSheet(
        QLatin1String("#main_wid{background-color:") + colorText(skin->GetPopupWinBackgroundColor()) +
        QLatin1String(";border-radius:") + QString::number(cornerRadius) +
        QLatin1String("px;border:1px solid; border-color:") + colorText(border) +
        QLatin1String(";}QPushButton{border:1px solid transparent;padding:0px;}QPushButton:hover,QPushButton:focus"
                      "{border-color:") +
        colorText(text) + QLatin1String(";}"));

    const QString labelStyle =
        QLatin1String("background-color:rgba(0,0,0,0);color:") + colorText(text) + QLatin1Char(';');
    m_titleLabel->setStyleSheet(labelStyle);
    m_bodyLabel->setStyleSheet(labelStyle);

    m_confirmButton->setStyleSheet(buttonStyle(text, skin->GetInputAndButtonColor()));
    m_okButton->setStyleSheet(buttonStyle(text, skin->GetInputAndButtonColor()));
    m_cancelButton->setStyleSheet(buttonStyle(text, border));
    m_closeButton->setStyleSheet(QLatin1String("background-color:transparent;border:none;") +
                                 skin->GetResourcePath(QStringLiteral("mainbody_close.svg")));
}

void VLMessageBox::showButtons(int mode)
{
    switch (mode) {
    case Information:
        m_okButton->show();
        m_confirmButton->hide();
        m_cancelButton->hide();
        break;
    case Question:
    case Warning:
        m_okButton->hide();
        m_confirmButton->show();
        m_cancelButton->show();
        break;
    case ThreeButtons: {
        m_okButton->show();
        m_confirmButton->show();
        m_cancelButton->show();
        const VLSkinSetting* skin = VLSkinSetting::GetInstance();
        m_okButton->setStyleSheet(buttonStyle(skin->GetTextColor(0), skin->GetInputAndButtonColor()));
        placeThreeButtons();
        break;
    }
    default:
        break;
    }
}

void VLMessageBox::moveFocus(int step)
{
    QVector<QPushButton*> buttons;
    for (QPushButton* button : {m_confirmButton, m_cancelButton, m_okButton}) {
        if (button->isVisible())
            buttons.append(button);
    }
    if (buttons.isEmpty())
        return;
    // The button with the focus is the default one, too.
    const auto current =
        std::find_if(buttons.cbegin(), buttons.cend(), [](const QPushButton* button) { return button->isDefault(); });
    const int next = current == buttons.cend() ? 0 : int(current - buttons.cbegin()) + step;
    buttons.at(qBound(0, next, buttons.size() - 1))->setFocus(Qt::TabFocusReason);
}

void VLMessageBox::closeWith(ReturnValue value)
{
    const QPointer<VLMessageBox> self(this);
    close();
    if (!self)
        return;
    m_returnValue = value;
    emit signalResult(value);
}
