// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

/// Ends the register when the system asks for it: by a signal, or at the end of the desktop session.
///
/// What is under way is finished first. A request to a server is waited for, for its time-out at most; open forms are
/// cancelled, and so is what they lead to, until no action runs. Then the register saves and its event loop ends.
class OrderlyEnd : public QObject
{
    Q_OBJECT

public:
    /// @param save saves what is open
    explicit OrderlyEnd(std::function<void()> save, QObject* parent = nullptr);

    bool hasBegun() const { return m_hasBegun; }

    /// Begins to end; a second call changes nothing.
    void begin();
    /// Begins to end when the desktop session ends, and saves when the session's state is saved.
    void followSession();

private:
    void goOn();

    std::function<void()> m_save;
    bool m_hasBegun = false;
    bool m_isSaved = false;
};
