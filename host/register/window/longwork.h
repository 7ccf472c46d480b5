// SPDX-License-Identifier: MIT
#pragma once

#include "baseactivitylistener.h"
#include "tr.h"
#include "worklimit.h"

#include <QList>
#include <QString>

/// Long work of the plug-ins. Event 72 begins it and 73 ends it; pairs of them may nest.
///
/// Work that an action begins ends with that action at the latest: endLeftOpen() ends what an exception left open.
class LongWork : public BaseActivityListener
{
    Q_OBJECT

public:
    explicit LongWork(QObject* parent = nullptr);

    bool isRunning() const { return !m_works.isEmpty(); }

public slots:
    void handleEvent(const Event& event) override;
    /// Ends the work that was begun by an action deeper than that.
    /// @param depth how many actions still run
    void endLeftOpen(int depth);
    /// Ends all work when no action runs: an exception left the event that began it.
    void endAfterFailure();

signals:
    /// Work began, or the inner one of two ended. `message` describes the work that is going on now.
    /// @param limit how long that work takes at most
    void running(const QString& message, const WorkLimit& limit);
    /// All work has ended. Keys and clicks during the work are thrown away.
    void ended();

private:
    struct Work {
        tr::Tr message;
        int depth = 0; ///< how many actions ran inside one another when it began
        WorkLimit limit = {};
    };

    void showInnermost();

    QList<Work> m_works;
};
