// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVector>

#include <memory>

class MemoryHost;
class QScrollBar;
class QWidget;

namespace bench {

/// One of the two programs that are compared: a window over the library of a host in memory.
///
/// Everything that happens to the library happens through the host, the same way for both. GUI thread only.
class Side
{
public:
    virtual ~Side();

    /// Builds the window over the host's library and shows it at 1100 x 700 pixels.
    virtual void open() = 0;
    [[nodiscard]] virtual QWidget* window() const = 0;
    /// What moves over the tags, and the widget through which they are seen.
    [[nodiscard]] virtual QScrollBar* scrollBar() const = 0;
    [[nodiscard]] virtual QWidget* viewport() const = 0;
    /// Resizes the window and has the tags laid out for it at once.
    virtual void setWidth(int width) = 0;
    virtual void search(const QString& text) = 0;
    /// The host changed the tag and has sent the tag's signal.
    virtual void follow(qint64 tag_id) = 0;
    /// How many tags are listed, to prove that both sides show the same.
    [[nodiscard]] virtual int shownTags() const = 0;
};

enum class SideKind
{
    Plugin,
    Baseline
};

/// \a host must outlive the side.
std::unique_ptr<Side> makeSide(SideKind kind, MemoryHost* host);

}  // namespace bench
