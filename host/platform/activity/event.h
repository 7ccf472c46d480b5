// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QMetaType>
#include <QString>
#include <QVariant>
#include <QVariantMap>

/// The codes of the register's events. A plug-in may use numbers of its own.
struct EActivityListener {
    enum Event : int {
        DocumentOpened = 10,
        DocumentClosed = 12,
        DocumentRestored = 17, ///< a saved document became current; carries "document"
        DocumentCancelled = 22,
        LongWorkBegins = 72, ///< carries "message" (tr::Tr), and if known "seconds" (int): how long it takes at most
        LongWorkEnds = 73,
        ShowMessage = 300,   ///< the platform's message form; carries "message" (tr::Tr) and "kind" (int)
        ShowTextInput = 301, ///< the platform's text-input form; carries "params", a TextInputParams
    };
};

/// Something that happened, or a request for a form: a code with named arguments. A value type.
class REGISTERPLATFORM_EXPORT Event
{
public:
    explicit Event(EActivityListener::Event code = {});

    EActivityListener::Event getCode() const { return m_code; }

    /// Sets an argument; an argument of that name is replaced.
    Event& addArgument(const QString& name, const QVariant& value);

    /// The argument of that name; `def` when there is none.
    QVariant value(const QString& name, const QVariant& def = {}) const;

private:
    EActivityListener::Event m_code;
    QVariantMap m_arguments;
};

Q_DECLARE_METATYPE(Event)
