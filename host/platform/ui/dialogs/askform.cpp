// SPDX-License-Identifier: MIT
#include "askform.h"

#include "basicdialog.h"

using namespace Qt::StringLiterals;

Event formEvent(EActivityListener::Event code, const QVariant& params)
{
    return Event(code).addArgument(u"params"_s, params);
}

QVariantMap askForm(const Event& event, QFlags<EInput::Source> sources)
{
    return core::BasicDialog().show(false, true, sources, event).getData().toMap();
}
