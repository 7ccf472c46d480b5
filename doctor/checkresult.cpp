// SPDX-License-Identifier: MIT
#include "checkresult.h"

#include <algorithm>

namespace doctor
{

int exitStatus(const QList<CheckResult>& results)
{
    const auto first = std::find_if(results.cbegin(), results.cend(),
                                    [](const CheckResult& result) { return result.finding.state == State::Wrong; });
    return int(first == results.cend() ? Kind::None : first->finding.kind);
}

} // namespace doctor
