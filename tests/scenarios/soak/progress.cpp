// SPDX-License-Identifier: MIT
#include "progress.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace soak
{
namespace
{

constexpr int salesBetweenLines = 100;

bool isSale(const Visit& visit)
{
    return visit.total >= 0;
}

} // namespace

std::optional<QString> progressAfter(const Plan& plan, qsizetype served, qsizetype finished, qint64 memory)
{
    const auto begin = plan.visits.cbegin();
    const auto end = begin + served;
    const auto sales = std::count_if(begin, end, isSale);
    if (served == 0 || !isSale(*(end - 1)) || sales % salesBetweenLines != 0) {
        return std::nullopt;
    }
    const qsizetype faults = std::accumulate(
        begin, end, qsizetype(0), [](qsizetype sum, const Visit& visit) { return sum + visit.faults.size(); });
    return u"%1 sales: %2 documents finished, %3 KiB, %4 faults"_s.arg(sales).arg(finished).arg(memory).arg(faults);
}

} // namespace soak
