// SPDX-License-Identifier: MIT
#pragma once

#include "cardterminal.h"
#include "export.h"
#include "singleton.h"

#include <QSharedPointer>

#include <memory>

struct CardTerminalHost;

/// The card terminals that plug-ins bring. Main thread.
class REGISTERPLATFORM_EXPORT CardTerminals
{
public:
    CardTerminals();
    virtual ~CardTerminals();
    Q_DISABLE_COPY_MOVE(CardTerminals)

    /// To be called from init(). The register works with the first terminal; a further one is logged and not used. Null
    /// is passed over. Shares the ownership until the plug-ins are unloaded.
    virtual void add(const QSharedPointer<CardTerminal>& terminal);

    /// The host's side; a plug-in has no use for it.
    CardTerminalHost& host() { return *m_host; }

private:
    std::unique_ptr<CardTerminalHost> m_host;
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<CardTerminals>;
