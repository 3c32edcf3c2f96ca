// SPDX-License-Identifier: MIT
#include "host/app/commands/commandline.h"

#include "host/importer/folderlibrary.h"
#include "host/importer/metadata/metadatareader.h"
#include "host/importer/metadata/thumbnailreader.h"

#include <ivltagmanagercontrol.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

// Logical pixels; the image of a larger window would exhaust memory.
constexpr int largestSide = 16384;
constexpr double smallestScale = 0.5;
constexpr double largestScale = 8.0;

// Latin-1 maps each byte to one character, so that the parser returns every byte unchanged.
QStringList argumentsAsLatin1(int argc, const char* const* argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLatin1(argv[i]));
    return arguments;
}

QString textFrom(const QByteArray& bytes)
{
    return QString::fromUtf8(bytes);
}

// As in "all, categories or favorites".
QString pageNames()
{
    QStringList names;
    for (const TagManagerPageName& page : tagManagerPageNames)
        names.append(QString::fromLatin1(page.name));
    const QString last = names.takeLast();
    return QCoreApplication::translate("CommandLine", "%1 or %2").arg(names.join(QLatin1String(", ")), last);
}

/// Parses one command line; each step stores its error in the result.
class Reader
{
    Q_DECLARE_TR_FUNCTIONS(CommandLine)

public:
    explicit Reader(const QStringList& arguments);

    CommandLine read();

private:
    [[nodiscard]] bool has(const char* option) const { return m_parser.isSet(QString::fromLatin1(option)); }
    [[nodiscard]] QByteArray value(const char* option) const;
    void readLists();
    [[nodiscard]] QStringList namesAfter(const char* option);
    [[nodiscard]] bool tagsFiles() const { return m_lists.contains("--tag") || m_lists.contains("--untag"); }
    void readChanges();
    void readAction();
    void readFolder();
    void readFiles();
    void readList();
    void readRelocate();
    void readPage();
    void readSize();
    void readScale();
    void checkTogether();
    void complain(const QString& text);

    QCommandLineParser m_parser;
    QStringList m_arguments;
    QHash<QString, QStringList> m_lists;  ///< The values of the options that take several, by option.
    CommandLine m_result;
};

Reader::Reader(const QStringList& arguments)
    : m_arguments(arguments)
{
    m_parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    for (const char* const flag : {"json", "0", "dry-run", "reread", "forget-missing", "help", "h", "version", "v"})
        m_parser.addOption(QCommandLineOption(QString::fromLatin1(flag)));
    for (const char* const name : {"library", "import", "list", "find", "into", "screenshot", "page", "search", "size",
                                   "scale", "plugin", "relocate"})
        m_parser.addOption(QCommandLineOption(QString::fromLatin1(name), {}, QStringLiteral("value")));
}

CommandLine Reader::read()
{
    readLists();
    if (!m_parser.parse(m_arguments)) {
        complain(textFrom(m_parser.errorText().toLatin1()));
        return m_result;
    }
    readChanges();
    readAction();
    if (m_result.action == CommandLine::Action::ShowHelp || m_result.action == CommandLine::Action::ShowVersion)
        return m_result;
    readFolder();
    readFiles();
    readList();
    readRelocate();
    readPage();
    readSize();
    readScale();
    checkTogether();
    return m_result;
}

QByteArray Reader::value(const char* option) const
{
    return m_parser.value(QString::fromLatin1(option)).toLatin1();
}

/// Options that are followed by several values, up to the next option. They are taken out of the arguments, as the
/// parser knows options with one value only.
void Reader::readLists()
{
    static const QStringList options = {QStringLiteral("--tag"), QStringLiteral("--untag"), QStringLiteral("--merge"),
                                        QStringLiteral("--rename")};
    QStringList others;
    for (auto argument = m_arguments.cbegin(); argument != m_arguments.cend();) {
        if (*argument == QLatin1String("--")) {
            std::copy(argument, m_arguments.cend(), std::back_inserter(others));
            break;
        }
        const QString option = argument->section('=', 0, 0);
        if (!options.contains(option)) {
            others.append(*argument++);
            continue;
        }
        QStringList& values = m_lists[option];
        if (option != *argument)
            values.append(argument->mid(option.size() + 1));
        const bool takesMore = option == *argument;
        for (++argument; takesMore && argument != m_arguments.cend() && !argument->startsWith("--"); ++argument)
            values.append(*argument);
    }
    m_arguments = others;
}

