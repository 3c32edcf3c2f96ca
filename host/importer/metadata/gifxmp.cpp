// SPDX-License-Identifier: MIT
#include "host/importer/metadata/gifxmp.h"

#include <QByteArray>

#include <cstring>

namespace {

// The GIF89a specification has the blocks, the XMP specification (part 3) the extension with XMP.
constexpr char gifMark[] = "GIF8";
constexpr int headerSize = 13;
constexpr int imageDescriptorSize = 10;
constexpr int extensionHeadSize = 2;
constexpr unsigned char extensionMark = 0x21;
constexpr unsigned char imageMark = 0x2c;
constexpr unsigned char applicationLabel = 0xff;
constexpr char xmpApplication[] = "\x0bXMP DataXMP";
constexpr int xmpApplicationSize = sizeof xmpApplication - 1;
// 0x01, 0xff to 0x00, 0x00: whatever byte of the packet is taken for the length of a block, it leads to the end.
constexpr int trailerSize = 258;

/// Walks from block to block.
class GifBlocks
{
public:
    GifBlocks(const unsigned char* data, long size)
        : m_data(data)
        , m_size(size)
    {
    }

    QByteArray findXmp()
    {
        m_at = headerSize + colorTable(at(headerSize - 3));
        while (m_at < m_size) {
            const long block = m_at;
            if (at(block) == extensionMark) {
                m_at += extensionHeadSize;
                const bool isXmp = at(block + 1) == applicationLabel && m_at + xmpApplicationSize < m_size &&
                                   memcmp(text(m_at), xmpApplication, xmpApplicationSize) == 0;
                skipData();
                if (isXmp)
                    return packet(block + extensionHeadSize + xmpApplicationSize);
            } else if (at(block) == imageMark) {
                m_at += imageDescriptorSize + colorTable(at(block + imageDescriptorSize - 1)) + 1;
                skipData();
            } else {
                return {};
            }
        }
        return {};
    }

private:
    [[nodiscard]] const char* text(long offset) const
    {
        return reinterpret_cast<const char*>(m_data) + offset;  // NOLINT(*-reinterpret-cast)
    }
    [[nodiscard]] unsigned char at(long offset) const { return offset < m_size ? m_data[offset] : 0; }

    // Bytes of the colour table that these flags announce.
    static long colorTable(unsigned char flags) { return flags & 0x80 ? 3L << ((flags & 7) + 1) : 0; }

    void skipData()
    {
        while (at(m_at) != 0)
            m_at += at(m_at) + 1;
        ++m_at;
    }

    [[nodiscard]] QByteArray packet(long begin) const
    {
        const long end = qMin(m_at, m_size) - trailerSize;
        return begin < end ? QByteArray(text(begin), int(qMin(end - begin, 64L << 20))) : QByteArray();
    }

    const unsigned char* m_data;
    long m_size;
    long m_at = 0;
};

}  // namespace

bool isGif(const unsigned char* data, long size)
{
    return size >= long(sizeof gifMark - 1) && memcmp(data, gifMark, sizeof gifMark - 1) == 0;
}

QByteArray gifXmpPacket(const unsigned char* data, long size)
{
    return GifBlocks(data, size).findXmp();
}
