// SPDX-License-Identifier: MIT
#include "workstep.h"

#include <QStringList>

namespace
{

WorkStep*& innermost()
{
    static WorkStep* step = nullptr;
    return step;
}

} // namespace

WorkStep::WorkStep(const tr::Tr& text, Effect effect)
    : m_text(text)
    , m_effect(effect)
    , m_outer(innermost())
{
    innermost() = this;
}

WorkStep::~WorkStep()
{
    innermost() = m_outer;
}

void WorkStep::setAdvice(const tr::Tr& advice)
{
    m_advice = advice;
}

QString WorkStep::currentText()
{
    QStringList texts;
    for (const WorkStep* step = innermost(); step; step = step->m_outer) {
        texts.prepend(step->m_text.ui());
    }
    return texts.join(u'\n');
}

QString WorkStep::currentAdvice()
{
    return innermost() ? innermost()->m_advice.ui() : QString();
}

bool WorkStep::isWithoutEffect()
{
    return innermost() && innermost()->m_effect == Effect::None;
}
