// SPDX-License-Identifier: MIT
#include "host/services/skin.h"

#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace {

bool readFile(const QString& path, QByteArray* content, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = Skin::tr("%1 cannot be read: %2").arg(QDir::toNativeSeparators(path), file.errorString());
        return false;
    }
    *content = file.readAll();
    return true;
}

bool parseObject(const QString& path, QJsonObject* object, QString* error)
{
    QByteArray content;
    if (!readFile(path, &content, error))
        return false;
    QJsonParseError parseError{};
    const QJsonDocument document = QJsonDocument::fromJson(content, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        const int line = content.left(parseError.offset).count('\n') + 1;
        *error = Skin::tr("%1, line %2: %3")
                     .arg(QDir::toNativeSeparators(path), QString::number(line), parseError.errorString());
        return false;
    }
    if (!document.isObject()) {
        *error = Skin::tr("%1 holds no object of colours").arg(QDir::toNativeSeparators(path));
        return false;
    }
    *object = document.object();
    return true;
}

bool isReadableImage(const QString& path)
{
    return QImageReader(path).size().isValid();
}

}  // namespace

QString styleSheetUrl(const QString& path)
{
    QString escaped = path;
    escaped.replace(QLatin1Char('\\'), QLatin1String("\\\\")).replace(QLatin1Char('"'), QLatin1String("\\\""));
    return QLatin1String("url(\"") + escaped + QLatin1String("\")");
}

std::optional<Skin> Skin::fromFolder(const QString& folder, const Skin* base, QString* error)
{
    if (!QDir(folder).exists()) {
        *error = tr("The skin folder %1 does not exist").arg(QDir::toNativeSeparators(folder));
        return std::nullopt;
    }
    const QString root = QDir(folder).absolutePath();
    Skin skin;
    if (base)
        skin = *base;
    if (!skin.readColors(root, error) || !skin.readImages(root, error))
        return std::nullopt;
    for (const QString& name : {QStringLiteral("tagmanager"), QStringLiteral("menu")}) {
        const bool own = !base || QFile::exists(root + QLatin1Char('/') + name + QLatin1String(".qss"));
        if (!skin.readStyleSheet(own ? root : base->m_root, name, error))
            return std::nullopt;
    }
    skin.m_root = root;
    return skin;
}

bool Skin::readColors(const QString& folder, QString* error)
{
    const QString path = folder + QLatin1String("/colors.json");
    QJsonObject object;
    if (!parseObject(path, &object, error))
        return false;
    for (auto it = object.constBegin(); it != object.constEnd(); ++it) {
        const QColor color(it.value().toString());
        if (!color.isValid()) {
            *error = tr("%1: the value of \"%2\" is no colour").arg(QDir::toNativeSeparators(path), it.key());
            return false;
        }
        m_colors.insert(it.key(), color);
    }
    for (int i = 0; i < skinColorCount; ++i) {
        const QString name = skinColorName(static_cast<SkinColor>(i));
        if (!m_colors.contains(name)) {
            *error = tr("%1: the colour \"%2\" is missing").arg(QDir::toNativeSeparators(path), name);
            return false;
        }
        m_codeColors[static_cast<size_t>(i)] = m_colors.value(name);
    }
    return true;
}

bool Skin::readImages(const QString& folder, QString* error)
{
    const QDir icons(folder + QLatin1String("/icons"));
    const QStringList names = icons.entryList(QDir::Files | QDir::Readable);
    // What is compiled in is known to be whole, and reading it again would take a while at each start.
    const bool compiledIn = folder.startsWith(QLatin1Char(':'));
    for (const QString& name : names) {
        const QString path = icons.filePath(name);
        if (!compiledIn && !isReadableImage(path)) {
            *error = tr("%1 is no image that can be shown").arg(QDir::toNativeSeparators(path));
            return false;
        }
        m_images.insert(name, path);
    }
    return true;
}

bool Skin::readStyleSheet(const QString& folder, const QString& name, QString* error)
{
    const QString path = folder + QLatin1Char('/') + name + QLatin1String(".qss");
    QByteArray content;
    if (!readFile(path, &content, error))
        return false;
    const QString source = QString::fromUtf8(content);
    static const QRegularExpression placeholder(QStringLiteral("@\\{(\\w+):([^{}]*)\\}"));
    QString sheet;
    int end = 0;
    for (auto it = placeholder.globalMatch(source); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        const QString value = placeholderValue(match.captured(1), match.captured(2));
        if (value.isEmpty()) {
            *error = tr("%1: the skin has nothing for %2").arg(QDir::toNativeSeparators(path), match.captured());
            return false;
        }
        sheet += source.midRef(end, match.capturedStart() - end) + value;
        end = match.capturedEnd();
    }
    sheet += source.midRef(end);
    m_styleSheets.insert(name, sheet);
    return true;
}

QString Skin::placeholderValue(const QString& kind, const QString& name) const
{
    if (kind == QLatin1String("color") && m_colors.contains(name))
        return m_colors.value(name).name(QColor::HexArgb);
    if (kind == QLatin1String("image") && m_images.contains(name))
        return styleSheetUrl(m_images.value(name));
    return {};
}
