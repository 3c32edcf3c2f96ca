// SPDX-License-Identifier: MIT
#pragma once

#include "bench/side.h"

class QScrollArea;
class VLTagManagerWidget;

namespace bench {

/// The tag manager: the window that the plug-in gives its host.
class PluginSide : public Side
{
public:
    explicit PluginSide(MemoryHost* host);
    ~PluginSide() override;

    void open() override;
    [[nodiscard]] QWidget* window() const override;
    [[nodiscard]] QScrollBar* scrollBar() const override;
    [[nodiscard]] QWidget* viewport() const override;
    void setWidth(int width) override;
    void search(const QString& text) override;
    void follow(qint64 tag_id) override;
    [[nodiscard]] int shownTags() const override;

private:
    [[nodiscard]] QWidget* page() const;
    [[nodiscard]] QScrollArea* scrollArea() const;

    MemoryHost* m_host;
    std::unique_ptr<VLTagManagerWidget> m_window;
};

}  // namespace bench
