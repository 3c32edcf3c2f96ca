// SPDX-License-Identifier: MIT
#include "host/app/files/filepanel.h"
#include "host/app/files/filepresenter.h"
#include "host/app/files/fileview.h"
#include "host/app/tagging/selectedtag.h"
#include "host/app/tagging/tagfield.h"
#include "host/app/tagging/tagstrip.h"
#include "tests/library/libraryfixture.h"

#include <QTest>
#include <QToolButton>

namespace {

ImportedFile picture(const QByteArray& path, const QVector<QString>& keywords)
{
    return {path, {100, 1, {}}, 1, {}, keywords};
}

}  // namespace

/// The tags of the selected pictures, and the field that puts on others.
class TstTagging : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        f = std::make_unique<LibraryFixture>();
        QVERIFY(f->isOpen());
        QVERIFY(f->import({picture("a.jpg", {"Sea", "Sky"}), picture("b.jpg", {"Sea"}), picture("c.jpg", {"City"})})
                    .succeeded());
        QTRY_COMPARE(f->shown(), f->stored());
        m_panel = std::make_unique<FilePanel>();
        m_presenter = std::make_unique<FilePresenter>(*f->library(), *m_panel);
        m_panel->resize(500, 600);
    }
    void cleanup()
    {
        m_presenter.reset();
        m_panel.reset();
    }

    void stripShowsWhatTheSelectionHas()
    {
        showTag("Sea", 2);
        QTRY_COMPARE(chips(), (QStringList{"Sea", "Sky (1 of 2)"}));
        chip("Sky")->findChildren<QToolButton*>().at(0)->click();
        QTRY_COMPARE(chips(), (QStringList{"Sea", "Sky"}));
        QCOMPARE(f->statusOf(f->tags()->renameTag(f->group(-1)->tagByName("Sky")->tagInfo()->id(), "Air")), 0);
        QTRY_COMPARE(chips(), (QStringList{"Air", "Sea"}));
        // The pictures stay while they are selected, although what found them is gone.
        QTest::keyClick(chip("Sea"), Qt::Key_Delete);
        QTRY_COMPARE(chips(), QStringList{"Air"});
        QCOMPARE(view()->model()->rowCount(), 2);
        view()->clearSelection();
        QTRY_COMPARE(view()->model()->rowCount(), 0);
        QCOMPARE(chips(), QStringList());
        QVERIFY(!field()->isEnabled());
    }

    void fieldPutsOnWhatIsTyped()
    {
        showTag("Sea", 2);
        QTRY_COMPARE(chips().size(), 2);
        type("ci");
        QTRY_VERIFY(chips().contains("City"));
        QCOMPARE(field()->text(), QString());
        QCOMPARE(m_panel->focusWidget(), field());
        // Exactly what was typed, also where a tag begins so: with the list away, or as its last row.
        QTest::keyClicks(field(), "cit");
        QTest::keyClick(field(), Qt::Key_Escape);
        QTest::keyClick(field(), Qt::Key_Return);
        QTRY_VERIFY(chips().contains("cit"));
        QTest::keyClicks(field(), "typo");
        QTest::keyClick(field(), Qt::Key_Escape);
        QTest::keyClick(field(), Qt::Key_Escape);
        QCOMPARE(field()->text(), QString());
        QVERIFY(m_panel->isVisible());
        type("  brand  new ");
        QTRY_VERIFY(chips().contains("brand new"));
        QTRY_COMPARE(f->shown(), f->stored());
        QVERIFY(f->stored().join('\n').contains("brand  new"));
        // Other pictures are shown: nothing of the selection is left to be tagged.
        m_presenter->showUntagged();
        QTRY_VERIFY(!field()->isEnabled());
        QCOMPARE(chips(), QStringList());
    }

    void suggestionsAreRanked()
    {
        TagSuggestions suggestions;
        suggestions.setTags({{1, "Night sea", 9}, {2, "Seattle", 1}, {3, "SEÁ", 1}, {4, "Seal", 5}, {5, "北京", 1}});
        const auto ids = [&](const char* typed, const QVector<qint64>& without = {}) {
            QVector<qint64> found;
            for (const auto& suggestion : suggestions.suggestions(typed, without, 10))
                found.append(suggestion.tag.id);
            return found;
        };
        QCOMPARE(ids(" sea"), (QVector<qint64>{3, 4, 2, 1}));
        suggestions.noteUse(2);
        QCOMPARE(ids("sea", {3}), (QVector<qint64>{2, 4, 1}));
        QCOMPARE(ids("beij"), QVector<qint64>{5});
        QCOMPARE(ids("eal"), QVector<qint64>());
    }

private:
    FileView* view() { return m_panel->view(); }
    TagField* field() { return m_panel->strip()->field(); }

    void showTag(const QString& name, int files)
    {
        m_presenter->showTagFiles({f->group(-1)->tagByName(name)->tagInfo()->id()});
        QTRY_COMPARE(view()->model() ? view()->model()->rowCount() : 0, files);
        view()->selectAll();
        m_panel->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_panel.get()));
        field()->setFocus();
    }

    void type(const QString& text)
    {
        QTest::keyClicks(field(), text);
        QTest::keyClick(field(), Qt::Key_Return);
    }

    QVector<SelectedTag*> shownChips() const
    {
        QVector<SelectedTag*> shown;
        for (SelectedTag* chip : m_panel->strip()->findChildren<SelectedTag*>()) {
            if (!chip->isHidden())
                shown.append(chip);
        }
        return shown;
    }
    QStringList chips() const
    {
        QStringList names;
        for (const SelectedTag* chip : shownChips())
            names.append(chip->accessibleName());
        return names;
    }
    SelectedTag* chip(const QString& name) const
    {
        for (SelectedTag* chip : shownChips()) {
            if (chip->accessibleName().startsWith(name))
                return chip;
        }
        return nullptr;
    }

    std::unique_ptr<LibraryFixture> f;
    std::unique_ptr<FilePanel> m_panel;
    std::unique_ptr<FilePresenter> m_presenter;
};

QTEST_MAIN(TstTagging)
#include "tst_tagging.moc"
