// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>
#include <QWidget>

class QHBoxLayout;
class QLabel;
class QVBoxLayout;
class VLSvgWidget;
class VLTagSearchLineEdit;
struct TagPage;

/// The common frame of the window's pages: a row with icon and title, a description, a row with the search field.
/// Its button, texts and search field follow the page's record in tagPages(). Pages append their content to the main
/// layout. GUI thread only.
class VLTagBaseWidget : public QWidget
{
    Q_OBJECT

public:
    /// \a type: the value of a TagManagerPage; any other number makes a page without texts.
    VLTagBaseWidget(int type, QWidget* parent);
    ~VLTagBaseWidget() override;

    /// Shows the page's content anew; nothing here.
    virtual void rebuild();
    /// Called once a page was rebuilt; nothing here.
    virtual void updatePage();

    /// Null on a page that is not searched.
    [[nodiscard]] VLTagSearchLineEdit* searchField() const;

signals:
    /// The page's content changed its size. For listeners; nothing emits it.
    void signUpdateLayout();
    /// A tag's row is to be removed from the page. For listeners; nothing emits it.
    void signDelTagUi(QString tagName);
    /// The search field's text changed.
    void signSearchChanged(QString text);
    /// The user asked to see the files that carry these tags.
    void signalCheckoutFile(QVector<qint64> ids);
    /// Enter was pressed in the search field, and the page shows the results of its text.
    void searchSubmitted();

protected:
    /// Sees the events of the search field; consumes none.
    bool eventFilter(QObject* watched, QEvent* event) override;

    VLSvgWidget* m_iconWidget = nullptr;
    QLabel* m_titleLabel = nullptr;
    QLabel* m_desLabel = nullptr;
    VLSvgWidget* m_searchIcon = nullptr;
    VLTagSearchLineEdit* m_searchEdit = nullptr;
    QHBoxLayout* m_titleLayout = nullptr;
    QHBoxLayout* m_desLayout = nullptr;
    QVBoxLayout* m_mainLayout = nullptr;
    const TagPage* m_page;  ///< Null for a type that is no page.

private:
    void makeTitle();
    QHBoxLayout* makeSearchRow();
    void applyTexts();
    void arrange(QHBoxLayout* searchRow);
};
