// SPDX-License-Identifier: MIT
#include "receiptlayout.h"

#include "config.h"
#include "printedtext.h"
#include "tr.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace receiptlayout
{

namespace
{

using Lines = QList<PrintedLine>;

const QString indent(3, u' ');

PrintedLine rule()
{
    return {QString(columns, u'-')};
}

Lines centred(const QString& text, bool isStrong = false)
{
    Lines lines;
    for (const QString& line : printedtext::wrapped(text, columns)) {
        lines.append({QString((columns - line.size()) / 2, u' ') + line, {}, isStrong});
    }
    return lines;
}

/// The text with a hanging indent as wide as `first`, which comes before its first line.
Lines hanging(const QString& first, const QString& text)
{
    const QStringList wrapped = printedtext::wrapped(text, columns - int(first.size()));
    Lines lines;
    for (const QString& line : wrapped) {
        lines.append({(lines.isEmpty() ? first : QString(first.size(), u' ')) + line});
    }
    return lines.isEmpty() ? Lines{{first.trimmed()}} : lines;
}

/// An amount beside its label, or below it when the line has no room for both.
Lines amount(const QString& label, const QString& value, bool isStrong = false)
{
    if (label.size() + 1 + value.size() <= columns) {
        return {{label, value, isStrong}};
    }
    return {{label, {}, isStrong}, {{}, value, isStrong}};
}

/// With plain blanks only: printers have no other.
QString figures(Kopecks amount)
{
    return amountFigures(amount).replace(QChar::Nbsp, u' ');
}

QString timeText(const QDateTime& time)
{
    return time.toString(u"dd.MM.yyyy HH:mm"_s);
}

/// What the customer saves because the price was lowered; 0 when it was not.
Kopecks benefit(const Position& position)
{
    return std::max(Kopecks{}, position.initialPrice().forPacks(position.getQuantity()) - position.getSum());
}

/// The pharmacy's number as a payer of taxes, after the word that the configuration has for it.
QString taxpayer()
{
    const Config* config = Singleton<Config>::get();
    const QString number = config->getString(u"Register:taxpayerNumber"_s);
    const QString word = config->getString(u"Register:taxpayerWord"_s);
    if (number.isEmpty()) {
        return {};
    }
    return word.isEmpty() ? tr::Tr(u"printedTaxpayer"_s, u"УНП %1"_s).arg(number).ui() : word + u' ' + number;
}

Lines head()
{
    const Config* config = Singleton<Config>::get();
    Lines lines = centred(config->getString(u"Register:pharmacyName"_s), true) +
                  centred(config->getString(u"Register:pharmacyAddress"_s)) + centred(taxpayer());
    if (!lines.isEmpty()) {
        lines.append(rule());
    }
    return lines;
}

Lines titleLines(const QString& title, const QDateTime& time)
{
    Lines lines = centred(title, true) + centred(timeText(time));
    lines.append(rule());
    return lines;
}

/// The text, as far from the left as it begins.
Lines indented(const QString& text)
{
    const auto begin = std::find_if_not(text.cbegin(), text.cend(), [](QChar letter) { return letter.isSpace(); });
    return hanging(QString(std::min<qsizetype>(begin - text.cbegin(), columns / 2), u' '), text);
}

/// The sum without the benefit and the benefit, which lead to the sum below them; nothing when there is no benefit.
Lines benefitLines(const QString& before, const tr::Tr& label, Kopecks sum, Kopecks saved)
{
    if (saved <= Kopecks{}) {
        return {};
    }
    const tr::Tr full(u"printedSumWithoutBenefit"_s, u"Сумма без льготы"_s);
    return amount(before + full.ui(), figures(sum + saved)) + amount(before + label.ui(), figures(-saved));
}

/// @param number counted from 1 on the paper
/// @param details what the plug-in shows of the position
Lines positionLines(int number, const Position& position, const QStringList& details)
{
    const QString price = figures(position.price());
    Lines lines =
        hanging(u"%1. "_s.arg(number), position.getName()) +
        benefitLines(indent, {u"printedBenefit"_s, u"Льгота"_s}, position.getSum(), benefit(position)) +
        amount(indent + packsText(position.getQuantity()) + u" × "_s + price + u" ="_s, figures(position.getSum()));
    for (const QString& detail : details) {
        lines += hanging(indent, detail);
    }
    return lines;
}

/// Each operation that is a part of the payment by card: its amount, the masked card, the authorization code.
Lines cardLines(const Document& document)
{
    Lines lines;
    const auto operations = document.isReturn()
                                ? cardoperations::approved(document.cardOperations(), CardOperation::Kind::Refund)
                                : cardoperations::charged(document.cardOperations());
    for (const CardOperation& operation : operations) {
        if (operations.size() > 1) {
            lines += amount(indent + tr::Tr(u"printedCardPart"_s, u"из них"_s).ui(), figures(operation.amount));
        }
        if (!operation.card.isEmpty()) {
            lines += hanging(indent, tr::Tr(u"printedCard"_s, u"Карта: %1"_s).arg(operation.card).ui());
        }
        if (!operation.authorizationCode.isEmpty()) {
            lines += hanging(
                indent,
                tr::Tr(u"printedAuthorization"_s, u"Код авторизации: %1"_s).arg(operation.authorizationCode).ui());
        }
    }
    return lines;
}

Lines totals(const Document& document)
{
    const auto& positions = document.positions();
    const Kopecks saved = std::accumulate(positions.cbegin(), positions.cend(), Kopecks{},
                                          [](Kopecks sum, const auto& position) { return sum + benefit(*position); });
    const auto labelled = [](const tr::Tr& label, Kopecks value) { return amount(label.ui(), figures(value)); };

    Lines lines =
        benefitLines({}, {u"printedBenefitInAll"_s, u"Льгота всего"_s}, document.getSum(), saved) +
        amount(captionWithCurrency(tr::Tr(u"printedTotal"_s, u"ИТОГО"_s).ui()), figures(document.getSum()), true);
    for (const Payment& payment : document.ending().payments) {
        const PaymentMethodRow& row = rowOf(payment.method);
        lines += labelled(document.isReturn() ? row.printedPaidOut : row.printed, payment.amount);
        if (payment.method == PaymentMethod::Card) {
            lines += cardLines(document);
        }
    }
    if (document.isReturn()) {
        return lines;
    }
    return lines + labelled({u"printedChange"_s, u"Сдача"_s}, document.getChange());
}

} // namespace

QString title(const Document& document)
{
    const QString number = QString::number(document.getNumber());
    if (!document.isReturn()) {
        return tr::Tr(u"printedSale"_s, u"ЧЕК № %1"_s).arg(number).ui();
    }
    return tr::Tr(u"printedTakeBack"_s, u"ВОЗВРАТ № %1 по чеку № %2"_s)
        .arg(number)
        .arg(QString::number(document.getReturnedSale()))
        .ui();
}

QList<PrintedLine> lines(const Document& document, const PositionMarks& marks)
{
    Lines lines = head() + titleLines(title(document), document.getFinished());
    int number = 0;
    for (const QSharedPointer<Position>& position : document.positions()) {
        lines += positionLines(++number, *position, marks.look(*position).receiptLines);
    }
    lines.append(rule());
    return lines + totals(document);
}

QList<PrintedLine> copyLines(const Document& document, const PositionMarks& marks)
{
    return centred(tr::Tr(u"printedCopy"_s, u"КОПИЯ"_s).ui(), true) + lines(document, marks);
}

QList<PrintedLine> reportLines(const QString& title, const QDateTime& printed, const QStringList& texts)
{
    Lines lines = head() + titleLines(title, printed);
    for (const QString& text : texts) {
        lines += indented(text);
    }
    return lines;
}

QString text(const QList<PrintedLine>& lines)
{
    QString text;
    for (const PrintedLine& line : lines) {
        text += line.left;
        if (!line.right.isEmpty()) {
            text += line.right.rightJustified(columns - line.left.size());
        }
        text += u'\n';
    }
    return text;
}

} // namespace receiptlayout
