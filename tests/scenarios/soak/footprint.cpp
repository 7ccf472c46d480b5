// SPDX-License-Identifier: MIT
#include "footprint.h"

#include <QFile>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace soak
{
namespace
{

constexpr double allowedGrowth = 1.1;
constexpr double allowedSlowdown = 3;
constexpr qsizetype fewestInAQuarter = 20;

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The resident pages are the second field of statm; see proc(5).
qint64 residentMemory(const QString& folder)
{
    const QByteArrayList fields = contentOf(folder + u"/statm"_s).split(' ');
    return fields.size() < 2 ? 0 : fields[1].toLongLong() * ::sysconf(_SC_PAGESIZE) / 1024;
}

/// User and system time are the fields 14 and 15 of stat, the 12th and 13th behind the program's name; see proc(5).
qint64 processorTime(const QString& folder)
{
    const QByteArray stat = contentOf(folder + u"/stat"_s);
    const QByteArrayList fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
    constexpr int user = 11;
    constexpr int system = 12;
    if (fields.size() <= system) {
        return 0;
    }
    return (fields[user].toLongLong() + fields[system].toLongLong()) * 1000 / ::sysconf(_SC_CLK_TCK);
}

qint64 entriesIn(const QString& folder)
{
    std::error_code error;
    const std::filesystem::directory_iterator entries(folder.toStdString(), error);
    return error ? 0 : std::distance(begin(entries), end(entries));
}

template <typename T>
T median(QList<T> values)
{
    if (values.isEmpty()) {
        return {};
    }
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

qint64 greatest(const QList<qint64>& counts)
{
    return counts.isEmpty() ? 0 : *std::max_element(counts.cbegin(), counts.cend());
}

Window windowOf(const QList<Footprint>& samples)
{
    QList<qint64> memory;
    QList<double> stepTimes;
    Window window;
    for (const Footprint& sample : samples) {
        memory.append(sample.memory);
        if (!sample.isComparable) {
            continue;
        }
        stepTimes.append(sample.stepTime);
        if (!window.descriptors.contains(sample.descriptors)) {
            window.descriptors.append(sample.descriptors);
        }
    }
    window.memory = median(memory);
    window.stepTime = median(stepTimes);
    window.processorTime =
        double(samples.constLast().processorTime - samples.constFirst().processorTime) / double(samples.size() - 1);
    return window;
}

} // namespace

Footprint footprintOf(qint64 process)
{
    const QString folder = u"/proc/"_s + QString::number(process);
    Footprint footprint;
    footprint.memory = residentMemory(folder);
    footprint.descriptors = entriesIn(folder + u"/fd"_s);
    footprint.processorTime = processorTime(folder);
    return footprint;
}

QList<Window> windowsOf(const QList<Footprint>& samples, int size)
{
    QList<Window> windows;
    for (qsizetype first = 0; first + size <= samples.size(); first += size) {
        windows.append(windowOf(samples.mid(first, size)));
    }
    return windows;
}

QStringList growthIn(const QList<Window>& windows)
{
    if (windows.size() < 3) {
        return {u"there are too few windows to compare"_s};
    }
    const Window& early = windows[1];
    const Window& late = windows.constLast();
    QStringList grown;
    if (double(late.memory) > double(early.memory) * allowedGrowth) {
        grown.append(u"memory grew from %1 to %2 KiB"_s.arg(early.memory).arg(late.memory));
    }
    if (early.descriptors.isEmpty() || greatest(late.descriptors) > greatest(early.descriptors)) {
        grown.append(
            u"open descriptors grew from %1 to %2"_s.arg(greatest(early.descriptors)).arg(greatest(late.descriptors)));
    }
    return grown;
}

QStringList slowdownIn(const QList<Footprint>& samples)
{
    QList<double> times;
    for (const Footprint& sample : samples) {
        if (sample.isComparable) {
            times.append(sample.stepTime);
        }
    }
    const qsizetype quarter = times.size() / 4;
    if (quarter < fewestInAQuarter) {
        return {};
    }
    const double early = median(times.first(quarter));
    const double late = median(times.last(quarter));
    if (late <= early * allowedSlowdown) {
        return {};
    }
    return {u"a step took %1 ms at first and %2 ms at the end"_s.arg(early).arg(late)};
}

} // namespace soak
