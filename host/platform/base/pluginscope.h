// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QString>
#include <QtGlobal>

/// Says whose code runs: the register opens a scope around each call into a plug-in. What a position keeps of its
/// plug-in, and what a log line says of it, comes from here. Scopes nest; they are closed in the opposite order. Main
/// thread.
class REGISTERPLATFORM_EXPORT PluginScope
{
public:
    /// @param plugin the plug-in's name: its library without "lib" and suffix; empty: the register itself
    explicit PluginScope(const QString& plugin);
    ~PluginScope();
    Q_DISABLE_COPY_MOVE(PluginScope)

    /// The name of the innermost open scope; empty when the register's own code runs.
    static QString current();

private:
    const QString m_outer;
};
