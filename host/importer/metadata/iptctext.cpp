// SPDX-License-Identifier: MIT
#include "host/importer/metadata/iptctext.h"

#include <QByteArray>
#include <QHash>
#include <QTextCodec>

#include <optional>

namespace {

// The final bytes of the sequences for 96-character sets in the ISO international register of coded character sets.
QByteArray codecOf96CharacterSet(char finalByte)
{
    static const QHash<char, QByteArray> codecs = {
        {'A', "ISO-8859-1"},  {'B', "ISO-8859-2"},  {'C', "ISO-8859-3"},  {'D', "ISO-8859-4"},  {'F', "ISO-8859-7"},
        {'G', "ISO-8859-6"},  {'H', "ISO-8859-8"},  {'L', "ISO-8859-5"},  {'M', "ISO-8859-9"},  {'T', "ISO-8859-11"},
        {'V', "ISO-8859-10"}, {'Y', "ISO-8859-13"}, {'_', "ISO-8859-14"}, {'b', "ISO-8859-15"}, {'f', "ISO-8859-16"}};
    return codecs.value(finalByte);
}

QByteArray codecOfMultiByteSet(char finalByte)
{
    static const QHash<char, QByteArray> codecs = {{'A', "GB2312"}, {'B', "EUC-JP"}, {'C', "EUC-KR"}};
    return codecs.value(finalByte);
}

QByteArray declaredCodec(const QByteArray& characterSet)
{
    if (characterSet.size() < 3 || characterSet.at(0) != '\x1b')
        return {};
    const char finalByte = characterSet.at(characterSet.size() - 1);
    switch (characterSet.at(1)) {
    case '%':  // ESC % G is UTF-8; ESC % / G, H and I are its levels.
        return finalByte >= 'G' && finalByte <= 'I' ? "UTF-8" : QByteArray();
    case '-':
    case '.':
    case '/':
        return codecOf96CharacterSet(finalByte);
    case '$':
        return codecOfMultiByteSet(finalByte);
    default:
        return {};
    }
}

std::optional<QString> decode(const QByteArray& bytes, const QByteArray& codecName)
{
    const QTextCodec* const codec = codecName.isEmpty() ? nullptr : QTextCodec::codecForName(codecName);
    if (!codec)
        return {};
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QString text = codec->toUnicode(bytes.constData(), bytes.size(), &state);
    if (state.invalidChars > 0 || state.remainingChars > 0)
        return {};
    return text;
}

}  // namespace

QString decodeIptcText(const QByteArray& bytes, const QByteArray& characterSet)
{
    for (const QByteArray& codec : {declaredCodec(characterSet), QByteArray("UTF-8"), QByteArray("windows-1252")}) {
        if (const std::optional<QString> text = decode(bytes, codec))
            return *text;
    }
    return QString::fromLatin1(bytes);
}
