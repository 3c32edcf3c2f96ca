// SPDX-License-Identifier: MIT
// A program to be killed: opens the library argv[1] and carries out the series of requests of the seed argv[2], one
// after the answer to the other, saying "." on its standard output after each answer, until it is killed. With
// "migrate" instead of a seed, it says "." and brings the library to the version of the tests.
#include "host/library/library.h"
#include "host/library/librarydatabase.h"
#include "host/library/libraryerror.h"
#include "tests/library/commandscript.h"
#include "tests/library/testmigration.h"

#include <ilibrarydataprovider.h>
#include <iresponseinfo.h>
#include <itagaction.h>
#include <itaggroupaction.h>

#include <QCoreApplication>

#include <unistd.h>

#include <cstdio>

namespace {

class Runner : public QObject
{
public:
    Runner(Library* library, quint32 seed)
        : m_library(library)
        , m_script(seed)
        , m_tags(library->dataProvider()->tagAction())
        , m_categories(library->dataProvider()->tagGroupAction())
    {
        const auto answered = [this](qint64, const QSharedPointer<const IResponseInfo>& answer) {
            goOn(answer->status() == 0);
        };
        connect(m_tags.data(), &ITagAction::signalTagResult, this, answered);
        connect(m_categories.data(), &ITagGroupAction::signalTagGroupResult, this, answered);
        send(m_script.next());
    }

private:
    void goOn(bool succeeded)
    {
        if (!succeeded || ::write(STDOUT_FILENO, ".", 1) != 1)
            QCoreApplication::exit(1);
        else
            send(m_script.next());
    }

    void send(const CommandScript::Command& command)
    {
        using Kind = CommandScript::Kind;
        switch (command.kind) {
        case Kind::CreateTag:
            m_tags->createTags({{command.name, 0, command.color}});
            break;
        case Kind::RenameTag:
            m_tags->renameTag(command.tag, command.name);
            break;
        case Kind::RecolorTag:
            m_tags->setTagColor(command.tag, command.color);
            break;
        case Kind::DeleteTag:
            m_tags->deleteTags({command.tag});
            break;
        case Kind::Join:
            m_tags->addTagsToGroups({command.category}, {command.tag});
            break;
        case Kind::Leave:
            m_tags->removeTagsFromGroups({command.category}, {command.tag});
            break;
        case Kind::AddCategory:
            m_categories->addTagGroup(command.name);
            break;
        case Kind::RenameCategory:
            m_categories->renameTagGroup(command.category, command.name);
            break;
        case Kind::RemoveCategory:
            m_categories->removeTagGroup(command.category);
            break;
        case Kind::Import:
            m_library->requestImport({{"/" + command.name.toUtf8(), {}, {{command.name}}}}, this,
                                     [this](const ImportOutcome& outcome) { goOn(outcome.succeeded); });
            break;
        }
    }

    Library* m_library;
    CommandScript m_script;
    QSharedPointer<ITagAction> m_tags;
    QSharedPointer<ITagGroupAction> m_categories;
};

int migrate(const QString& path)
{
    try {
        LibraryDatabase database(path, LibraryDatabase::Access::ReadWrite);
        if (::write(STDOUT_FILENO, ".", 1) != 1)
            return 1;
        libraryschema::migrate(database, testmigration::steps());
        return 0;
    } catch (const LibraryError& error) {
        std::fprintf(stderr, "%s\n", qPrintable(error.message()));
        return 1;
    }
}

}  // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc != 3)
        return 2;
    if (qstrcmp(argv[2], "migrate") == 0)
        return migrate(QString::fromLocal8Bit(argv[1]));
    QString error;
    const auto library = Library::open(QString::fromLocal8Bit(argv[1]), &error);
    if (!library) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 1;
    }
    Runner runner(library.get(), QByteArray(argv[2]).toUInt());
    return QCoreApplication::exec();
}
