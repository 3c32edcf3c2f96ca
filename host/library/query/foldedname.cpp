// SPDX-License-Identifier: MIT
#include "host/library/query/foldedname.h"

#include <QVector>

#include <memory>
#include <unicode/normalizer2.h>
#include <unicode/translit.h>

namespace {

bool isPlainAscii(const QString& name)
{
    for (const QChar c : name) {
        if (c.unicode() >= 0x80)
            return false;
    }
    return true;
}

std::unique_ptr<icu::Transliterator> transliterator(const char* id)
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Transliterator> made(
        icu::Transliterator::createInstance(icu::UnicodeString(id, -1, US_INV), UTRANS_FORWARD, status));
    return U_SUCCESS(status) ? std::move(made) : nullptr;
}

icu::UnicodeString toIcu(const QString& text)
{
    return {text.utf16(), text.size()};
}

QString fromIcu(const icu::UnicodeString& text)
{
    return QString::fromUtf16(text.getBuffer(), text.length());
}

bool hasChinese(const QString& name)
{
    for (const uint c : name.toUcs4()) {
        if (QChar::script(c) == QChar::Script_Han)
            return true;
    }
    return false;
}

}  // namespace

QString foldedname::folded(const QString& name)
{
    // One for each thread: an ICU object must not be shared. Null where ICU has no data for it; accents count then.
    static thread_local const std::unique_ptr<icu::Transliterator> toAscii = transliterator("Latin-ASCII");
    if (isPlainAscii(name))
        return name.toLower();
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* const fold = icu::Normalizer2::getNFKCCasefoldInstance(status);
    icu::UnicodeString text = toIcu(name);
    if (U_SUCCESS(status))
        text = fold->normalize(text, status);
    if (U_FAILURE(status))
        return name.toCaseFolded();
    if (toAscii)
        toAscii->transliterate(text);
    return fromIcu(text);
}

QString foldedname::reading(const QString& name)
{
    static thread_local const std::unique_ptr<icu::Transliterator> toLatin = transliterator("Han-Latin; Latin-ASCII");
    if (isPlainAscii(name) || !toLatin || !hasChinese(name))
        return {};
    icu::UnicodeString text = toIcu(name);
    toLatin->transliterate(text);
    return folded(fromIcu(text)).remove(QLatin1Char(' '));
}
