// SPDX-License-Identifier: MIT
#include "bench/names.h"

#include <QSet>
#include <QTextCodec>

#include <random>

namespace {

constexpr char wordList[] =
    "amber anchor angel animal answer apple april arch arrow artist atlas autumn avenue badge bakery balance banana "
    "banner barn basket battery beach beacon bear beauty bedroom bell berry bicycle bird blanket blossom blue board "
    "boat book border bottle branch bread bridge bright bronze brush bucket building butter button cabin cable cactus "
    "camera campaign canal candle canvas canyon carbon card carpet castle cat cathedral celebration cellar center "
    "ceramic chain chair chalk channel chart cherry chess child chimney chocolate church circle city clay clean client "
    "cliff clock cloud coast coffee coin cold collage color column comet concert concrete copper coral corner cotton "
    "country crane cream creek crystal curtain cycle daisy dance dark daughter dawn deep delivery desert desk detail "
    "diamond digital dinner distance dog dome door draft dragon drawing dream dress drift dry dust eagle earth east "
    "edge editorial elegant elephant ember emerald empty engine evening event fabric face factory fair falcon family "
    "farm fashion feather fence fern festival field film final finance fire fish flag flame flat flight floor flower "
    "fog food forest fountain fox frame fresh frost fruit furniture galaxy gallery garden garlic gate ghost giant gift "
    "glacier glass globe gold grain granite grape graphic grass green grey grid guitar hall hammer hand harbor harvest "
    "hat haze heart heather hill history holiday honey horizon horse hotel house icon idea illustration indigo ink "
    "interior iris iron island ivory jacket jade january jazz jewel journey jungle kettle kitchen kite lace ladder "
    "lake lamp landscape lantern large laser layout leaf leather lemon letter library light lilac lime linen lion logo "
    "long lotus macro magazine magic mango map maple marble market marsh mask meadow medal melody metal midnight milk "
    "mineral minimal mirror mist mockup modern moon morning moss mountain mural museum music narrow nature neon nest "
    "night north novel oak oasis ocean office olive onion orange orchard orchid origin outline oxide packaging paint "
    "palace palm panda paper parade park pastel path pattern peach pearl pencil people pepper photo piano picture pine "
    "pink pixel planet plant plate plaza plum poem polar pond portrait poster potato pottery press project pumpkin "
    "purple quarry quartz quiet quilt rabbit rail rain rainbow raven reading red reef resort retro ribbon rice river "
    "road robot rocket roof room rose round royal ruby rust sail salmon salt sand sapphire satin scarf school science "
    "screen sculpture sea season shadow shell ship shoe shore silence silk silver sketch skin sky slate small smoke "
    "snow soft song south space spice spring square stage star station steel stone storm story street studio summer "
    "sun sunset swan sweet table tea team temple texture theater thread tiger timber toast tower town toy track train "
    "travel tree tropical truck tulip tunnel turquoise typography umbrella urban valley vanilla vase vector velvet "
    "village vintage violet violin vision volcano walnut wall water watercolor wave wedding west wheat white wild "
    "willow wind window wine winter wire wolf wood wool workshop yacht yard yellow young zebra zen zinc zone";

/// The 3,755 Chinese characters that people use most, the first level of GB 2312.
QString commonHan()
{
    constexpr int firstRow = 0xB0;
    constexpr int lastRow = 0xD7;
    constexpr int firstCell = 0xA1;
    constexpr int lastCell = 0xFE;
    constexpr int characterCount = 3755;
    QByteArray codes;
    for (int row = firstRow; row <= lastRow; ++row) {
        for (int cell = firstCell; cell <= lastCell; ++cell) {
            codes.append(static_cast<char>(row));
            codes.append(static_cast<char>(cell));
        }
    }
    return QTextCodec::codecForName("GB18030")->toUnicode(codes).left(characterCount);
}

class NameMaker
{
public:
    explicit NameMaker(unsigned seed)
        : m_words(QString::fromLatin1(wordList).split(QLatin1Char(' ')))
        , m_han(commonHan())
        , m_random(seed)
    {
    }

    QString make()
    {
        const int kind = below(100);
        if (kind < 20)
            return chinese();
        if (kind < 26)
            return accented(english());
        if (kind < 29)
            return english() + QLatin1Char(' ') + emoji();
        if (kind < 30)
            return emoji() + QLatin1Char(' ') + english();
        return english();
    }

    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

private:
    QString word() { return m_words.at(below(m_words.size())); }

    QString english()
    {
        QString name = word();
        if (below(10) > 0)
            name += QLatin1Char(' ') + word();
        if (below(3) == 0)
            name[0] = name.at(0).toUpper();
        return name;
    }

    QString chinese()
    {
        QString name;
        for (int length = 2 + below(3); length > 0; --length)
            name += m_han.at(below(m_han.size()));
        return name;
    }

    static QString accented(QString name)
    {
        const QString plain = QStringLiteral("aceiouny");
        const QString marked = QString::fromUtf8("áçéïöûñý");
        for (QChar& character : name) {
            const int at = plain.indexOf(character);
            if (at >= 0)
                character = marked.at(at);
        }
        return name;
    }

    QString emoji()
    {
        constexpr uint firstEmoji = 0x1F300;
        constexpr int emojiCount = 0x60;
        const uint character = firstEmoji + static_cast<uint>(below(emojiCount));
        return QString::fromUcs4(&character, 1);
    }

    QStringList m_words;
    QString m_han;
    std::mt19937 m_random;
};

/// Half-open at the end, as the lengths of Unicode's blocks are given.
struct Block
{
    ushort first;
    ushort last;
};

}  // namespace

QStringList bench::tagNames(int count, unsigned seed)
{
    NameMaker maker(seed);
    QStringList names;
    QSet<QString> taken;
    taken.reserve(count);
    names.reserve(count);
    while (names.size() < count) {
        QString name = maker.make();
        // The phrases of two words are exhausted some day; a number always helps.
        while (taken.contains(name))
            name += QLatin1Char(' ') + QString::number(maker.below(count));
        taken.insert(name);
        names.append(name);
    }
    return names;
}

QStringList bench::sectionNames(int count)
{
    constexpr Block blocks[] = {
        {0x3041, 0x3097}, {0x30A1, 0x30FB}, {0x00C0, 0x00D7}, {0x00D8, 0x00F7}, {0x00F8, 0x0250}, {0x1E00, 0x1F00},
        {0xAC00, 0xD7A4}, {0x3400, 0x4DB6}, {0x9FA6, 0x9FD0}, {0xA000, 0xA48D}, {0xF900, 0xFA6E},
    };
    QStringList names;
    for (const Block& block : blocks) {
        for (uint character = block.first; character < block.last && names.size() < count; ++character)
            names.append(QString(QChar(character)) + QStringLiteral(" tag ") + QString::number(names.size()));
    }
    return names;
}
