// SPDX-License-Identifier: MIT
#include "configvalue.h"

using namespace Qt::StringLiterals;

std::optional<bool> flagValue(const QString& text)
{
    const QString word = text.trimmed().toLower();
    if (word == "true"_L1 || word == "yes"_L1 || word == "on"_L1 || word == "1"_L1) {
        return true;
    }
    if (word.isEmpty() || word == "false"_L1 || word == "no"_L1 || word == "off"_L1 || word == "0"_L1) {
        return false;
    }
    return std::nullopt;
}

std::optional<int> numberValue(const QString& text)
{
    bool isNumber = false;
    const int number = text.trimmed().toInt(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}
