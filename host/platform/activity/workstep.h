// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "tr.h"

#include <QString>

/// A step of the work that the cashier waits for, such as the second of three registrations.
///
/// While it lives, the busy screen shows its text, and a message that is shown names it, with the step's advice below.
/// Steps nest and may end in any order. They change nothing of what a message says itself. Main thread.
class REGISTERPLATFORM_EXPORT WorkStep
{
public:
    enum class Effect : int {
        OfRequests, ///< a POST of this step may change something on the server
        None,       ///< no request of this step changes anything on the server, a POST for a token for example
    };

    /// @param text what is done and with what; may have several lines
    explicit WorkStep(const tr::Tr& text, Effect effect = Effect::OfRequests);
    ~WorkStep();
    Q_DISABLE_COPY_MOVE(WorkStep)

    /// What is known after a failure and what the cashier can do next; shown with the messages that follow.
    void setAdvice(const tr::Tr& advice);

    /// The texts of all steps that live, the outermost first, in lines; empty when there is none.
    static QString currentText();
    /// The advice of the innermost step; empty when it has none.
    static QString currentAdvice();
    /// True when the requests that are sent now change nothing on the server.
    static bool isWithoutEffect();

    /// While one exists, the steps that were there before it are hidden: event handlers that run during a request of
    /// theirs do other work.
    class REGISTERPLATFORM_EXPORT Hidden
    {
    public:
        Hidden();
        ~Hidden();
        Q_DISABLE_COPY_MOVE(Hidden)
    };

private:
    static bool isVisible(const WorkStep* step);
    /// Null when no step is visible.
    static const WorkStep* innermost();

    const tr::Tr m_text;
    const Effect m_effect;
    const int m_depth; ///< the number of Hidden objects when it began
    tr::Tr m_advice;
};
