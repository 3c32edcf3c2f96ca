// SPDX-License-Identifier: MIT
#include "host/library/query/querytokens.h"

#include "host/library/records/librarytext.h"

#include <QHash>

namespace {

class TokenReader
{
public:
    explicit TokenReader(const QString& query)
        : m_query(query)
    {
    }

    QueryToken next();

private:
    [[nodiscard]] bool isAtEnd() const { return m_position == m_query.size(); }
    [[nodiscard]] QChar current() const { return m_query.at(m_position); }
    [[nodiscard]] bool isAtWord() const;
    QueryToken bracket(QueryToken::Kind kind);
    QString word();
    QString quotedText();
    void readKey(QueryToken& token);
    static QueryToken::Kind kindOf(const QString& word);

    const QString& m_query;
    int m_position = 0;
};

bool TokenReader::isAtWord() const
{
    return !isAtEnd() && !current().isSpace() && current() != '(' && current() != ')' && current() != '"';
}

QueryToken TokenReader::next()
{
    while (!isAtEnd() && current().isSpace())
        ++m_position;
    QueryToken token;
    token.position = m_position;
    if (isAtEnd())
        return token;
    if (current() == '(')
        return bracket(QueryToken::Kind::Open);
    if (current() == ')')
        return bracket(QueryToken::Kind::Close);
    readKey(token);
    token.isQuoted = !isAtEnd() && current() == '"';
    token.text = token.isQuoted ? quotedText() : word();
    const bool isOperator = !token.isQuoted && token.key == QueryToken::Key::None;
    token.kind = isOperator ? kindOf(token.text) : QueryToken::Kind::Condition;
    if (token.text.isEmpty())
        throw QueryError{LibraryText::tr("Something to look for is missing here."), token.position};
    return token;
}

QueryToken TokenReader::bracket(QueryToken::Kind kind)
{
    QueryToken token;
    token.kind = kind;
    token.position = m_position++;
    return token;
}

void TokenReader::readKey(QueryToken& token)
{
    static const QHash<QString, QueryToken::Key> keys = {{QStringLiteral("category"), QueryToken::Key::Category},
                                                         {QStringLiteral("name"), QueryToken::Key::Name},
                                                         {QStringLiteral("folder"), QueryToken::Key::Folder},
                                                         {QStringLiteral("date"), QueryToken::Key::Date}};
    int end = m_position;
    while (end < m_query.size() && m_query.at(end).isLetter())
        ++end;
    if (end == m_query.size() || m_query.at(end) != ':')
        return;
    token.key = keys.value(m_query.mid(m_position, end - m_position).toLower(), QueryToken::Key::None);
    if (token.key != QueryToken::Key::None)
        m_position = end + 1;
}

QString TokenReader::word()
{
    const int start = m_position;
    while (isAtWord())
        ++m_position;
    return m_query.mid(start, m_position - start);
}

QString TokenReader::quotedText()
{
    const int start = m_position++;
    QString text;
    for (; !isAtEnd() && current() != '"'; ++m_position) {
        if (current() == '\\' && m_position + 1 < m_query.size() &&
            (m_query.at(m_position + 1) == '"' || m_query.at(m_position + 1) == '\\'))
            ++m_position;
        text += current();
    }
    if (isAtEnd())
        throw QueryError{LibraryText::tr("This quotation mark is not closed."), start};
    ++m_position;
    return text;
}

QueryToken::Kind TokenReader::kindOf(const QString& word)
{
    static const QHash<QString, QueryToken::Kind> operators = {{QStringLiteral("and"), QueryToken::Kind::And},
                                                               {QStringLiteral("or"), QueryToken::Kind::Or},
                                                               {QStringLiteral("not"), QueryToken::Kind::Not}};
    return operators.value(word.toLower(), QueryToken::Kind::Condition);
}

}  // namespace

QVector<QueryToken> queryTokens(const QString& query)
{
    TokenReader reader(query);
    QVector<QueryToken> tokens;
    do
        tokens.append(reader.next());
    while (tokens.constLast().kind != QueryToken::Kind::End);
    return tokens;
}
