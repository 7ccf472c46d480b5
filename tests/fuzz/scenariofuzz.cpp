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
    const ScenarioFile scenario = ScenarioFile::parse(bytesOf(data, size));
    promise(scenario.error.isEmpty() || scenario.steps.isEmpty(), "a scenario is played whole or not at all");
    promise(scenario.error != u"no error occurred"_s, "a refusal has a reason");
    for (const ScenarioStep& step : scenario.steps) {
        const ScenarioFile alone = ScenarioFile::parse("{\"steps\": [" + step.source.toUtf8() + "]}");
        promise(alone.steps.size() == 1 && isSame(alone.steps.first(), step), "a step's source is the step");
    }
    return 0;
}
