// SPDX-License-Identifier: MIT
#include "dialogs/typedname.h"

#include <QRegularExpression>
#include <QVector>

#include <algorithm>

namespace {
// Direction controls, named as in the Unicode Bidirectional Algorithm (UAX #9).
constexpr ushort alm = 0x061C;
constexpr ushort lrm = 0x200E;
constexpr ushort rlm = 0x200F;
constexpr ushort lre = 0x202A;
constexpr ushort pdf = 0x202C;
constexpr ushort rlo = 0x202E;
constexpr ushort lri = 0x2066;
constexpr ushort fsi = 0x2068;
constexpr ushort pdi = 0x2069;

// QTextDocument keeps these two for the ends of its frames.
constexpr ushort frameBegin = 0xFDD0;
constexpr ushort frameEnd = 0xFDD1;

bool isDirectionControl(QChar c)
{
    const ushort u = c.unicode();
    return u == alm || u == lrm || u == rlm || (u >= lre && u <= rlo) || (u >= lri && u <= pdi);
}

bool opensEmbedding(ushort u)
{
    return u >= lre && u <= rlo && u != pdf;
}

bool opensIsolate(ushort u)
{
    return u >= lri && u <= fsi;
}

/// What every direction control in a name that is still open needs to be closed with, the innermost last.
class OpenControls
{
public:
    /// Whether \a u may stay in the name; a closing control without its opening one would act outside the name.
    bool accept(ushort u)
    {
        if (opensEmbedding(u))
            m_closers.append(pdf);
        else if (opensIsolate(u))
            m_closers.append(pdi);
        else if (u == pdf)
            return closeEmbedding();
        else if (u == pdi)
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
        if (m_closers.isEmpty() || m_closers.last() != pdf)
            return false;
        m_closers.removeLast();
        return true;
    }

    /// Ends the embeddings inside the isolate, too.
    bool closeIsolate()
    {
        const int isolate = m_closers.lastIndexOf(pdi);
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
    return QChar(fsi) + balanced + open.closers() + QChar(pdi);
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
    shown.replace(QChar(frameBegin), QChar(QChar::ReplacementCharacter));
    shown.replace(QChar(frameEnd), QChar(QChar::ReplacementCharacter));
    QString html = isolated(shown).toHtmlEscaped();
    if (!losesWhiteSpace(shown))
        return html;
    return QLatin1String("<span style='white-space:pre-wrap'>") + withLineBreaks(html) + QLatin1String("</span>");
}
