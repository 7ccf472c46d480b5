// SPDX-License-Identifier: MIT
#include "workstep.h"

#include <QList>
#include <QStringList>

#include <algorithm>

namespace
{

/// The number of Hidden objects that exist.
int depth = 0;

/// All steps that live, in the order in which they began.
QList<const WorkStep*>& steps()
{
    static QList<const WorkStep*> all;
    return all;
}

} // namespace

WorkStep::WorkStep(const tr::Tr& text, Effect effect)
    : m_text(text)
    , m_effect(effect)
    , m_depth(depth)
{
    steps().append(this);
}

WorkStep::~WorkStep()
{
    steps().removeOne(this);
}

void WorkStep::setAdvice(const tr::Tr& advice)
{
    m_advice = advice;
}

const WorkStep* WorkStep::innermost()
{
    const QList<const WorkStep*>& all = steps();
    const auto step = std::find_if(all.crbegin(), all.crend(), isVisible);
    return step == all.crend() ? nullptr : *step;
}

bool WorkStep::isVisible(const WorkStep* step)
{
    return step->m_depth == depth;
}

QString WorkStep::currentText()
{
    QStringList texts;
    for (const WorkStep* step : steps()) {
        if (isVisible(step)) {
            texts.append(step->m_text.ui());
        }
    }
    return texts.join(u'\n');
}

QString WorkStep::currentAdvice()
{
    const WorkStep* step = innermost();
    return step ? step->m_advice.ui() : QString();
}

bool WorkStep::isWithoutEffect()
{
    const WorkStep* step = innermost();
    return step && step->m_effect == Effect::None;
}

WorkStep::Hidden::Hidden()
{
    ++depth;
}

WorkStep::Hidden::~Hidden()
{
    --depth;
}
