// SPDX-License-Identifier: MIT
#pragma once

#include "records.h"

#include <QList>
#include <QString>

#include <variant>

namespace emulator
{
/// A rule, with the name that it has in seeds, in data files and on the remote control.
struct RuleField {
    QString name;
    std::variant<int Rules::*, bool Rules::*, QString Rules::*> member;
};

/// All rules, in the order of Rules.
const QList<RuleField>& ruleFields();
} // namespace emulator
