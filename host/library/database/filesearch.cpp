// SPDX-License-Identifier: MIT
#include "host/library/database/filesearch.h"

#include "host/library/database/categorytable.h"
#include "host/library/database/filequeries.h"
#include "host/library/database/librarystatement.h"
#include "host/library/database/tagtable.h"
#include "host/library/query/foldedname.h"
#include "host/library/records/tagname.h"

#include <QHash>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>

namespace {

using Kind = QueryTerm::Kind;

/// Ids, ascending, each once. Not bits by id: the ids of a damaged library may be of any size.
using FileSet = QVector<qint64>;

void forEachCondition(const QueryTerm& term, const std::function<void(const QueryTerm& condition)>& visitor)
{
    if (term.terms.empty())
        visitor(term);
    for (const QueryTerm& inner : term.terms)
        forEachCondition(inner, visitor);
}

/// The ids that the names in a query stand for.
class NamedIds
{
public:
    NamedIds(LibraryDatabase& database, const QueryTerm& term);

    [[nodiscard]] QVector<qint64> of(const QueryTerm& condition) const;

private:
    using Names = QHash<QString, QVector<qint64>>;

    template <typename Row>
    static void fill(Names& names, const QVector<Row>& rows, QString (*keyOf)(const QString&));

    Names m_tagsLike;
    Names m_tags;
    Names m_categories;
};

NamedIds::NamedIds(LibraryDatabase& database, const QueryTerm& term)
{
    forEachCondition(term, [this](const QueryTerm& condition) {
        if (condition.kind == Kind::TagLike)
            m_tagsLike.insert(foldedname::folded(condition.text), {});
        else if (condition.kind == Kind::Tag)
            m_tags.insert(tagname::key(condition.text), {});
        else if (condition.kind == Kind::Category)
            m_categories.insert(foldedname::folded(condition.text), {});
    });
    if (!m_tagsLike.isEmpty() || !m_tags.isEmpty()) {
        const QVector<TagRow> tags = tagtable::tags(database);
        fill(m_tagsLike, tags, foldedname::folded);
        fill(m_tags, tags, tagname::key);
    }
    if (!m_categories.isEmpty())
        fill(m_categories, categorytable::categories(database), foldedname::folded);
}

template <typename Row>
void NamedIds::fill(Names& names, const QVector<Row>& rows, QString (*keyOf)(const QString&))
{
    if (names.isEmpty())
        return;
    for (const Row& row : rows) {
        const auto ids = names.find(keyOf(row.name));
        if (ids != names.end())
            ids->append(row.id);
    }
}

QVector<qint64> NamedIds::of(const QueryTerm& condition) const
{
    switch (condition.kind) {
    case Kind::TagLike:
        return m_tagsLike.value(foldedname::folded(condition.text));
    case Kind::Tag:
        return m_tags.value(tagname::key(condition.text));
    case Kind::Category:
        return m_categories.value(foldedname::folded(condition.text));
    default:
        return {};
    }
}

bool namesSomething(const QueryTerm& condition)
{
    return condition.kind == Kind::TagLike || condition.kind == Kind::Tag || condition.kind == Kind::Category;
}

/// A file, as the conditions see it.
struct File
{
    qint64 id;
    QString name;    ///< Folded; empty unless a condition asks.
    QString folder;  ///< Likewise.
    std::optional<qint64> taken;
};

/// A query made ready to be asked of one file after the other.
class Search
{
public:
    Search(LibraryDatabase& database, const QueryTerm& term);

    [[nodiscard]] QVector<qint64> find();

private:
    /// A term whose names are looked up and whose text is folded.
    struct Node
    {
        const QueryTerm* term;
        QString folded;
        const FileSet* files = nullptr;
        std::vector<Node> inner;
    };

    Node prepared(const QueryTerm& term, const NamedIds& names);
    const FileSet* filesOf(const QueryTerm& condition, const NamedIds& names);
    [[nodiscard]] static bool holds(const Node& node, const File& file);
    [[nodiscard]] File currentFile(LibraryStatement& select) const;

