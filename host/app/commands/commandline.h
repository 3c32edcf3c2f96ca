// SPDX-License-Identifier: MIT
#pragma once

#include <vltagmanagerevents.h>

#include <QByteArray>
#include <QSize>
#include <QString>

#include <optional>

/// What the person asked for on the command line. Paths are the bytes that were given, so names that are no valid
/// UTF-8 survive.
struct CommandLine
{
    enum class Action
    {
        OpenWindow,     ///< Open the library of folder, or libraryFile; both may be empty.
        Screenshot,     ///< Render the window to screenshotFile and end.
        Import,         ///< Import folder into libraryFile without a display.
        List,           ///< Print libraryFile without a display.
        ShowHelp,       ///< Print helpText() to standard output and end with status 0.
        ShowVersion,    ///< Print versionText() to standard output and end with status 0.
        ReadMetadata,   ///< Serve as a reader process of an import: return runMetadataReader() at once.
        ReadThumbnails  ///< Serve as a process that makes thumbnails: return runThumbnailReader() at once.
    };
    enum class List
    {
        Tags,
        Categories,
        Files,
        Ignored
    };

    Action action = Action::OpenWindow;
    QByteArray folder;             ///< The folder to open or to import; empty when none was named.
    QByteArray libraryFile;        ///< The library's file; empty when none was named.
    bool reread = false;           ///< Read every picture again, also those that seem unchanged.
    std::optional<bool> relocate;  ///< The answer to whether folder is where one that is gone was moved to.
    bool forgetMissing = false;    ///< For Import: take missing files out of the library.
    List list = List::Tags;        ///< For List.
    bool json = false;             ///< For List: JSON in place of tab-separated lines.
    QByteArray screenshotFile;     ///< For Screenshot.
    TagManagerPage page = TagManagerPage::AllTags;  ///< The page shown first.
    QString search;                                 ///< The text typed into that page's search field.
    std::optional<QSize> size;                      ///< The window's size in logical pixels.
    std::optional<double> scale;                    ///< Screen scale, to be applied before a QApplication exists.
    QByteArray pluginFile;                          ///< The plug-in's file; empty for the one beside the program.
    /// Not empty for wrong usage: what is wrong, in one line that may hold characters of the arguments. To be printed
    /// to stderr, and the program to end with exitUsage.
    QString error;

    /// Exit status of wrong usage, and of a folder or a library that does not exist.
    static constexpr int exitUsage = 2;

    /// Reads the arguments of main; needs no application object.
    [[nodiscard]] static CommandLine parse(int argc, const char* const* argv);
    /// Complete texts, with a line feed at the end.
    [[nodiscard]] static QString helpText();
    [[nodiscard]] static QString versionText();

    /// libraryFile, or the default library of folder when none was named; empty when the person has no data directory.
    [[nodiscard]] QByteArray libraryPath() const;
    /// True when neither a window nor a display is needed: main makes a QCoreApplication, or none at all.
    [[nodiscard]] bool needsNoDisplay() const;
};