QStringList Reader::namesAfter(const char* option)
{
    QStringList names;
    for (const QString& value : m_lists.value(QString::fromLatin1(option))) {
        const QByteArray bytes = value.toLatin1();
        names.append(textFrom(bytes));
        if (names.constLast().toUtf8() != bytes)
            complain(tr("A name after %1 is not valid UTF-8.").arg(QLatin1String(option)));
    }
    if (names.isEmpty() && m_lists.contains(QString::fromLatin1(option)))
        complain(tr("%1 needs the name of a tag.").arg(QLatin1String(option)));
    return names;
}

void Reader::readChanges()
{
    TagChanges& changes = m_result.changes;
    changes.put = namesAfter("--tag");
    changes.takeOff = namesAfter("--untag");
    changes.merge = namesAfter("--merge");
    changes.rename = namesAfter("--rename");
    changes.mergeInto = textFrom(value("into"));
    changes.isRehearsal = has("dry-run");
    if (!changes.rename.isEmpty() && changes.rename.size() != 2)
        complain(tr("--rename takes the name of a tag and its new name."));
    if (changes.merge.isEmpty() != changes.mergeInto.isEmpty())
        complain(tr("--merge takes names of tags, and --into the name of the one that they become."));
    if (!tagsFiles())
        return;
    for (const QString& file : m_parser.positionalArguments())
        changes.files.append(file.toLatin1());
    if (changes.files.isEmpty() || changes.files.contains(QByteArray()))
        complain(tr("--tag and --untag need files, as in --tag beach -- a.jpg b.jpg."));
}

void Reader::readAction()
{
    using Action = CommandLine::Action;
    if (has("help") || has("h"))
        m_result.action = Action::ShowHelp;
    else if (has("version") || has("v"))
        m_result.action = Action::ShowVersion;
    else if (has("import"))
        m_result.action = Action::Import;
    else if (has("list"))
        m_result.action = Action::List;
    else if (has("find"))
        m_result.action = Action::Find;
    else if (!m_lists.isEmpty())
        m_result.action = Action::Change;
    else if (has("screenshot"))
        m_result.action = Action::Screenshot;
}

void Reader::readFolder()
{
    if (tagsFiles())
        return;
    const QStringList folders = m_parser.positionalArguments();
    if (folders.size() > 1)
        complain(tr("There can be only one FOLDER."));
    if (!folders.isEmpty() && has("import"))
        complain(tr("--import names the folder already."));
    if (has("import"))
        m_result.folder = value("import");
    else if (!folders.isEmpty())
        m_result.folder = folders.first().toLatin1();
    if (m_result.folder.isEmpty() && (has("import") || !folders.isEmpty()))
        complain(tr("The name of the folder is empty."));
}

void Reader::readFiles()
{
    m_result.reread = has("reread");
    m_result.forgetMissing = has("forget-missing");
    m_result.libraryFile = value("library");
    m_result.screenshotFile = value("screenshot");
    m_result.pluginFile = value("plugin");
    for (const char* const option : {"library", "screenshot", "plugin"}) {
        if (has(option) && value(option).isEmpty())
            complain(tr("--%1 needs the name of a file.").arg(QLatin1String(option)));
    }
    if (textFrom(m_result.libraryFile).toUtf8() != m_result.libraryFile)
        complain(tr("The name of the library's file is not valid UTF-8."));
}

void Reader::readList()
{
    const QByteArray list = value("list");
    if (list == "categories")
        m_result.list = CommandLine::List::Categories;
    else if (list == "files")
        m_result.list = CommandLine::List::Files;
    else if (list == "ignored")
        m_result.list = CommandLine::List::Ignored;
    else if (has("list") && list != "tags")
        complain(tr("--list takes tags, categories, files or ignored, not \"%1\".").arg(textFrom(list)));
    m_result.json = has("json");
    m_result.query = textFrom(value("find"));
    m_result.separatesByNul = has("0");
}

void Reader::readRelocate()
{
    if (!has("relocate"))
        return;
    const QByteArray answer = value("relocate");
    if (answer != "yes" && answer != "no")
        complain(tr("--relocate takes yes or no, not \"%1\".").arg(textFrom(answer)));
    if (m_result.folder.isEmpty() || has("list") || has("find") || !m_lists.isEmpty())
        complain(tr("--relocate goes with a folder that is opened or imported."));
    m_result.relocate = answer == "yes";
}

