// SPDX-License-Identifier: MIT
#include "amount.h"

#include "config.h"

#include <QRegularExpression>

#include <cstdlib>

using namespace Qt::StringLiterals;

QString amountText(Kopecks amount)
{
    const QString unit = currency();
    return unit.isEmpty() ? amountFigures(amount) : amountFigures(amount) + QChar::Nbsp + unit;
}

QString amountFigures(Kopecks amount)
{
    const qint64 size = std::abs(amount.count());
    QString roubles = QString::number(size / 100);
    for (auto place = roubles.size() - 3; place > 0; place -= 3) {
        roubles.insert(place, QChar::Nbsp);
    }
    const QString decimals = QString::number(size % 100).rightJustified(2, u'0');
    return (amount < Kopecks{} ? u"\u2212"_s : QString()) + roubles + u',' + decimals;
}

QString currency()
{
    return Singleton<Config>::get()->getString(u"Register:currency"_s, u"BYN"_s);
}

QString captionWithCurrency(const QString& caption)
{
    const QString unit = currency();
    return unit.isEmpty() ? caption : caption + u", "_s + unit;
}

std::optional<Kopecks> typedAmount(const QString& text)
{
    static const QRegularExpression form(u"\\A(\\d{1,8})(?:[.,](\\d{0,2}))?\\z"_s);
    const QRegularExpressionMatch match = form.match(text.trimmed());
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    return Kopecks{match.captured(1).toLongLong() * 100 + match.captured(2).leftJustified(2, u'0').toLongLong()};
}

QString packsText(double packs)
{
    static const QRegularExpression idleDecimals(u"\\.?0+\\z"_s);
    return QString::number(packs, 'f', 3).remove(idleDecimals).replace(u'.', u',');
}
