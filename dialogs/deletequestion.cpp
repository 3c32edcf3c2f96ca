// SPDX-License-Identifier: MIT
#include "dialogs/deletequestion.h"

#include "dialogs/styletext.h"
#include "dialogs/typedname.h"

#include <vlskinsetting.h>

#include <QFont>
#include <QTextBoundaryFinder>
#include <QTextDocument>
#include <QTextOption>
#include <QVector>

#include <algorithm>

namespace {
// The body of VLMessageBox, in logical pixels.
constexpr int bodyWidth = 300;
constexpr int bodyHeight = 70;
constexpr int bodyFontSize = 13;

// More characters than the body can ever show, so that measuring does not grow with the name.
constexpr int mostCharacters = 200;

QString filled(const QString& translatedTemplate, const QString& name, int count)
{
    const VLSkinSetting* skin = VLSkinSetting::GetInstance();
    const QString highlight = colorText(skin->GetPopupWinBlueColor());
    const QString remark = colorText(skin->GetTextColor(1));
    return translatedTemplate.arg(highlight, typedNameAsRichText(name), highlight, QString::number(count), remark);
}

bool fitsBody(const QString& richText)
{
    QFont font;
    font.setPixelSize(bodyFontSize);
    QTextDocument document;
    document.setDefaultFont(font);
    document.setDocumentMargin(0);
    document.setDefaultTextOption(QTextOption(Qt::AlignCenter));
    document.setHtml(richText);
    document.setTextWidth(bodyWidth);
    return document.idealWidth() <= bodyWidth && document.size().height() <= bodyHeight;
}

/// Where the characters of a text begin, as a reader counts them, and its end.
QVector<int> characterBoundaries(const QString& text)
{
    QVector<int> boundaries{0};
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    for (int next = finder.toNextBoundary(); next >= 0; next = finder.toNextBoundary())
        boundaries.append(next);
    return boundaries;
}

QString keepEnds(const QString& name, const QVector<int>& boundaries, int keptCharacters)
{
    const int characters = boundaries.size() - 1;
    const int head = boundaries.at((keptCharacters + 1) / 2);
    const int tail = boundaries.at(characters - keptCharacters / 2);
    return name.left(head) + QChar(0x2026) + name.mid(tail);
}

/// The name, or as much of both its ends as the body can show.
QString shownName(const QString& translatedTemplate, const QString& name, int count)
{
    const QVector<int> boundaries = characterBoundaries(name);
    const int characters = boundaries.size() - 1;
    if (characters <= mostCharacters && fitsBody(filled(translatedTemplate, name, count)))
        return name;

    int fitting = 1;
    int tooMany = std::min(characters, mostCharacters);
    while (tooMany - fitting > 1) {
        const int kept = (fitting + tooMany) / 2;
        if (fitsBody(filled(translatedTemplate, keepEnds(name, boundaries, kept), count)))
            fitting = kept;
        else
            tooMany = kept;
    }
    return characters > 1 ? keepEnds(name, boundaries, fitting) : name;
}
}  // namespace

QString fillDeleteQuestion(const QString& translatedTemplate, const QString& name, int count)
{
    return filled(translatedTemplate, shownName(translatedTemplate, name, count), count);
}

bool isShortenedInQuestion(const QString& translatedTemplate, const QString& name, int count)
{
    return shownName(translatedTemplate, name, count) != name;
}
