// SPDX-License-Identifier: MIT
#include "registerformcreator.h"

#include "goodsselectionform.h"

QSharedPointer<BasicForm> RegisterFormCreator::create(const Event& event)
{
    if (event.getCode() != GoodsSelectionParams::eventCode)
        return nullptr;
    return QSharedPointer<GoodsSelectionForm>::create(GoodsSelectionParams::fromEvent(event));
}

QSharedPointer<BasicForm> RegisterFormCreator::create(EContext::Code)
{
    return nullptr;
}
