#include "notes/sort_value.h"

#include "core/text/text_rules.h"

#include <algorithm>
#include <cmath>

namespace paneda {

namespace {

constexpr double kStep = 1'000'000;
constexpr double kHighest = 9'999'999'999;
constexpr int kDigits = 10;

double ValueOf(const QString& sort) {
    return std::clamp(LeadingNumber(sort), 0.0, kHighest + 0.9);
}

// "0000000007.5"
QString FormatTenths(double value) {
    const QString digits = QString::number(std::abs(value), 'f', 1).rightJustified(kDigits + 2, u'0');
    return value < 0 ? u'-' + digits : digits;
}

SortChoice Behind(double value) {
    if (value + kStep > kHighest)
        return {FormatTenths(kHighest + 0.9), true};
    return {FormatSort(value + kStep), false};
}

} // namespace

QString FormatSort(double value) {
    return QString::number(std::llround(value)).rightJustified(kDigits, u'0');
}

QString NeighbourSort(NodePosition position, const QString& base, const QStringList& sorts) {
    QString next = position == NodePosition::Below ? QStringLiteral("A") : QStringLiteral("0");
    for (const QString& sort : sorts) {
        const bool aboveNext = CompareText(sort, next) > 0;
        const bool closer =
            position == NodePosition::Below
                ? CompareText(sort, base) > 0 && CompareText(sort, next) < 0
                : aboveNext && (position == NodePosition::Child || CompareText(sort, base) < 0);
        if (closer)
            next = sort;
    }
    return next;
}

SortChoice ChooseSort(NodePosition position, const QString& base, const QString& neighbour) {
    const double next = ValueOf(neighbour);
    if (position == NodePosition::Child)
        return Behind(next);
    const double from = ValueOf(base);
    if (neighbour == u"A")
        return Behind(from);
    if (std::abs(from - next) > 1)
        return {FormatSort((from + next) / 2), false};
    return {FormatTenths(position == NodePosition::Below ? next + 0.5 : next - 0.5), true};
}

QStringList EvenSorts(std::size_t count) {
    const double step = std::min(kStep, std::floor(kHighest / double(std::max<std::size_t>(count, 1))));
    QStringList sorts;
    for (std::size_t i = 1; i <= count; ++i)
        sorts.append(FormatSort(double(i) * step));
    return sorts;
}

std::vector<SortWrite> PlanRenumber(const QStringList& current, const QStringList& wanted) {
    std::vector<SortWrite> writes;
    for (qsizetype i = wanted.size() - 1; i >= 0; --i) {
        if (CompareText(wanted[i], current[i]) > 0)
            writes.push_back({std::size_t(i), wanted[i]});
    }
    for (qsizetype i = 0; i < wanted.size(); ++i) {
        if (CompareText(wanted[i], current[i]) < 0)
            writes.push_back({std::size_t(i), wanted[i]});
    }
    return writes;
}

} // namespace paneda
