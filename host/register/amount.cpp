// SPDX-License-Identifier: MIT
#include "amount.h"

#include <cmath>

Kopecks kopecks(double roubles)
{
    return std::llround(roubles * 100.0);
}

QString amountText(Kopecks amount)
{
    const Kopecks size = std::abs(amount);
    QString roubles = QString::number(size / 100);
    for (auto place = roubles.size() - 3; place > 0; place -= 3)
        roubles.insert(place, QChar::Nbsp);
    const QString decimals = QString::number(size % 100).rightJustified(2, QLatin1Char('0'));
    return (amount < 0 ? QStringLiteral("-") : QString()) + roubles + QLatin1Char(',') + decimals;
}
