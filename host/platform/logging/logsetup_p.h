// SPDX-License-Identifier: MIT
#pragma once

namespace Log4Qt
{

/// Tells log4cplus where messages go, as the configuration says; does so once, with the first message.
void setUpLogging();

} // namespace Log4Qt
