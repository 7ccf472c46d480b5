// SPDX-License-Identifier: MIT
#include "receiptlayout.h"

#include "config.h"
#include "printedtext.h"
#include "tr.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace receiptlayout
{

namespace
{

using Lines = QList<PrintedLine>;

const QString indent(3, QLatin1Char(' '));

PrintedLine rule()
{
    return {QString(columns, QLatin1Char('-'))};
}

Lines centred(const QString& text, bool isStrong = false)
{
    Lines lines;
    for (const QString& line : printedtext::wrapped(text, columns))
        lines.append({QString((columns - line.size()) / 2, QLatin1Char(' ')) + line, {}, isStrong});
    return lines;
}

/// The text below `first`, which stands before its first line.
Lines hanging(const QString& first, const QString& text)
{
    const QStringList wrapped = printedtext::wrapped(text, columns - static_cast<int>(first.size()));
    Lines lines;
    for (const QString& line : wrapped)
        lines.append({(lines.isEmpty() ? first : QString(first.size(), QLatin1Char(' '))) + line});
    return lines.isEmpty() ? Lines{{first.trimmed()}} : lines;
}

/// An amount beside its label, or below a label that leaves it no room.
Lines amount(const QString& label, const QString& value, bool isStrong = false)
{
    if (label.size() + 1 + value.size() <= columns)
        return {{label, value, isStrong}};
    return {{label, {}, isStrong}, {{}, value, isStrong}};
}

/// Printers know no blanks but the ordinary one.
QString roubles(Kopecks amount)
{
    return amountText(amount).replace(QChar::Nbsp, QLatin1Char(' '));
}

QString timeText(const QDateTime& time)
{
    return time.toString(QStringLiteral("dd.MM.yyyy HH:mm"));
}

QString packsText(double packs)
{
    return QString::number(packs).replace(QLatin1Char('.'), QLatin1Char(','));
}

Kopecks sumWithoutBenefit(const ReceiptPosition& position)
{
    return std::llround(static_cast<double>(kopecks(position.getInitialPrice())) * position.getQuantity());
}

/// What the customer saves because the price was lowered; 0 when it was not.
Kopecks benefit(const ReceiptPosition& position)
{
    return std::max<Kopecks>(0, sumWithoutBenefit(position) - position.getSum());
}

Lines head()
{
    const Config* config = Singleton<Config>::get();
    const QString taxpayer = config->getString(QStringLiteral("Register:taxpayerNumber"));
    Lines lines = centred(config->getString(QStringLiteral("Register:pharmacyName")), true) +
                  centred(config->getString(QStringLiteral("Register:pharmacyAddress")));
    if (!taxpayer.isEmpty())
        lines += centred(tr::Tr(QStringLiteral("printedTaxpayer"), QStringLiteral("ИНН %1")).arg(taxpayer).ui());
    if (!lines.isEmpty())
        lines.append(rule());
    return lines;
}

Lines titleLines(const Receipt& receipt)
{
    Lines lines = centred(title(receipt), true) + centred(timeText(receipt.getFinished()));
    lines.append(rule());
    return lines;
}

Lines positionLines(const ReceiptPosition& position, const QStringList& tellings)
{
    const QString price = roubles(kopecks(position.getPrice()));
    Lines lines =
        hanging(QStringLiteral("%1. ").arg(position.getNumber()), position.getName()) +
        amount(indent + packsText(position.getQuantity()) + QStringLiteral(" × ") + price + QStringLiteral(" ="),
               roubles(position.getSum()));
    if (const Kopecks saved = benefit(position); saved > 0) {
        const tr::Tr full(QStringLiteral("printedSumWithoutBenefit"), QStringLiteral("Сумма без льготы"));
        const tr::Tr label(QStringLiteral("printedBenefit"), QStringLiteral("Льгота"));
        lines += amount(indent + full.ui(), roubles(sumWithoutBenefit(position)));
        lines += amount(indent + label.ui(), QStringLiteral("−") + roubles(saved));
    }
    for (const QString& telling : tellings)
        lines += hanging(indent, telling);
    return lines;
}

Lines totals(const Receipt& receipt)
{
    const auto& positions = receipt.positions();
    const Kopecks saved = std::accumulate(positions.cbegin(), positions.cend(), Kopecks(0),
                                          [](Kopecks sum, const auto& position) { return sum + benefit(*position); });
    const auto labelled = [](const tr::Tr& label, Kopecks value) { return amount(label.ui(), roubles(value)); };

    Lines lines =
        amount(tr::Tr(QStringLiteral("printedTotal"), QStringLiteral("ИТОГО")).ui(), roubles(receipt.getSum()), true);
    if (saved > 0)
        lines += labelled({QStringLiteral("printedBenefitInAll"), QStringLiteral("Льгота всего")}, saved);
    if (receipt.isCancelling())
        return lines + labelled({QStringLiteral("printedPaidOut"), QStringLiteral("Выдано")}, receipt.getReceived());
    return lines +
           labelled({QStringLiteral("printedReceived"), QStringLiteral("Получено наличными")}, receipt.getReceived()) +
           labelled({QStringLiteral("printedChange"), QStringLiteral("Сдача")}, receipt.getChange());
}

} // namespace

QString title(const Receipt& receipt)
{
    const QString number = QString::number(receipt.getNumber());
    if (!receipt.isCancelling())
        return tr::Tr(QStringLiteral("printedSale"), QStringLiteral("ЧЕК № %1")).arg(number).ui();
    return tr::Tr(QStringLiteral("printedTakeBack"), QStringLiteral("ВОЗВРАТ № %1 по чеку № %2"))
        .arg(number)
        .arg(QString::number(receipt.getTakesBack()))
        .ui();
}

QList<PrintedLine> lines(const Receipt& receipt, const PositionMarks& marks)
{
    Lines lines = head() + titleLines(receipt);
    for (const QSharedPointer<ReceiptPosition>& position : receipt.positions())
        lines += positionLines(*position, marks.look(*position).receiptLines);
    lines.append(rule());
    return lines + totals(receipt);
}

QList<PrintedLine> copyLines(const Receipt& receipt, const PositionMarks& marks)
{
    return centred(tr::Tr(QStringLiteral("printedCopy"), QStringLiteral("КОПИЯ")).ui(), true) + lines(receipt, marks);
}

QString text(const QList<PrintedLine>& lines)
{
    QString text;
    for (const PrintedLine& line : lines) {
        text += line.left;
        if (!line.right.isEmpty())
            text += line.right.rightJustified(columns - line.left.size());
        text += QLatin1Char('\n');
    }
    return text;
}

} // namespace receiptlayout
