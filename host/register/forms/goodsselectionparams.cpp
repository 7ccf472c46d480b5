// SPDX-License-Identifier: MIT
#include "goodsselectionparams.h"

using namespace Qt::StringLiterals;

Event GoodsSelectionParams::toEvent() const
{
    return Event(eventCode).addArgument(u"params"_s, QVariant::fromValue(*this));
}
