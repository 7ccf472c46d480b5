// SPDX-License-Identifier: MIT
#pragma once

#include "basicform.h"

#include <QChildEvent>
#include <QCoreApplication>
#include <QSet>

/// While it lives, forms begin in another context than the platform's default, as on a host whose default is another:
/// what a form answers then is what it set itself.
///
/// A form gets it with its first child, which comes before anything that the form's own constructor sets.
class OtherDefaultContext : public QObject
{
public:
    explicit OtherDefaultContext(EContext::Code context)
        : m_context(context)
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* form = event->type() == QEvent::ChildAdded ? dynamic_cast<BasicForm*>(watched) : nullptr;
        if (form && !m_begun.contains(form)) {
            m_begun.insert(form);
            (form->*&Form::setContextCode)(m_context);
        }
        return false;
    }

private:
    struct Form : BasicForm {
        using BasicForm::setContextCode;
    };

    const EContext::Code m_context;
    QSet<const BasicForm*> m_begun;
};
