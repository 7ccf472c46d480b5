// SPDX-License-Identifier: MIT
#include "event.h"

Event::Event(EActivityListener::Event code)
    : m_code(code)
{
}

Event& Event::addArgument(const QString& name, const QVariant& value)
{
    m_arguments.insert(name, value);
    return *this;
}

QVariant Event::value(const QString& name, const QVariant& def) const
{
    return m_arguments.value(name, def);
}
