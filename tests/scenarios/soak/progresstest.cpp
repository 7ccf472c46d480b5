// SPDX-License-Identifier: MIT
#include "progress.h"
#include "qtprinting.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

using soak::Plan;
using soak::Visit;

constexpr qint64 memory = 65'536;

/// 99 sales, a return, and two more sales; each fifth customer meets a fault.
Plan plan()
{
    Plan plan;
    for (int number = 1; number <= 102; ++number) {
        Visit visit;
        visit.total = number == 100 ? -1240 : 1240;
        if (number % 5 == 0) {
            visit.faults.append(QJsonObject{{u"kind"_s, u"reset"_s}});
        }
        plan.visits.append(visit);
    }
    return plan;
}

TEST(SoakProgress, hundredthSale_isReportedOnceWithWhatWasMetSoFar)
{
    EXPECT_EQ(soak::progressAfter(plan(), 101, 98, memory),
              u"100 sales: 98 documents finished, 65536 KiB, 20 faults"_s);
    for (const qsizetype served : {0, 99, 100, 102}) {
        EXPECT_FALSE(soak::progressAfter(plan(), served, 98, memory)) << served;
    }
}

TEST(SoakProgress, returnAfterTheHundredthSale_isNotReportedAgain)
{
    Plan swapped = plan();
    swapped.visits.swapItemsAt(99, 100);
    EXPECT_TRUE(soak::progressAfter(swapped, 100, 98, memory));
    EXPECT_FALSE(soak::progressAfter(swapped, 101, 98, memory));
}

} // namespace
