// SPDX-License-Identifier: MIT
#pragma once

#include <itagcolorprovider.h>

/// The eight colours of tags. White text on each has a contrast of at least 4.5:1, and neighbours in the order offered
/// differ in lightness as well as in hue, so that they stay apart for people with a colour-vision deficiency.
///
/// Exempt from that contrast is the chip below the pointer: the tag manager lays white at an opacity of 100/255 over
/// it, which leaves 2.4 to 3.4:1 here. No palette can help: only greys up to #1e1e1e would keep 4.5:1, and those cannot
/// be told from the window.
///
/// Unchanging; may be used on any thread. The one object lives until the process ends.
class TagPalette final : public ITagColorProvider
{
public:
    static constexpr int size = 8;

    virtual ~TagPalette() = default;

    /// Never null, never to be deleted; not const because the plug-in takes a palette that way.
    static ITagColorProvider* instance();
    /// The colour that a tag made from a keyword gets: the same for the same name, everywhere.
    [[nodiscard]] static int indexForName(const QString& name);

    [[nodiscard]] const QVector<TagColorEntry>& colorEntries() const override;
    /// An index outside of the palette gives the first colour.
    void color(int index, QColor& out) const override;

private:
    TagPalette();

    QVector<TagColorEntry> m_entries;
};
