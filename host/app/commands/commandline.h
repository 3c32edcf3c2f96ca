// SPDX-License-Identifier: MIT
#pragma once

#include <vltagmanagerevents.h>

#include <QByteArray>
#include <QSize>
#include <QStringList>
#include <QVector>

#include <optional>

/// Changes of tags that are asked for on the command line.
struct TagChanges
{
    QStringList put;            ///< Names of tags to put on the files; made when missing.
    QStringList takeOff;        ///< Names of tags to take off the files.
    QVector<QByteArray> files;  ///< At least one, for put and takeOff.
    QStringList merge;          ///< Names of tags to merge into mergeInto.
    QString mergeInto;
    QStringList rename;        ///< The name of a tag and its new one; or empty.
    bool isRehearsal = false;  ///< Say what would change, and change nothing.
};

/// The parsed command line. Paths are the original bytes, which need not be valid UTF-8.
struct CommandLine
{
    enum class Action
    {
        OpenWindow,     ///< Open the library of folder, or libraryFile; both may be empty.
        Screenshot,     ///< Render the window to screenshotFile and end.
        Import,         ///< Import folder into libraryFile without a display.
        List,           ///< Print libraryFile without a display.
        Find,           ///< Print the files that query finds, without a display.
        Change,         ///< Carry out changes without a display.
        ShowHelp,       ///< Print helpText() to standard output and end with status 0.
        ShowVersion,    ///< Print versionText() to standard output and end with status 0.
        ReadMetadata,   ///< Run as a reader process of an import: return runMetadataReader().
        ReadThumbnails  ///< Run as a reader process of thumbnails: return runThumbnailReader().
    };
    enum class List
    {
        Tags,
        Categories,
        Files,
        Ignored
    };

    Action action = Action::OpenWindow;
    QByteArray folder;                              ///< The folder to open or import; empty if not given.
    QByteArray libraryFile;                         ///< The library's file; empty if not given.
    bool reread = false;                            ///< Read every picture again, also unchanged ones.
    std::optional<bool> relocate;                   ///< Whether folder is the new place of one that is gone.
    bool forgetMissing = false;                     ///< For Import: remove missing files from the library.
    List list = List::Tags;                         ///< For List.
    bool json = false;                              ///< For List and Find: JSON in place of tab-separated lines.
    QString query;                                  ///< For Find.
    bool separatesByNul = false;                    ///< For Find: paths alone, unescaped, each followed by a NUL.
    TagChanges changes;                             ///< For Change.
    QByteArray screenshotFile;                      ///< For Screenshot.
    TagManagerPage page = TagManagerPage::AllTags;  ///< The page shown first.
    QString search;                                 ///< The text typed into that page's search field.
    std::optional<QSize> size;                      ///< The window's size in logical pixels.
    std::optional<double> scale;                    ///< Screen scale, to be applied before a QApplication exists.
    QByteArray pluginFile;                          ///< The plug-in's file; empty for the one beside the program.
    /// The usage error, in one line that may quote the arguments unescaped; empty if there is none. The program prints
    /// it to stderr and exits with exitUsage.
    QString error;

    /// Exit status for a usage error and for a folder or library that does not exist.
    static constexpr int exitUsage = 2;

    /// Reads the arguments of main; needs no application object.
    [[nodiscard]] static CommandLine parse(int argc, const char* const* argv);
    /// Complete texts, with a line feed at the end.
    [[nodiscard]] static QString helpText();
    [[nodiscard]] static QString versionText();

    /// libraryFile, or the default library of folder if not given; empty if the user has no data directory.
    [[nodiscard]] QByteArray libraryPath() const;
    /// True if no display is needed: main creates a QCoreApplication or none at all.
    [[nodiscard]] bool needsNoDisplay() const;
};
