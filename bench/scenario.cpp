// SPDX-License-Identifier: MIT
#include "bench/scenario.h"

#include "bench/measurements.h"
#include "bench/median.h"
#include "bench/memoryusage.h"
#include "bench/names.h"
#include "plugin/state/vltagmanagersingleton.h"
#include "tests/support/memoryhost.h"

#include <QScrollBar>
#include <QWidget>

#include <algorithm>
#include <random>

namespace {

constexpr int repetitions = 9;             // of what can be repeated, at most
constexpr double repetitionBudget = 2000;  // milliseconds after which nothing is repeated any more
constexpr int changes = 3;                 // of one tag each: the same number on both sides
constexpr int narrowing = 37;              // pixels
constexpr int scrollStep = 60;             // pixels: three lines of a mouse wheel
constexpr int colorCount = 8;
constexpr int fileCountCycle = 977;
constexpr double bytesPerKib = 1024;

QVector<example::NewTag> tagSpecs(const QStringList& names)
{
    QVector<example::NewTag> specs;
    specs.reserve(names.size());
    for (int i = 0; i < names.size(); ++i)
        specs.append({names.at(i), i % colorCount, i % fileCountCycle});
    return specs;
}

/// One window from its opening to the last operation.
class Session
{
public:
    explicit Session(const bench::Task& task)
        : m_task(task)
        , m_side(bench::makeSide(task.side, &m_host))
        , m_tenth(std::max(task.n / 10, 1))
    {
        VLTagManagerSingleton::instance()->setTagColorProvider(m_host.palette());
        const bool mixed = task.names == bench::Names::Mixed;
        QStringList names = mixed ? bench::tagNames(task.n + m_tenth + 2 * changes) : bench::sectionNames(task.n);
        m_ids = m_host.addTags(tagSpecs(names.mid(0, task.n)));
        m_newNames = names.mid(task.n);
        std::shuffle(m_ids.begin(), m_ids.end(), std::mt19937(7));
    }

    void open();
    void changeNothing();
    void search();
    void changeTags();
    void followSignal();

private:
    void report(const char* operation, double value) const;
    [[nodiscard]] bool isAskedFor(const char* operation) const;
    [[nodiscard]] double once(const std::function<void()>& cause) const;
    void repeat(const char* operation, const std::function<void(int)>& cause) const;
    void change(const char* operation, const std::function<void(int)>& cause) const;
    void type(const char* operation, const QString& text);
    void rename(qint64 id, const QString& name);

    bench::Task m_task;
    MemoryHost m_host;
    std::unique_ptr<bench::Side> m_side;
    int m_tenth;
    QVector<qint64> m_ids;  ///< In no order.
    QStringList m_newNames;
};

void Session::report(const char* operation, double value) const
{
    if (isAskedFor(operation))
        bench::reportLine(QLatin1String(operation), value, m_side->shownTags());
}

bool Session::isAskedFor(const char* operation) const
{
    return m_task.operation.isEmpty() || m_task.operation == QLatin1String(operation);
}

double Session::once(const std::function<void()>& cause) const
{
    return bench::timeToPaint(m_task.clock, cause);
}

void Session::repeat(const char* operation, const std::function<void(int)>& cause) const
{
    if (!isAskedFor(operation))
        return;
    QVector<double> values;
    double spent = 0;
    while (values.size() < repetitions && spent < repetitionBudget) {
        values.append(once([&] { cause(values.size()); }));
        spent += values.last();
    }
    report(operation, bench::median(values));
}

void Session::change(const char* operation, const std::function<void(int)>& cause) const
{
    if (!isAskedFor(operation))
        return;
    QVector<double> values;
    while (values.size() < changes)
        values.append(once([&] { cause(values.size()); }));
    report(operation, bench::median(values));
}

void Session::open()
{
    const bench::MemoryUsage before = bench::memoryUsage();
    const double value = once([this] { m_side->open(); });
    const bench::MemoryUsage after = bench::memoryUsage();
    report("open", value);
    report("memory", static_cast<double>(after.resident - before.resident) * bytesPerKib);
    report("memory_peak", static_cast<double>(after.peak - before.resident) * bytesPerKib);
}

void Session::changeNothing()
{
    QScrollBar* bar = m_side->scrollBar();
    repeat("scroll", [bar](int) { bar->setValue(bar->value() + scrollStep); });
    repeat("paint", [this](int) { m_side->viewport()->update(); });
    const int width = m_side->window()->width();
    repeat("resize", [&](int turn) { m_side->setWidth(width - (turn % 2 == 0 ? narrowing : 0)); });
    m_side->setWidth(width);
    bar->setValue(0);
    bench::settle();
}

void Session::search()
{
    type("search_a", QStringLiteral("a"));
    type("search_an", QStringLiteral("an"));
    type("search_clear", QString());
}

void Session::type(const char* operation, const QString& text)
{
    report(operation, once([&] { m_side->search(text); }));
}

void Session::changeTags()
{
    change("add", [this](int) { m_host.addTag(m_newNames.takeFirst(), 1, 1); });
    change("rename", [this](int turn) { rename(m_ids.at(turn), m_newNames.takeFirst()); });
    const auto update = [this] {
        for (const qint64 id : m_ids.mid(0, m_tenth)) {
            m_host.setFileCount(id, m_host.tag(id)->fileCount(1) + 1000);
            m_side->follow(id);
        }
    };
    if (isAskedFor("update_many"))
        report("update_many", once(update));
    const auto specs = tagSpecs(m_newNames.mid(0, m_tenth));
    if (isAskedFor("add_many"))
        report("add_many", once([&] { m_host.addTags(specs); }));
    if (isAskedFor("remove_many"))
        report("remove_many", once([this] { m_host.removeTags(m_ids.mid(0, m_tenth)); }));
}

void Session::followSignal()
{
    change("signal", [this](int turn) { rename(m_ids.at(turn), QStringLiteral("zz") + QString::number(turn)); });
}

void Session::rename(qint64 id, const QString& name)
{
    m_host.renameTag(id, name);
    m_side->follow(id);
}

}  // namespace

void bench::measure(const Task& task)
{
    Session session(task);
    session.open();
    if (task.operation == QLatin1String("open") || task.operation.startsWith(QLatin1String("memory")))
        return;
    session.changeNothing();
    session.search();
    if (task.names == Names::Mixed)
        session.changeTags();
    else
        session.followSignal();
}
