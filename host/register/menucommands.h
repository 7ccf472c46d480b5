// SPDX-License-Identifier: MIT
#pragma once

#include "actionqueuecontroller.h"
#include "functionkey.h"
#include "sale.h"

#include <QList>
#include <QString>

/// The menu: the commands that have no key of their own.
class MenuCommands
{
public:
    /// @param sale not owned
    MenuCommands(const Sale& sale, const QList<FunctionKey>& entries);

    /// Makes the register handle its action. The object has to outlive the controller's use of it.
    void offer(ActionQueueController& controller);

private:
    EContext::Result showMenu(const control::Action& action);
    QString obstacle(const FunctionKey& entry) const;

    const Sale& m_sale;
    QList<FunctionKey> m_entries;
};
