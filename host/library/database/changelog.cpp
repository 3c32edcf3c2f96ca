// SPDX-License-Identifier: MIT
#include "host/library/database/changelog.h"

#include "host/library/database/librarystatement.h"

#include <QDateTime>

namespace {

constexpr int mostEntries = 1000;
constexpr int mostBytes = 16 << 20;
constexpr int mostBytesOfEntry = 4 << 20;
/// Entries between two looks whether old ones are to be dropped.
constexpr int lookEvery = 64;

QVariant payloadOf(const LibraryChange& change)
{
    const QByteArray bytes = change.toBytes();
    return bytes.size() <= mostBytesOfEntry ? bytes : QVariant(QVariant::ByteArray);
}

void dropOldEntries(LibraryDatabase& database, qint64 lastId)
{
    LibraryStatement(database, "DELETE FROM changes WHERE id <= ?").run(lastId - mostEntries);
    LibraryStatement(database,
                     "DELETE FROM changes WHERE id < (SELECT min(id) FROM (SELECT id, sum(ifnull(length(payload), 0))"
                     " OVER (ORDER BY id DESC) AS bytes FROM changes) WHERE bytes <= ?)")
        .run(mostBytes);
}

QString person()
{
    static const QString name = qEnvironmentVariable("USER");
    return name;
}

}  // namespace

changelog::Place changelog::last(LibraryDatabase& database)
{
    LibraryStatement select(database, "SELECT id, request FROM changes ORDER BY id DESC LIMIT 1");
    if (!select.run().next())
        return {};
    return {select.integer(0), select.bytes(1)};
}

bool changelog::isLogOf(LibraryDatabase& database, const Place& place)
{
    LibraryStatement select(database, "SELECT id, request FROM changes WHERE id >= ? ORDER BY id LIMIT 1");
    if (!select.run(place.id).next())
        return place.id == 0;
    return select.integer(0) != place.id || select.bytes(1) == place.request;
}

changelog::Place changelog::append(LibraryDatabase& database, const Place& before, ChangeKind kind,
                                   const LibraryChange& change)
{
    Place place = {before.id + 1, QUuid::createUuid().toRfc4122()};
    LibraryStatement(database, "INSERT INTO changes (id, kind, who, at, request, payload) VALUES (?, ?, ?, ?, ?, ?)")
        .run(place.id, int(kind), person(), QDateTime::currentMSecsSinceEpoch(), place.request, payloadOf(change));
    if (place.id % lookEvery == 0)
        dropOldEntries(database, place.id);
    return place;
}

std::optional<QVector<LibraryChange>> changelog::takeAfter(LibraryDatabase& database, Place& place)
{
    LibraryStatement select(database, "SELECT id, request, payload FROM changes WHERE id >= ? ORDER BY id");
    select.run(place.id);
    QVector<LibraryChange> changes;
    Place reached = place;
    // The entry at the place itself shows that this is still the same log.
    bool isSame = place.id == 0;
    while (select.next()) {
        if (select.integer(0) == place.id) {
            isSame = select.bytes(1) == place.request;
            continue;
        }
        const std::optional<LibraryChange> change = LibraryChange::fromBytes(select.bytes(2));
        if (!isSame || !change || select.integer(0) != reached.id + 1)
            return std::nullopt;
        changes.append(*change);
        reached = {select.integer(0), select.bytes(1)};
    }
    if (!isSame)
        return std::nullopt;
    place = reached;
    return changes;
}