void Reader::readPage()
{
    const QByteArray name = value("page");
    const auto* const found = std::find_if(std::begin(tagManagerPageNames), std::end(tagManagerPageNames),
                                           [&name](const TagManagerPageName& page) { return name == page.name; });
    if (found != std::end(tagManagerPageNames))
        m_result.page = found->page;
    else if (has("page"))
        complain(tr("--page takes %1, not \"%2\".").arg(pageNames(), textFrom(name)));
    m_result.search = textFrom(value("search"));
}

void Reader::readSize()
{
    if (!has("size"))
        return;
    static const QRegularExpression form(QStringLiteral("^([0-9]{1,5})x([0-9]{1,5})$"));
    const QRegularExpressionMatch match = form.match(textFrom(value("size")));
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    if (!match.hasMatch() || size.isEmpty() || size.width() > largestSide || size.height() > largestSide)
        complain(tr("--size takes a width and a height from 1 to %1, as in 1100x700.").arg(largestSide));
    else
        m_result.size = size;
}

void Reader::readScale()
{
    if (!has("scale"))
        return;
    bool isNumber = false;
    const double scale = value("scale").toDouble(&isNumber);
    if (!isNumber || !(scale >= smallestScale && scale <= largestScale))
        complain(tr("--scale takes a number from %1 to %2, as in 1.5.").arg(smallestScale).arg(largestScale));
    else
        m_result.scale = scale;
}

void Reader::checkTogether()
{
    const int changes = int(tagsFiles()) + int(m_lists.contains("--merge")) + int(m_lists.contains("--rename"));
    if (int(has("import")) + int(has("list")) + int(has("find")) + int(has("screenshot")) + changes > 1)
        complain(tr("Only one command can be done at a time."));
    if (has("json") && !has("list") && !has("find"))
        complain(tr("--json goes with --list and --find."));
    if (has("0") && (!has("find") || has("json")))
        complain(tr("-0 goes with --find, without --json."));
    if (has("dry-run") && changes == 0)
        complain(tr("--dry-run goes with --tag, --untag, --merge and --rename."));
    const bool readsLibrary = has("list") || has("find") || (changes > 0 && !tagsFiles());
    if (readsLibrary && m_result.libraryFile.isEmpty() && m_result.folder.isEmpty())
        complain(tr("This needs --library FILE or a FOLDER that was imported."));
    const bool opensNothing = has("list") || has("find") || changes > 0;
    if (has("reread") && opensNothing)
        complain(tr("--reread goes with a folder that is imported."));
    if (has("forget-missing") && !has("import"))
        complain(tr("--forget-missing goes with --import."));
    for (const char* const option : {"page", "search", "size", "scale", "plugin"}) {
        if (has(option) && (has("import") || opensNothing))
            complain(tr("--%1 goes with a window only.").arg(QLatin1String(option)));
    }
}

void Reader::complain(const QString& text)
{
    if (m_result.error.isEmpty())
        m_result.error = tr("%1 Try \"vellum --help\".").arg(text);
}

}  // namespace

CommandLine CommandLine::parse(int argc, const char* const* argv)
{
    for (const auto& [option, action] : {std::pair(metadataReaderOption, Action::ReadMetadata),
                                         std::pair(thumbnailReaderOption, Action::ReadThumbnails)}) {
        if (argc == 2 && std::strcmp(argv[1], option) == 0) {
            CommandLine commandLine;
            commandLine.action = action;
            return commandLine;
        }
    }
    return Reader(argumentsAsLatin1(argc, argv)).read();
}

