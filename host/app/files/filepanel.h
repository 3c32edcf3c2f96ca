// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>
#include <QWidget>

class ElidedLabel;
class FileView;
class QLabel;
class QueryBar;
class TagStrip;
class QStackedWidget;
class QToolButton;
class WrappedLabel;

/// Shows the requested files, or a message in their place, below a title.
class FilePanel : public QWidget
{
    Q_OBJECT

public:
    explicit FilePanel(QWidget* parent = nullptr);

    /// All texts are shown as plain text.
    void setTitle(const QString& title);
    void showMessage(const QString& message);
    /// A sentence below the files; empty for none. showMessage() removes it.
    void setNotice(const QString& notice);
    void showFiles(const QVector<qint64>& ids, bool keepPlace);

    [[nodiscard]] FileView* view() const { return m_view; }
    [[nodiscard]] QueryBar* queryBar() const { return m_queryBar; }
    [[nodiscard]] TagStrip* strip() const { return m_strip; }
    [[nodiscard]] QString title() const;
    /// Empty while files are shown.
    [[nodiscard]] QString message() const;

    /// Whether \a pos, in logical pixels of the panel, lies above the files.
    [[nodiscard]] bool isHeaderAt(const QPoint& pos) const;

signals:
    /// The panel came into sight or went.
    void visibilityChanged(bool isVisible);
    /// The user closed the panel.
    void closeRequested();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void setUpHeader();
    void setUpBody();
    void applySkin();

    ElidedLabel* m_title = nullptr;
    QToolButton* m_closeButton = nullptr;
    QStackedWidget* m_body = nullptr;
    FileView* m_view = nullptr;
    QLabel* m_message = nullptr;
    WrappedLabel* m_notice = nullptr;
    QueryBar* m_queryBar = nullptr;
    TagStrip* m_strip = nullptr;
};
