// SPDX-License-Identifier: MIT
#include "question.h"

#include "askform.h"

using namespace Qt::StringLiterals;

bool Question::ask() const
{
    return askForm(eventCode, *this).value(u"yes"_s).toBool();
}
