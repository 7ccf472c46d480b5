// SPDX-License-Identifier: MIT
#include "goodsselectionparams.h"

Event GoodsSelectionParams::toEvent() const
{
    return Event(eventCode).addArgument(QStringLiteral("params"), QVariant::fromValue(*this));
}

GoodsSelectionParams GoodsSelectionParams::fromEvent(const Event& event)
{
    return event.value(QStringLiteral("params")).value<GoodsSelectionParams>();
}
