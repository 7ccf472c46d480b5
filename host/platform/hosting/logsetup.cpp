// SPDX-License-Identifier: MIT
#include "logsetup.h"

#include "config.h"
#include "logsetup_p.h"

using namespace Qt::StringLiterals;

void setUpLogging(const Config& config)
{
    Log4Qt::setUpLogging({config.getString(u"Logging:properties"_s), config.getString(u"Logging:folder"_s)});
}
