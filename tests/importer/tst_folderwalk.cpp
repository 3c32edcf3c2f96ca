// SPDX-License-Identifier: MIT
#include "host/importer/folderwalk.h"
#include "tests/importer/taggedpicture.h"
#include "tests/importer/testfolder.h"

#include <QtTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

class TestFolderWalk : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<TestFolder>();
        m_root = m_folder->path();
    }

    void cleanup() { m_folder.reset(); }

    void findsPicturesOfEveryName()
    {
        for (const char* const name : {"b", "b/c.jpg", ".thumbnails", "\xff\xfe"})
            makeFolder(name);
        for (const char* const name :
             {"z.PNG", "b/1.JPEG", "b/c.jpg/deep.svg", "notes.txt", "b/raw.cr2.bak", "noextension", "b/x.xmp",
              ".thumbnails/a.jpg", "._a.jpg", "\xff\xfe/caf\xe9.jpg"})
            writeFile(path(name), "x");
        QCOMPARE(mkfifo(path("pipe.jpg").constData(), 0600), 0);
        QCOMPARE(found(), (QList<QByteArray>{"b/1.JPEG", "b/c.jpg/deep.svg", "z.PNG", "\xff\xfe/caf\xe9.jpg"}));
        QVERIFY(m_walk.problems().empty());
    }

    void endsLoopsOfLinks()
    {
        makeFolder("a");
        makeFolder("a/b");
        writeFile(path("a/b/p.jpg"), "x");
        makeLink("..", "a/b/up");
        makeLink(".", "self");
        makeLink("a/b", "0 sorts before a");
        makeLink("loop", "loop");
        QCOMPARE(found(), QList<QByteArray>{"a/b/p.jpg"});
    }

    void prefersThePictureToALinkToIt()
    {
        const TestFolder elsewhere;
        const QByteArray outside = elsewhere.file("o.jpg");
        writeFile(outside, "outside");
        writeFile(path("z.jpg"), "x");
        makeLink("z.jpg", "a.jpg");
        makeLink(outside, "m.jpg");
        makeLink("gone.jpg", "broken.jpg");
        QCOMPARE(found(), (QList<QByteArray>{"m.jpg", "z.jpg"}));
        QCOMPARE(m_walk.pictures().front().size, qint64(7));
        QCOMPARE(int(m_walk.problems().size()), 1);
        QCOMPARE(m_walk.problems().front().path, path("broken.jpg"));
    }

    void matchesSidecars()
    {
        for (const char* const name : {"a.jpg", "a.cr2", "b.jpg", "a.xmp", "a.jpg.xmp", "other.XMP", "other.png"})
            writeFile(path(name), "x");
        QCOMPARE(found(), (QList<QByteArray>{"a.cr2", "a.jpg", "b.jpg", "other.png"}));
        QList<QByteArray> sidecars;
        for (const FoundPicture& picture : m_walk.pictures()) {
            for (const FoundSidecar& sidecar : picture.sidecars)
                sidecars.append(sidecar.path.mid(m_root.size() + 1));
            sidecars.append("|");
        }
        QCOMPARE(sidecars, (QList<QByteArray>{"a.xmp", "|", "a.jpg.xmp", "a.xmp", "|", "|", "other.XMP", "|"}));
    }

    void reportsWhatItCannotEnter()
    {
        makeFolder("closed");
        writeFile(path("closed/a.jpg"), "x");
        writeFile(path("b.jpg"), "x");
        QCOMPARE(chmod(m_root.constData(), 0755), 0);
        QCOMPARE(chmod(path("closed").constData(), 0), 0);
        // The superuser enters every folder, so the walk is done as nobody in particular then.
        const uid_t user = geteuid();
        if (user == 0)
            QCOMPARE(seteuid(65534), 0);
        const QList<QByteArray> names = found();
        QCOMPARE(seteuid(user), 0);
        chmod(path("closed").constData(), 0755);

        QCOMPARE(names, QList<QByteArray>{"b.jpg"});
        QCOMPARE(int(m_walk.problems().size()), 1);
        QCOMPARE(m_walk.problems().front().path, path("closed"));
        QVERIFY(!m_walk.problems().front().reason.isEmpty());
        QVERIFY(m_walk.isOutOfSight(path("closed/a.jpg")));
        QVERIFY(!m_walk.isOutOfSight(path("closed too.jpg")));
    }

    void knowsWhatMayBeAway()
    {
        makeFolder("mount point");
        makeFolder("b");
        writeFile(path("b/.notes"), "x");
        makeLink("/nowhere/at/all", "disk");
        makeLink("/nowhere/a.jpg", "b/a.jpg");
        QCOMPARE(found(), QList<QByteArray>());
        for (const char* const name : {"disk/a.jpg", "disk/deep/a.jpg", "mount point/a.jpg", "b/a.jpg"})
            QVERIFY2(m_walk.isOutOfSight(path(name)), name);
        for (const char* const name : {"b/b.jpg", "disks.jpg", "a.jpg", "gone/a.jpg"})
            QVERIFY2(!m_walk.isOutOfSight(path(name)), name);
    }

private:
    [[nodiscard]] QByteArray path(const QByteArray& name) const { return m_folder->file(name); }
    void makeFolder(const QByteArray& name) const { QCOMPARE(mkdir(path(name).constData(), 0755), 0); }

    void makeLink(const QByteArray& target, const QByteArray& name) const
    {
        QCOMPARE(symlink(target.constData(), path(name).constData()), 0);
    }

    // Names relative to the root, in the walk's order.
    QList<QByteArray> found()
    {
        m_walk = {};
        m_walk.run(m_root, [](int) { return true; });
        QList<QByteArray> names;
        for (const FoundPicture& picture : m_walk.pictures())
            names.append(picture.path.mid(m_root.size() + 1));
        return names;
    }

    std::unique_ptr<TestFolder> m_folder;
    QByteArray m_root;
    FolderWalk m_walk;
};

QTEST_APPLESS_MAIN(TestFolderWalk)
#include "tst_folderwalk.moc"
