// SPDX-License-Identifier: MIT
#pragma once

#include "eactiontype.h"
#include "econtext.h"
#include "export.h"

#include <QList>
#include <QMetaType>
#include <QSet>
#include <QString>
#include <QVariant>
#include <QVariantMap>

#include <utility>

namespace control
{

/// A command to the register, with ordered, named arguments. A value type: copies are independent of one another.
class REGISTERPLATFORM_EXPORT Action
{
public:
    explicit Action(EActionType type = {});

    EActionType getType() const { return m_type; }

    /// The last argument of that name; `def` when there is none.
    QVariant value(const QString& key, const QVariant& def = {}) const;

    /// Sets an argument: it replaces every argument of that name, at the place of the first of them.
    void insert(const QString& key, const QVariant& value);

    /// Adds an argument at the end; arguments of the same name stay.
    void appendArgument(const QVariant& value, const QString& key);

    /// All arguments in order.
    const QList<std::pair<QString, QVariant>>& getArguments() const { return m_arguments; }

    /// The arguments by name, the last of each name.
    QVariantMap toMap() const;

    /// The contexts in which the action may run; empty: everywhere.
    void setAllowContexts(const QSet<EContext::Code>& contexts);
    const QSet<EContext::Code>& getAllowContexts() const { return m_allowContexts; }

    /// The same type, arguments in the same order, and contexts.
    bool operator==(const Action&) const = default;

private:
    EActionType m_type;
    QList<std::pair<QString, QVariant>> m_arguments;
    QSet<EContext::Code> m_allowContexts;
};

} // namespace control

Q_DECLARE_METATYPE(control::Action)