    LibraryDatabase& m_database;
    QHash<QVector<qint64>, std::shared_ptr<const FileSet>> m_sets;
    std::shared_ptr<const FileSet> m_tagged;
    bool m_readsPaths = false;
    bool m_readsTimes = false;
    Node m_root;
};

FileSet collect(LibraryStatement& select)
{
    FileSet files = select.integers();
    std::sort(files.begin(), files.end());
    files.erase(std::unique(files.begin(), files.end()), files.end());
    return files;
}

bool isIn(const FileSet* files, qint64 id)
{
    return std::binary_search(files->cbegin(), files->cend(), id);
}

Search::Search(LibraryDatabase& database, const QueryTerm& term)
    : m_database(database)
    , m_root(prepared(term, NamedIds(database, term)))
{
}

Search::Node Search::prepared(const QueryTerm& term, const NamedIds& names)
{
    Node node = {&term, {}, nullptr, {}};
    const bool asksPath = term.kind == Kind::NameHas || term.kind == Kind::FolderHas;
    m_readsPaths = m_readsPaths || asksPath;
    m_readsTimes = m_readsTimes || term.kind == Kind::TakenWithin;
    if (asksPath)
        node.folded = foldedname::folded(term.text);
    else if (namesSomething(term) || term.kind == Kind::Untagged)
        node.files = filesOf(term, names);
    for (const QueryTerm& inner : term.terms)
        node.inner.push_back(prepared(inner, names));
    return node;
}

const FileSet* Search::filesOf(const QueryTerm& condition, const NamedIds& names)
{
    if (condition.kind == Kind::Untagged) {
        LibraryStatement select(m_database, "SELECT file_id FROM file_tags JOIN tags ON tags.id = tag_id"
                                            " WHERE tags.deleted IS NULL");
        if (!m_tagged)
            m_tagged = std::make_shared<const FileSet>(collect(select.run()));
        return m_tagged.get();
    }
    QVector<qint64> ids = names.of(condition);
    if (condition.kind == Kind::Category)
        ids = filequeries::tagIdsOfCategories(m_database, ids);
    std::shared_ptr<const FileSet>& files = m_sets[ids];
    if (!files) {
        LibraryStatement select(m_database,
                                "SELECT file_id FROM file_tags WHERE tag_id IN (SELECT value FROM json_each(?))");
        files = std::make_shared<const FileSet>(collect(select.run(filequeries::jsonArray(ids))));
    }
    return files.get();
}

bool Search::holds(const Node& node, const File& file)
{
    const auto innerHolds = [&file](const Node& inner) { return holds(inner, file); };
    switch (node.term->kind) {
    case Kind::All:
        return std::all_of(node.inner.cbegin(), node.inner.cend(), innerHolds);
    case Kind::Any:
        return std::any_of(node.inner.cbegin(), node.inner.cend(), innerHolds);
    case Kind::Not:
        return !holds(node.inner.front(), file);
    case Kind::Untagged:
        return !isIn(node.files, file.id);
    case Kind::TagLike:
    case Kind::Tag:
    case Kind::Category:
        return isIn(node.files, file.id);
    case Kind::NameHas:
        return file.name.contains(node.folded);
    case Kind::FolderHas:
        return file.folder.contains(node.folded);
    case Kind::TakenWithin:
        return file.taken && *file.taken >= node.term->from && *file.taken < node.term->until;
    }
    return false;
}

File Search::currentFile(LibraryStatement& select) const
{
    File file = {select.integer(0), {}, {}, {}};
    if (m_readsPaths) {
        const QByteArray path = select.bytes(1);
        const int slash = path.lastIndexOf('/');
        file.name = foldedname::folded(QString::fromUtf8(path.mid(slash + 1)));
        file.folder = foldedname::folded(QString::fromUtf8(path.left(std::max(slash, 0))));
    }
    if (!select.isNull(2))
        file.taken = select.integer(2);
    return file;
}

QVector<qint64> Search::find()
{
    // The index by path holds all that the second statement reads.
    LibraryStatement select(m_database, m_readsTimes ? "SELECT id, path, taken FROM files ORDER BY root_id, path"
                                                     : "SELECT id, path, NULL FROM files ORDER BY root_id, path");
    select.run();
    QVector<qint64> ids;
    while (select.next()) {
        const File file = currentFile(select);
        if (holds(m_root, file))
            ids.append(file.id);
    }
    return ids;
}

}  // namespace

QVector<qint64> filesearch::find(LibraryDatabase& database, const QueryTerm& term)
{
    return Search(database, term).find();
}

QStringList filesearch::unknownNames(LibraryDatabase& database, const QueryTerm& term)
{
    const NamedIds names(database, term);
    QStringList unknown;
    forEachCondition(term, [&](const QueryTerm& condition) {
        if (namesSomething(condition) && names.of(condition).isEmpty() && !unknown.contains(condition.text))
            unknown.append(condition.text);
    });
    return unknown;
}