QString CommandLine::helpText()
{
    return QCoreApplication::translate("CommandLine", R"(Usage: vellum [FOLDER] [OPTIONS]
       vellum --import FOLDER [--library FILE]
       vellum --list tags|categories|files|ignored --library FILE [--json]
       vellum --find QUERY [--json|-0] FOLDER
       vellum [--tag NAME...] [--untag NAME...] [--dry-run] -- FILE...
       vellum --merge NAME... --into NAME [--dry-run] -- FOLDER
       vellum --rename NAME NEWNAME [--dry-run] -- FOLDER

Shows the tags of the pictures in a folder, from the keywords that other
programs have written into the pictures or into XMP files beside them. FOLDER is
imported first; only what changed since the last time is read. Nothing in it is
changed.

  --library FILE     keep the library in FILE; without it, each folder has one
                     in the person's data directory (~/.local/share/vellum)
  --import FOLDER    import without a window, and print totals as one line:
                     files: N, tags: N, links: N, skipped: N, unreadable: N,
                     missing: N, away: N
                       files, tags, links  in the library now
                       skipped     could not be read this time
                       unreadable  could not be read before and unchanged since:
                                   not tried again
                       missing     gone from FOLDER, but still in the library
                       away        in a folder in FOLDER that is empty or cannot be
                                   seen, such as a disk that is not connected;
                                   still in the library
                     Ctrl-C stops it; what was written until then stays. A
                     second Ctrl-C ends the program at once.
  --forget-missing   with --import: take the missing files out of the library,
                     with their tags. Files that are away stay.
  --relocate ANSWER  yes: FOLDER is where a folder that is gone was moved to, or
                     is in that or around it, so go on with that folder's
                     library; no: it is another folder
  --reread           read every picture again, also those whose size and time
                     of modification are the same as at the last import
  --list WHAT        print what a library holds, one line each, fields separated
                     by tabs:
                       tags        id, name, number of files, colour index
                       categories  id, name, number of tags
                       files       path, size in bytes, tag, tag, ...; the word
                                   away in place of the size when the file's
                                   folder is empty or cannot be seen
                       ignored     keyword, ignored or undecided, number of files:
                                   keywords that lead to no tag
                     A tab, a line feed, a carriage return and a backslash in
                     a field are written as \t, \n, \r and \\, other control
                     characters of ASCII and bytes that are no UTF-8 as \xHH,
                     control characters beyond ASCII and characters that are
                     invisible or turn the direction of the text as \uHHHH or
                     \UHHHHHHHH.
  --find QUERY       print the files that a query finds, as --list files does.
                     A query is made of words with and, or, not and brackets:
                       beach and not (family or blurry)
                     not binds closest, then and, then or; words beside each
                     other are joined by and.
                       beach        any tag called so, whatever the case, the
                                    width and the accents
                       "New York"   the tag of exactly that name; \" and \\ inside
                                    stand for a quotation mark and a backslash
                       untagged     files without a tag
                       category:X   files with a tag of the category X
                       name:X       X is in the name of the file
                       folder:X     X is in the path of its folder
                       date:D       taken in D: 2024, 2024-05, 2024-05-17, or a
                                    range as in 2023-12..2024-02, open at one end
  -0                 with --find: paths alone, unchanged, each followed by a NUL
  --tag NAME...      put tags on files; a tag that there is not yet is made. Each
                     name is an argument of its own. The files belong to the one
                     library whose folders hold all of them, or to the one that
                     --library names. Later imports keep what was put on.
  --untag NAME...    take tags off files; later imports keep them off
  --merge NAME...    make one tag of several: the tag after --into gets their
                     files, categories and keywords, and they are deleted
  --rename OLD NEW   give a tag another name
  --dry-run          with the four above: say what would change, and change nothing
  --json             with --list and --find: a JSON array of objects with the members
                       tags        id, name, fileCount, colorIndex
                       categories  id, name, tagCount
                       files       path, size, tags (an array of names), away
                       ignored     name, undecided, fileCount
                     A path that is not valid UTF-8 has its exact bytes in
                     the further member pathBase64.

  --page PAGE        the page to show first: %1
  --search TEXT      search for TEXT on that page
  --size WxH         size of the window in logical pixels, as in 1100x700
  --scale S          scale of the screen, as in 1.5
  --screenshot FILE  render the window to a PNG file and end
  --plugin FILE      the tag manager plug-in to load, in place of the one that
                     comes with the program

  -h, --help         print this text
  -v, --version      print the version

Exit status: 0 on success, 1 on failure, 2 on wrong usage or when the folder or
the library does not exist, 130 when interrupted.
)")
        .arg(pageNames());
}

QString CommandLine::versionText()
{
    return QStringLiteral("vellum " VELLUM_VERSION "\n");
}

QByteArray CommandLine::libraryPath() const
{
    return libraryFile.isEmpty() ? folderlibrary::defaultFile(folder) : libraryFile;
}

bool CommandLine::needsNoDisplay() const
{
    return !error.isEmpty() || (action != Action::OpenWindow && action != Action::Screenshot);
}
