// SPDX-License-Identifier: MIT
#pragma once

#include "standingwarning.h"

#include <QMap>
#include <QStringList>

class StatusLine;

/// The warnings of plug-ins in the status line, for as long as it lives.
class PluginWarnings : public StandingWarning
{
public:
    /// @param line not owned
    explicit PluginWarnings(StatusLine& line);
    ~PluginWarnings() override;
    Q_DISABLE_COPY_MOVE(PluginWarnings)

    void set(const tr::Tr& text) override;
    /// Drops the warnings of other plug-ins.
    void keepThoseOf(const QStringList& plugins);

private:
    void show() const;

    StatusLine& m_line;
    QMap<QString, tr::Tr> m_warnings; ///< by plug-in
    StandingWarning* const m_former = Singleton<StandingWarning>::instance;
};
