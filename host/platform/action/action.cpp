// SPDX-License-Identifier: MIT
#include "action.h"

#include <algorithm>

namespace control
{

Action::Action(EActionType type)
    : m_type(type)
{
}

QVariant Action::value(const QString& key, const QVariant& def) const
{
    const auto named = [&key](const auto& argument) { return argument.first == key; };
    const auto last = std::find_if(m_arguments.crbegin(), m_arguments.crend(), named);
    return last == m_arguments.crend() ? def : last->second;
}

void Action::insert(const QString& key, const QVariant& value)
{
    const auto named = [&key](const auto& argument) { return argument.first == key; };
    const auto first = std::find_if(m_arguments.begin(), m_arguments.end(), named);
    if (first == m_arguments.end()) {
        appendArgument(value, key);
        return;
    }
    first->second = value;
    m_arguments.erase(std::remove_if(first + 1, m_arguments.end(), named), m_arguments.end());
}

void Action::appendArgument(const QVariant& value, const QString& key)
{
    m_arguments.append({key, value});
}

QVariantMap Action::toMap() const
{
    QVariantMap map;
    for (const auto& [key, value] : m_arguments) {
        map.insert(key, value);
    }
    return map;
}

void Action::setAllowContexts(const QSet<EContext::Code>& contexts)
{
    m_allowContexts = contexts;
}

} // namespace control
