// SPDX-License-Identifier: MIT
#include "host/importer/metadata/metadataanswer.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

const QLatin1String keywordsKey("keywords");
const QLatin1String errorKey("error");

}  // namespace

QByteArray MetadataAnswer::toLine() const
{
    const QJsonObject object = {{keywordsKey, QJsonArray::fromStringList(keywords)}, {errorKey, error}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

std::optional<MetadataAnswer> MetadataAnswer::fromLine(const QByteArray& line)
{
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    if (!object.value(keywordsKey).isArray() || !object.value(errorKey).isString())
        return {};
    MetadataAnswer answer;
    answer.error = object.value(errorKey).toString();
    const QJsonArray keywords = object.value(keywordsKey).toArray();
    for (const auto& keyword : keywords)
        answer.keywords.append(keyword.toString());
    return answer;
}
