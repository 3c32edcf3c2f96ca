// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QRandomGenerator>
#include <QSet>
#include <QStringList>

/// A long series of requests that follows from its seed alone, and what a library holds after any number of them: the
/// program that is killed and the one that looks at what it left run the same series.
///
/// Each request succeeds when those before it did, and each changes the library.
class CommandScript
{
public:
    enum class Kind
    {
        CreateTag,
        RenameTag,
        RecolorTag,
        DeleteTag,
        AddCategory,
        RenameCategory,
        RemoveCategory,
        Join,
        Leave,
        Import
    };
    struct Command
    {
        Kind kind = Kind::CreateTag;
        qint64 tag = 0;
        qint64 category = 0;
        int color = 0;
        QString name;
    };

    explicit CommandScript(quint32 seed);

    /// The next request; what contents() says has it carried out.
    Command next();
    /// In the form of LibraryFixture::storedIn().
    [[nodiscard]] QStringList contents() const;

private:
    struct Tag
    {
        QString name;
        int color = 0;
        int files = 0;
    };
    struct Category
    {
        QString name;
        QSet<qint64> tags;
    };

    bool attempt(Command& command);
    bool attemptOnTag(Command& command);
    bool attemptOnCategory(Command& command);
    void createTag(const QString& name, int color, int files);

    QRandomGenerator m_random;
    int m_step = 0;
    qint64 m_lastTag = 0;
    qint64 m_lastCategory = 1;
    QMap<qint64, Tag> m_tags;
    QMap<qint64, Category> m_categories;
};
