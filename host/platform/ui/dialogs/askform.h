// SPDX-License-Identifier: MIT
#pragma once

#include "einput.h"
#include "event.h"
#include "export.h"

#include <QString>
#include <QVariant>
#include <QVariantMap>

/// The event that asks for a form: it carries the form's parameter record as "params".
REGISTERPLATFORM_EXPORT Event formEvent(EActivityListener::Event code, const QVariant& params);

/// The parameter record of such an event; a default one when it carries none of that type. For form creators.
template <typename Params>
Params formParams(const Event& event)
{
    using namespace Qt::StringLiterals;
    return event.value(u"params"_s).template value<Params>();
}

/// Shows the form of an event and returns its answer. A form that ends without one answers -1 under "data" and
/// "status". Blocks in an event loop until then. Throws what core::BasicDialog::show() throws.
REGISTERPLATFORM_EXPORT QVariantMap askForm(const Event& event, QFlags<EInput::Source> sources = EInput::Keyboard);

/// The same with the form's parameter record, a type that is known to QMetaType.
template <typename Params>
QVariantMap askForm(EActivityListener::Event code, const Params& params,
                    QFlags<EInput::Source> sources = EInput::Keyboard)
{
    return askForm(formEvent(code, QVariant::fromValue(params)), sources);
}
