// SPDX-License-Identifier: MIT
#include "host/importer/metadata/metadataanswer.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace {

const QLatin1String keywordsKey("keywords");
const QLatin1String takenKey("taken");
const QLatin1String problemKey("problem");
const QLatin1String detailKey("detail");

/// The beginning of the year 10,000: no text that a reader process takes for a time means a later one.
constexpr double latestTime = 253402300800000;

}  // namespace

void MetadataAnswer::setProblem(Problem newProblem, const QString& newDetail)
{
    problem = newProblem;
    detail = newDetail;
    switch (problem) {
    case None:
        error.clear();
        break;
    case Empty:
        error = tr("The file is empty");
        break;
    case Unreadable:
        error = tr("The file's contents cannot be read");
        break;
    case UnknownFormat:
        error = tr("The contents are of no known picture format");
        break;
    case TooMuchMemory:
        error = tr("Reading it takes too much memory");
        break;
    case UnreadableXmp:
        error = tr("The keywords in it cannot be read");
        break;
    case DamagedStructure:
        error = tr("The file is damaged");
        break;
    }
    if (!detail.isEmpty())
        error += QLatin1String(" (") + detail + QLatin1Char(')');
}

QByteArray MetadataAnswer::toLine() const
{
    QJsonObject object = {
        {keywordsKey, QJsonArray::fromStringList(keywords)}, {problemKey, problem}, {detailKey, detail}};
    if (taken)
        object.insert(takenKey, *taken);
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

std::optional<MetadataAnswer> MetadataAnswer::fromLine(const QByteArray& line)
{
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    const int number = object.value(problemKey).toInt(-1);
    if (!object.value(keywordsKey).isArray() || number < None || number > lastProblem)
        return {};
    MetadataAnswer answer;
    answer.setProblem(static_cast<Problem>(number), object.value(detailKey).toString());
    const QJsonArray keywords = object.value(keywordsKey).toArray();
    for (const auto& keyword : keywords)
        answer.keywords.append(keyword.toString());
    const QJsonValue taken = object.value(takenKey);
    if (taken.isDouble() && std::abs(taken.toDouble()) < latestTime)
        answer.taken = static_cast<qint64>(taken.toDouble());
    return answer;
}
