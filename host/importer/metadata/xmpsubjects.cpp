// SPDX-License-Identifier: MIT
#include "host/importer/metadata/xmpsubjects.h"

#include "host/importer/metadata/iptctext.h"

#include <QHash>
#include <QXmlStreamReader>

namespace {

const QLatin1String dublinCore("http://purl.org/dc/elements/1.1/");
const QLatin1String rdf("http://www.w3.org/1999/02/22-rdf-syntax-ns#");

bool isEntity(const QString& text, int ampersand)
{
    const int end = text.indexOf(QLatin1Char(';'), ampersand);
    if (end < 0 || end == ampersand + 1)
        return false;
    for (int i = ampersand + 1; i < end; ++i) {
        if (!text.at(i).isLetterOrNumber() && text.at(i) != QLatin1Char('#'))
            return false;
    }
    return true;
}

// Characters that XML forbids become blanks, and an ampersand that begins nothing becomes one that may stand there.
QString mended(const QString& text)
{
    QString result;
    result.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const bool isForbidden = (c < QLatin1Char(' ') && !c.isSpace()) || c == QChar(0xfffe) || c == QChar(0xffff);
        result += isForbidden ? QLatin1Char(' ') : c;
        if (c == QLatin1Char('&') && !isEntity(text, i))
            result += QLatin1String("amp;");
    }
    return result;
}

QString decoded(const QByteArray& packet)
{
    // UTF-8 by rule; some programs write the code page of their system.
    return mended(decodeIptcText(packet, {})).trimmed();
}

/// Reads names with prefixes by itself: for the parser, one that is not declared would be the end.
class SubjectReader
{
public:
    explicit SubjectReader(const QByteArray& packet)
        : m_xml(decoded(packet))
    {
        m_xml.setNamespaceProcessing(false);
    }

    XmpSubjects read()
    {
        while (!m_xml.atEnd()) {
            switch (m_xml.readNext()) {
            case QXmlStreamReader::StartElement:
                enter();
                break;
            case QXmlStreamReader::EndElement:
                leave();
                break;
            case QXmlStreamReader::Characters:
            case QXmlStreamReader::EntityReference:
                m_text += m_xml.text();
                break;
            default:
                break;
            }
        }
        if (m_xml.hasError() && !(m_seenRoot && m_depth == 0))
            m_result.error = m_xml.errorString();
        return m_result;
    }

private:
    void enter()
    {
        m_seenRoot = true;
        ++m_depth;
        const QXmlStreamAttributes attributes = m_xml.attributes();
        for (const QXmlStreamAttribute& attribute : attributes) {
            const QStringRef name = attribute.qualifiedName();
            if (name.startsWith(QLatin1String("xmlns:")))
                m_namespaces.insert(name.mid(6).toString(), attribute.value().toString());
        }
        for (const QXmlStreamAttribute& attribute : attributes) {
            if (isName(attribute.qualifiedName(), dublinCore, QLatin1String("dc"), QLatin1String("subject")))
                m_result.keywords.append(attribute.value().toString());
        }
        m_text.clear();
        if (m_subjectDepth == 0 &&
            isName(m_xml.qualifiedName(), dublinCore, QLatin1String("dc"), QLatin1String("subject"))) {
            m_subjectDepth = m_depth;
            m_hasItems = false;
        }
    }

    void leave()
    {
        if (m_subjectDepth > 0) {
            const bool isItem = isName(m_xml.qualifiedName(), rdf, QLatin1String("rdf"), QLatin1String("li"));
            const bool isSubject = m_depth == m_subjectDepth;
            if (isItem || (isSubject && !m_hasItems))
                m_result.keywords.append(m_text);
            m_hasItems = m_hasItems || isItem;
            if (isSubject)
                m_subjectDepth = 0;
        }
        m_text.clear();
        --m_depth;
    }

    [[nodiscard]] bool isName(const QStringRef& qualified, QLatin1String space, QLatin1String usualPrefix,
                              QLatin1String local) const
    {
        const int colon = qualified.indexOf(QLatin1Char(':'));
        if (colon < 0 || qualified.mid(colon + 1) != local)
            return false;
        const QString prefix = qualified.left(colon).toString();
        const auto declared = m_namespaces.constFind(prefix);
        return declared != m_namespaces.constEnd() ? *declared == space : prefix == usualPrefix;
    }

    QXmlStreamReader m_xml;
    QHash<QString, QString> m_namespaces;  // By prefix; the one declared last counts everywhere after it.
    XmpSubjects m_result;
    QString m_text;
    int m_depth = 0;
    int m_subjectDepth = 0;  // Of the dc:subject that is being read; 0 outside.
    bool m_hasItems = false;
    bool m_seenRoot = false;
};

}  // namespace

XmpSubjects XmpSubjects::read(const QByteArray& packet)
{
    return SubjectReader(packet).read();
}
