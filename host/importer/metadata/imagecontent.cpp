// SPDX-License-Identifier: MIT
#include "host/importer/metadata/imagecontent.h"

#include <QByteArray>

#include <string_view>

using namespace std::string_view_literals;

namespace {

bool isSvg(const QByteArray& head)
{
    return head.contains("<svg") || head.contains(":svg") ||
           (head.trimmed().startsWith('<') && (head.contains("<?xml") || head.contains("<!")));
}

QByteArray formatByMark(const QByteArray& head)
{
    const auto begins = [&head](std::string_view mark) {
        return head.startsWith(QByteArray::fromRawData(mark.data(), int(mark.size())));
    };
    if (begins("\xff\xd8\xff"sv))
        return "jpeg";
    if (begins("\x89PNG\r\n\x1a\n"sv))
        return "png";
    if (begins("GIF8"sv))
        return "gif";
    if (begins("II*\0"sv) || begins("MM\0*"sv) || begins("II+\0"sv) || begins("MM\0+"sv))
        return "tiff";
    if (begins("RIFF"sv) && head.mid(8, 4) == "WEBP")
        return "webp";
    if (begins("BM"sv))
        return "bmp";
    if (begins("\0\0\1\0"sv))
        return "ico";
    if (begins("/* XPM"sv))
        return "xpm";
    if (head.size() > 2 && head.at(0) == 'P' && head.at(1) >= '1' && head.at(1) <= '6' && isspace(uchar(head.at(2))))
        return head.at(1) == '1' || head.at(1) == '4' ? "pbm" : head.at(1) == '2' || head.at(1) == '5' ? "pgm" : "ppm";
    return {};
}

}  // namespace

QByteArray imagecontent::format(const QByteArray& head, const QByteArray& name)
{
    QByteArray marked = formatByMark(head);
    if (!marked.isEmpty())
        return marked;
    QByteArray extension = name.mid(name.lastIndexOf('.') + 1).toLower();
    if (extension == "svgz" && head.startsWith("\x1f\x8b"))
        return "svgz";
    if ((extension == "svg" || extension == "svgz") && isSvg(head))
        return "svg";
    if (extension == "tga" || extension == "xbm")
        return extension;
    return {};
}
