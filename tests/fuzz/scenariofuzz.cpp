// SPDX-License-Identifier: MIT
// A scenario file and its steps.

#include "fuzztarget.h"

#include "scenario.h"

using namespace Qt::StringLiterals;

namespace
{

bool isSame(const ScenarioStep& one, const ScenarioStep& other)
{
    return one.kind == other.kind && one.target == other.target && one.text == other.text && one.value == other.value &&
           one.times == other.times && one.seconds == other.seconds && one.source == other.source;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto steps = parseScenario(bytesOf(data, size));
    if (!steps) {
        promise(steps.failure().detail != u"no error occurred"_s, "a failure has a reason");
        return 0;
    }
    for (const ScenarioStep& step : *steps) {
        const auto alone = parseScenario("{\"steps\": [" + step.source.toUtf8() + "]}");
        promise(alone && alone->size() == 1 && isSame(alone->first(), step),
                "the source of a step is read as the same step");
    }
    return 0;
}
