// SPDX-License-Identifier: MIT
#include "host/app/files/filelistmodel.h"
#include "host/app/files/filetilelayout.h"
#include "host/app/files/fileview.h"
#include "tests/app/picturefolder.h"
#include "tests/importer/readermain.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <numeric>

namespace {

QVector<qint64> idsUpTo(int count)
{
    QVector<qint64> ids(count);
    std::iota(ids.begin(), ids.end(), 1);
    return ids;
}

FileRow fileRow(qint64 id, const QByteArray& path)
{
    FileRow row;
    row.id = id;
    row.path = path;
    return row;
}

Thumbnail::State stateOf(const QAbstractItemModel& model, int row)
{
    return model.index(row, 0).data(FileListModel::ThumbnailRole).value<Thumbnail>().state;
}

}  // namespace

/// The grid of thumbnails: what it asks for, and when.
class TestFileView : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_asked.clear();
        m_view = std::make_unique<FileView>();
        m_view->resize(620, 400);
        // Every file of these tests has a path; some of the paths lead nowhere.
        connect(m_view.get(), &FileView::filesNeeded, m_view.get(), [this](const QVector<qint64>& ids) {
            m_asked.append(ids);
            QVector<FileRow> rows;
            for (const qint64 id : ids)
                rows.append(fileRow(id, m_folder.path(QByteArray::number(id) + ".png")));
            m_view->setPaths(ids, rows);
        });
        m_view->show();
    }

    void modelFillsInWhatBecomesKnown()
    {
        FileListModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.setFiles({5, 7, 9});
        QCOMPARE(model.rowCount(), 3);
        QVERIFY(model.needsPath(1));
        QVERIFY(!model.needsThumbnail(1));

        model.askForPath(1);
        model.askForPath(2);
        model.setPaths({7, 9, 1000}, {fileRow(7, "/pictures/<b>\xff.png"), fileRow(1000, "/other.png")});
        QVERIFY(model.needsThumbnail(1));
        QCOMPARE(model.index(1).data().toString(), QStringLiteral("<b>\ufffd.png"));
        QVERIFY(model.index(1).data(Qt::ToolTipRole).toString().contains(QStringLiteral("&lt;b&gt;")));
        QCOMPARE(stateOf(model, 2), Thumbnail::Missing);

        model.setThumbnail(7, {Thumbnail::Loaded, QImage(8, 8, QImage::Format_RGB32)});
        model.setThumbnail(12, {Thumbnail::Loaded, QImage(8, 8, QImage::Format_RGB32)});
        QVERIFY(!model.needsThumbnail(1));

        model.setFiles({7, 8});
        QCOMPARE(model.path(0), QByteArray("/pictures/<b>\xff.png"));
        QCOMPARE(stateOf(model, 0), Thumbnail::Loaded);
        QVERIFY2(model.needsThumbnail(0), "the file may have changed");
        model.setThumbnail(7, {Thumbnail::Unchanged, {}});
        QVERIFY(!model.needsThumbnail(0));
        QCOMPARE(stateOf(model, 0), Thumbnail::Loaded);
        QVERIFY(model.needsPath(1));
    }

    void onlyFilesNearTheScreenAreAskedFor()
    {
        m_view->setFiles(idsUpTo(10'000), false);
        QTRY_VERIFY(!m_asked.isEmpty());
        QCOMPARE(m_asked.first().first(), 1);
        QTRY_COMPARE(stateOf(*m_view->model(), 0), Thumbnail::Missing);

        // Four tiles fit side by side.
        const int wholeHeight = 2'500 * FileTileLayout::tileSize.height();
        QTRY_VERIFY(m_view->verticalScrollBar()->maximum() + m_view->viewport()->height() >= wholeHeight);
        m_asked.clear();
        m_view->scrollToBottom();
        const auto asked = [this](qint64 id) {
            return std::any_of(m_asked.begin(), m_asked.end(),
                               [id](const QVector<qint64>& ids) { return ids.contains(id); });
        };
        QTRY_VERIFY(asked(10'000));
        QVERIFY(!asked(5'000));
        QTRY_COMPARE(stateOf(*m_view->model(), 9'999), Thumbnail::Missing);
        QVERIFY(static_cast<FileListModel*>(m_view->model())->needsPath(5'000));
    }

    void filesInSightComeFirst()
    {
        for (int id = 1; id <= 60; ++id)
            m_folder.writePng(QByteArray::number(id) + ".png");
        m_view->setFiles(idsUpTo(60), false);
        QTRY_COMPARE(stateOf(*m_view->model(), 15), Thumbnail::Loaded);
        QCOMPARE(stateOf(*m_view->model(), 59), Thumbnail::Pending);
        m_view->scrollToBottom();
        QTRY_COMPARE(stateOf(*m_view->model(), 59), Thumbnail::Loaded);
    }

    void doubleClickActivates()
    {
        m_view->setFiles({3}, false);
        QSignalSpy activated(m_view.get(), &FileView::fileActivated);
        QTRY_VERIFY(!m_asked.isEmpty());
        const QPoint middle = m_view->visualRect(m_view->model()->index(0, 0)).center();
        QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, middle);
        QCOMPARE(activated.size(), 0);
        QTest::mouseDClick(m_view->viewport(), Qt::LeftButton, {}, middle);
        QCOMPARE(activated.size(), 1);
        QCOMPARE(activated.first().first().toByteArray(), m_folder.path("3.png"));
    }

private:
    PictureFolder m_folder;
    std::unique_ptr<FileView> m_view;
    QVector<QVector<qint64>> m_asked;
};

READER_GUI_TEST_MAIN(TestFileView)
#include "tst_fileview.moc"
