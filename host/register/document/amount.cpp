// SPDX-License-Identifier: MIT
#include "amount.h"

#include <QRegularExpression>

#include <cmath>

using namespace Qt::StringLiterals;

namespace
{

/// More than any till takes in. Sums of very many such amounts still fit into Kopecks.
constexpr double largestRoubles = 1e12;

} // namespace

Kopecks kopecks(double roubles)
{
    return std::llround(std::fmin(std::fmax(roubles, -largestRoubles), largestRoubles) * 100.0);
}

QString amountText(Kopecks amount)
{
    const Kopecks size = std::abs(amount);
    QString roubles = QString::number(size / 100);
    for (auto place = roubles.size() - 3; place > 0; place -= 3) {
        roubles.insert(place, QChar::Nbsp);
    }
    const QString decimals = QString::number(size % 100).rightJustified(2, u'0');
    return (amount < 0 ? u"-"_s : QString()) + roubles + u',' + decimals;
}

std::optional<Kopecks> typedAmount(const QString& text)
{
    static const QRegularExpression form(u"\\A(\\d{1,8})(?:[.,](\\d{0,2}))?\\z"_s);
    const QRegularExpressionMatch match = form.match(text.trimmed());
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    return match.captured(1).toLongLong() * 100 + match.captured(2).leftJustified(2, u'0').toLongLong();
}
