// SPDX-License-Identifier: MIT
#include "dialogs/typedname.h"

#include <QRegularExpression>
#include <QVector>

#include <algorithm>

namespace {
// Direction controls, named as in the Unicode Bidirectional Algorithm (UAX #9).
constexpr ushort kAlm = 0x061C;
constexpr ushort kLrm = 0x200E;
constexpr ushort kRlm = 0x200F;
constexpr ushort kLre = 0x202A;
constexpr ushort kPdf = 0x202C;
constexpr ushort kRlo = 0x202E;
constexpr ushort kLri = 0x2066;
constexpr ushort kFsi = 0x2068;
constexpr ushort kPdi = 0x2069;

// QTextDocument keeps these two for the ends of its frames.
constexpr ushort kFrameBegin = 0xFDD0;
constexpr ushort kFrameEnd = 0xFDD1;

bool isDirectionControl(QChar c)
{
    const ushort u = c.unicode();
    return u == kAlm || u == kLrm || u == kRlm || (u >= kLre && u <= kRlo) || (u >= kLri && u <= kPdi);
}

bool opensEmbedding(ushort u)
{
    return u >= kLre && u <= kRlo && u != kPdf;
}

bool opensIsolate(ushort u)
{
    return u >= kLri && u <= kFsi;
}

/// What every direction control in a name that is still open needs to be closed with, the innermost last.
class OpenControls
{
public:
    /// Whether \a u may stay in the name; a closing control without its opening one would act outside the name.
    bool accept(ushort u)
    {
        if (opensEmbedding(u))
            m_closers.append(kPdf);
        else if (opensIsolate(u))
            m_closers.append(kPdi);
        else if (u == kPdf)
            return closeEmbedding();
        else if (u == kPdi)
            return closeIsolate();
        return true;
    }

    [[nodiscard]] QString closers() const
    {
        QString text;
        std::for_each(m_closers.crbegin(), m_closers.crend(), [&text](ushort closer) { text.append(QChar(closer)); });
        return text;
    }

private:
    bool closeEmbedding()
    {
        if (m_closers.isEmpty() || m_closers.last() != kPdf)
            return false;
        m_closers.removeLast();
        return true;
    }

    /// Ends the embeddings inside the isolate, too.
    bool closeIsolate()
    {
        const int isolate = m_closers.lastIndexOf(kPdi);
        if (isolate < 0)
            return false;
        m_closers.resize(isolate);
        return true;
    }

    QVector<ushort> m_closers;
};

QString isolated(const QString& name)
{
    if (std::none_of(name.cbegin(), name.cend(), isDirectionControl))
        return name;
    OpenControls open;
    QString balanced;
    for (const QChar c : name) {
        if (open.accept(c.unicode()))
            balanced.append(c);
    }
    return QChar(kFsi) + balanced + open.closers() + QChar(kPdi);
}

/// One run of lines, so that no part of the sentence around becomes a paragraph with a direction of its own.
QString withLineBreaks(QString html)
{
    static const QRegularExpression lineEnd(QStringLiteral("\\r\\n|[\\r\\n\\x{2028}\\x{2029}]"));
    return html.replace(lineEnd, QStringLiteral("<br/>"));
}

bool losesWhiteSpace(const QString& name)
{
    static const QRegularExpression fragile(QStringLiteral("^\\s|\\s$|\\s\\s|[^\\S ]"),
                                            QRegularExpression::UseUnicodePropertiesOption);
    return name.contains(fragile);
}
}  // namespace

QString typedNameAsRichText(const QString& name)
{
    QString shown = name;
    shown.replace(QChar(kFrameBegin), QChar(QChar::ReplacementCharacter));
    shown.replace(QChar(kFrameEnd), QChar(QChar::ReplacementCharacter));
    QString html = isolated(shown).toHtmlEscaped();
    if (!losesWhiteSpace(shown))
        return html;
    return QLatin1String("<span style='white-space:pre-wrap'>") + withLineBreaks(html) + QLatin1String("</span>");
}
