// SPDX-License-Identifier: MIT
#include "host/library/query/queryparser.h"

#include "host/library/query/querytokens.h"
#include "host/library/query/takentime.h"
#include "host/library/records/librarytext.h"

namespace {

using Kind = QueryToken::Kind;

class Parser
{
public:
    explicit Parser(const QString& query)
        : m_tokens(queryTokens(query))
    {
    }

    QueryTerm query();

private:
    /// Brackets and "not" inside each other. Each costs stack here and where the query is carried out.
    static constexpr int largestDepth = 200;

    [[nodiscard]] const QueryToken& current() const { return m_tokens.at(m_next); }
    [[nodiscard]] bool startsFactor() const;
    bool skip(Kind kind);

    QueryTerm alternatives();
    QueryTerm sequence();
    QueryTerm factor();
    QueryTerm inBrackets();
    QueryTerm negation();
    QueryTerm condition();
    [[noreturn]] void fail(const QString& message) const { throw QueryError{message, current().position}; }

    QVector<QueryToken> m_tokens;
    int m_next = 0;
    int m_depth = 0;
};

QueryTerm joined(QueryTerm::Kind kind, std::vector<QueryTerm> terms)
{
    if (terms.size() == 1)
        return std::move(terms.front());
    QueryTerm term;
    term.kind = kind;
    term.terms = std::move(terms);
    return term;
}

bool Parser::startsFactor() const
{
    return current().kind == Kind::Condition || current().kind == Kind::Not || current().kind == Kind::Open;
}

bool Parser::skip(Kind kind)
{
    if (current().kind != kind)
        return false;
    ++m_next;
    return true;
}

QueryTerm Parser::query()
{
    QueryTerm term = alternatives();
    if (current().kind == Kind::Close)
        fail(LibraryText::tr("This bracket closes none."));
    return term;
}

QueryTerm Parser::alternatives()
{
    std::vector<QueryTerm> terms;
    do
        terms.push_back(sequence());
    while (skip(Kind::Or));
    return joined(QueryTerm::Kind::Any, std::move(terms));
}

QueryTerm Parser::sequence()
{
    std::vector<QueryTerm> terms;
    do
        terms.push_back(factor());
    while (skip(Kind::And) || startsFactor());
    return joined(QueryTerm::Kind::All, std::move(terms));
}

QueryTerm Parser::factor()
{
    if (m_depth == largestDepth)
        fail(LibraryText::tr("The brackets are nested too deeply here."));
    ++m_depth;
    QueryTerm term;
    switch (current().kind) {
    case Kind::Open:
        term = inBrackets();
        break;
    case Kind::Not:
        term = negation();
        break;
    case Kind::Condition:
        term = condition();
        break;
    default:
        fail(LibraryText::tr("Something to look for is missing here."));
    }
    --m_depth;
    return term;
}

QueryTerm Parser::inBrackets()
{
    const int open = current().position;
    ++m_next;
    QueryTerm term = alternatives();
    if (!skip(Kind::Close))
        throw QueryError{LibraryText::tr("This bracket is not closed."), open};
    return term;
}

QueryTerm Parser::negation()
{
    ++m_next;
    QueryTerm term;
    term.kind = QueryTerm::Kind::Not;
    term.terms.push_back(factor());
    return term;
}

QueryTerm Parser::condition()
{
    const QueryToken& token = current();
    QueryTerm term;
    term.text = token.text;
    switch (token.key) {
    case QueryToken::Key::None:
        term.kind = token.isQuoted ? QueryTerm::Kind::Tag : QueryTerm::Kind::TagLike;
        if (!token.isQuoted && token.text.compare(QLatin1String("untagged"), Qt::CaseInsensitive) == 0)
            term.kind = QueryTerm::Kind::Untagged;
        break;
    case QueryToken::Key::Category:
        term.kind = QueryTerm::Kind::Category;
        break;
    case QueryToken::Key::Name:
        term.kind = QueryTerm::Kind::NameHas;
        break;
    case QueryToken::Key::Folder:
        term.kind = QueryTerm::Kind::FolderHas;
        break;
    case QueryToken::Key::Date:
        const auto times = takentime::range(token.text);
        if (!times)
            fail(LibraryText::tr("This is no date. Write 2024, 2024-05 or 2024-05-17, or two of them as in "
                                 "2024-05..2024-08."));
        term.kind = QueryTerm::Kind::TakenWithin;
        term.from = times->from;
        term.until = times->until;
        break;
    }
    ++m_next;
    return term;
}

}  // namespace

queryparser::Parsed queryparser::parse(const QString& query)
{
    try {
        return {Parser(query).query(), {}, 0};
    } catch (const QueryError& error) {
        return {{}, error.message, error.position};
    }
}

QString queryparser::quoted(const QString& text)
{
    QString escaped = text;
    escaped.replace(QLatin1Char('\\'), QLatin1String("\\\\")).replace(QLatin1Char('"'), QLatin1String("\\\""));
    return '"' + escaped + '"';
}
