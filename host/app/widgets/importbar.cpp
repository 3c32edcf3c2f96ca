// SPDX-License-Identifier: MIT
#include "host/app/widgets/importbar.h"

#include "host/app/widgets/flatbuttonstyle.h"
#include "host/app/widgets/wrappedlabel.h"

#include <vlskinsetting.h>

#include <QHBoxLayout>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>

namespace {

constexpr int lowestBar = 40;
constexpr int sideMargin = 20;
constexpr int verticalMargin = 6;
constexpr int progressHeight = 4;
constexpr int progressWidth = 200;

QString number(int count)
{
    return QLocale().toString(count);
}

}  // namespace

ImportBar::ImportBar(QWidget* parent)
    : QWidget(parent)
    , m_text(new WrappedLabel(this))
    , m_progress(new QProgressBar(this))
    , m_skippedButton(new QPushButton(tr("Show which"), this))
    , m_removeButton(new QPushButton(tr("Remove missing…"), this))
    , m_cancelButton(new QPushButton(tr("Cancel"), this))
    , m_dismissButton(new QPushButton(tr("Dismiss"), this))
{
    setObjectName(QStringLiteral("import_bar"));
    setAttribute(Qt::WA_StyledBackground);
    setMinimumHeight(lowestBar);
    m_text->setObjectName(QStringLiteral("import_bar_text"));
    m_progress->setTextVisible(false);
    m_progress->setFixedSize(progressWidth, progressHeight);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(sideMargin, verticalMargin, sideMargin, verticalMargin);
    layout->setSpacing(12);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_progress);
    for (QPushButton* button : {m_skippedButton, m_removeButton, m_cancelButton, m_dismissButton})
        layout->addWidget(button);
    setUpButtons();
    applySkin();
    hide();
}

void ImportBar::showProgress(int done, int found)
{
    const QLocale locale;
    m_text->setText(done == 0 ? tr("Looking for pictures: %1 found").arg(locale.toString(found))
                              : tr("Reading pictures: %1 of %2").arg(locale.toString(done), locale.toString(found)));
    m_progress->setRange(0, done == 0 ? 0 : found);
    m_progress->setValue(done);
    showButtons(true, false, false);
}

void ImportBar::showOutcome(const ImportSummary& summary)
{
    const QStringList sentences = m_absence + sentencesOf(summary);
    if (sentences.isEmpty())
        return hide();
    m_text->setText(sentences.join(QLatin1Char(' ')));
    showButtons(false, summary.skipped > 0, summary.missing > 0);
}

void ImportBar::showAbsence(const QStringList& folders)
{
    m_absence.clear();
    for (const QString& folder : folders)
        m_absence += tr("The folder “%1” is not there. What is known of its pictures is shown.").arg(folder);
    m_text->setText(m_absence.join(QLatin1Char(' ')));
    showButtons(false, false, false);
}

QStringList ImportBar::sentencesOf(const ImportSummary& summary)
{
    if (!summary.error.isEmpty())
        return {tr("The pictures could not be read: %1").arg(summary.error)};
    if (summary.cancelled)
        return {tr("Cancelled. The next start goes on where this one stopped.")};
    QStringList sentences;
    const auto add = [&sentences](int count, const QString& one, const QString& many) {
        if (count > 0)
            sentences.append(count == 1 ? one : many.arg(number(count)));
    };
    add(summary.skipped, tr("1 file could not be read and was left out."),
        tr("%1 files could not be read and were left out."));
    add(summary.missing, tr("1 picture is missing from the folder."), tr("%1 pictures are missing from the folder."));
    add(summary.away, tr("1 picture is away: its disk may not be connected."),
        tr("%1 pictures are away: their disk may not be connected."));
    add(summary.removed, tr("1 missing picture was removed from the library."),
        tr("%1 missing pictures were removed from the library."));
    return sentences;
}

void ImportBar::setUpButtons()
{
    m_skippedButton->setObjectName(QStringLiteral("import_bar_skipped"));
    m_removeButton->setObjectName(QStringLiteral("import_bar_remove"));
    m_cancelButton->setObjectName(QStringLiteral("import_bar_cancel"));
    m_dismissButton->setObjectName(QStringLiteral("import_bar_dismiss"));
    for (QPushButton* button : {m_skippedButton, m_removeButton, m_cancelButton, m_dismissButton})
        button->setFocusPolicy(Qt::NoFocus);
    connect(m_skippedButton, &QPushButton::clicked, this, &ImportBar::skippedRequested);
    connect(m_removeButton, &QPushButton::clicked, this, &ImportBar::removalRequested);
    connect(m_cancelButton, &QPushButton::clicked, this, &ImportBar::cancelRequested);
    connect(m_dismissButton, &QPushButton::clicked, this, &QWidget::hide);
}

void ImportBar::applySkin()
{
    const VLSkinSetting* skin = VLSkinSetting::GetInstance();
    const QString sheet = QStringLiteral("#import_bar { border-top: 1px solid %1; }"
                                         "WrappedLabel { color: %2; font-size: 12px; }"
                                         "QProgressBar { background: %1; border: 0; border-radius: 2px; }"
                                         "QProgressBar::chunk { background: %3; border-radius: 2px; }");
    setStyleSheet(sheet.arg(skin->GetPopupWinBorderColor().name(), skin->GetTextColor(1).name(),
                            skin->GetInputAndButtonColor().name()) +
                  flatButtonStyle());
}

void ImportBar::showButtons(bool running, bool skipped, bool missing)
{
    m_progress->setVisible(running);
    m_cancelButton->setVisible(running);
    m_dismissButton->setVisible(!running);
    m_skippedButton->setVisible(skipped);
    m_removeButton->setVisible(missing);
    show();
}
