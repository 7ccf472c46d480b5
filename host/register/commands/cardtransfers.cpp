// SPDX-License-Identifier: MIT
#include "cardtransfers.h"

#include "activitynotifier.h"
#include "cardterminalhost.h"
#include "cardterminals.h"
#include "finally.h"
#include "inputblocker.h"
#include "notice.h"
#include "pluginscope.h"
#include "question.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <chrono>
#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{

using Kind = CardOperation::Kind;
using State = CardOperation::State;
using Outcome = CardAnswer::Outcome;

tr::Tr withDetails(const tr::Tr& text, const Document& document, const CardOperation& operation)
{
    return text.arg(QString::number(document.getNumber())).arg(amountText(operation.amount));
}

tr::Tr title()
{
    return {u"cardTitle"_s, u"Операция по карте"_s};
}

void logException(const CardTerminalHost& host) // its text is not logged: it may hold a card's number
{
    Log4Qt::LogManager::logger(u"payment"_s)->error(u"The card terminal threw an exception: "_s + host.plugin);
}

/// How long a plug-in's terminal takes at most, in seconds; 0: it is not known.
int longestWait(const CardTerminalHost& host)
{
    const PluginScope scope(host.plugin);
    try {
        return int(host.terminal->timeLimit().value_or(std::chrono::seconds(0)).count());
    } catch (...) {
        logException(host);
        return 0;
    }
}

/// Asks a plug-in's terminal behind the busy screen. Whatever goes wrong, the answer is unknown.
/// @param seconds how long it takes at most; see longestWait()
CardAnswer askTerminal(const CardTerminalHost& host, const tr::Tr& message, int seconds,
                       const std::function<CardAnswer(CardTerminal&)>& question)
{
    auto* notifier = Singleton<ActivityNotifier>::get();
    Event beginning(EActivityListener::LongWorkBegins);
    beginning.addArgument(u"message"_s, QVariant::fromValue(message));
    beginning.addArgument(u"seconds"_s, seconds);
    notifier->notify(beginning);
    const Finally ended([notifier] { notifier->notify(Event(EActivityListener::LongWorkEnds)); });
    const InputBlocker throwsInputAway;
    const PluginScope scope(host.plugin);
    try {
        return question(*host.terminal);
    } catch (...) {
        logException(host);
        return CardAnswer::unknown();
    }
}

CardRequest requestFor(const Document& document, const CardOperation& operation, const QString& authorizationCode)
{
    return {.amount = operation.amount,
            .reference = operation.reference,
            .documentNumber = document.getNumber(),
            .payment = operation.payment,
            .authorizationCode = authorizationCode};
}

/// What the answer says about the operation; nothing while nobody knows.
std::optional<CardOperation> settled(CardOperation operation, const CardAnswer& answer)
{
    switch (answer.outcome) {
    case Outcome::Approved:
        operation.state = State::Approved;
        operation.card = cardoperations::masked(answer.maskedCard);
        operation.authorizationCode = cardoperations::oneLine(answer.authorizationCode);
        return operation;
    case Outcome::Declined:
        operation.state = State::Declined;
        return operation;
    case Outcome::Busy:
    case Outcome::Unknown:
        break;
    }
    return std::nullopt;
}

void log(const Document& document, const CardOperation& operation)
{
    static const char* const states[] = {"asked", "approved", "declined"};
    Log4Qt::LogManager::logger(u"payment"_s)
        ->info(u"Card operation %1 of document %2: %3"_s.arg(operation.reference)
                   .arg(document.getNumber())
                   .arg(QLatin1StringView(states[int(operation.state)])));
}

void showBusy(bool isPayment)
{
    showNotice(isPayment ? tr::Tr(u"terminalBusy"_s,
                                  u"Терминал занят, деньги не списаны.\nДождитесь, пока он освободится, и повторите."_s)
                         : tr::Tr(u"terminalBusyAtRefund"_s, u"Терминал занят, деньги на карту не возвращены.\n"
                                                             "Дождитесь, пока он освободится, и повторите."_s));
}

void showChanged(const Document& document)
{
    const tr::Tr text(u"cardDocumentChanged"_s, u"Документ № %1 изменился до операции по карте. Терминал не запрошен.\n"
                                                "Проверьте документ и повторите."_s);
    showNotice(text.arg(QString::number(document.getNumber())));
}

void showDeclined(const Document& document, const CardOperation& operation, const tr::Tr& reason)
{
    const tr::Tr text =
        operation.kind == Kind::Payment
            ? tr::Tr(u"cardDeclined"_s, u"Чек № %1: терминал отклонил оплату %2. %3\n"
                                        "Деньги не списаны. Возьмите другую карту или наличные."_s)
            : tr::Tr(u"cardRefundDeclined"_s, u"Документ № %1: терминал отклонил возврат %2 на карту. %3"_s);
    showNotice(withDetails(text, document, operation).arg(reason.ui()));
}

void showFound(const Document& document, const CardOperation& operation)
{
    const bool isApproved = operation.state == State::Approved;
    const tr::Tr payment =
        isApproved ? tr::Tr(u"cardFoundApproved"_s, u"Чек № %1: оплата картой %2 прошла, она учтена в чеке."_s)
                   : tr::Tr(u"cardFoundDeclined"_s, u"Чек № %1: оплата картой %2 не прошла, деньги не списаны."_s);
    const tr::Tr refund =
        isApproved ? tr::Tr(u"cardRefundFoundApproved"_s, u"Документ № %1: возврат %2 на карту выполнен."_s)
                   : tr::Tr(u"cardRefundFoundDeclined"_s, u"Документ № %1: возврат %2 на карту не выполнен."_s);
    showNotice(withDetails(operation.kind == Kind::Payment ? payment : refund, document, operation));
}

/// Whether the cashier can say what a terminal cannot that is busy.
bool knowsWhileBusy()
{
    const Question question{title(),
                            {u"terminalBusyFinding"_s,
                             u"Терминал занят и не может сказать, прошла ли операция.\n"
                             "Подождите, пока он освободится, и повторите. Если у вас есть чек терминала, скажите по "
                             "нему."_s},
                            {u"terminalBusyKnown"_s, u"Знаю по чеку терминала"_s},
                            {u"terminalBusyWait"_s, u"Подождать"_s}};
    return question.ask();
}

/// What the cashier sees on the terminal; nothing when the cashier does not know.
std::optional<State> askCashier(const Document& document, const CardOperation& operation)
{
    const bool isPayment = operation.kind == Kind::Payment;
    const tr::Tr text =
        isPayment ? tr::Tr(u"cardLostQuestion"_s, u"Чек № %1: неизвестно, списал ли терминал %2 с карты.\n"
                                                  "Посмотрите на терминал или на его чек. Деньги списаны?"_s)
                  : tr::Tr(u"cardRefundLostQuestion"_s, u"Документ № %1: неизвестно, вернул ли терминал %2 на карту.\n"
                                                        "Посмотрите на терминал или на его чек. Деньги возвращены?"_s);
    const Question moved{title(),
                         withDetails(text, document, operation),
                         isPayment ? tr::Tr(u"cardLostYes"_s, u"Списаны"_s)
                                   : tr::Tr(u"cardRefundLostYes"_s, u"Возвращены"_s),
                         {u"cardLostNo"_s, u"Нет или не знаю"_s}};
    if (moved.ask()) {
        return State::Approved;
    }
    const tr::Tr sure =
        isPayment ? tr::Tr(u"cardNotMovedQuestion"_s, u"Чек № %1: терминал точно не списал %2?\n"
                                                      "Если не знаете, вернитесь: касса спросит ещё раз."_s)
                  : tr::Tr(u"cardRefundNotMovedQuestion"_s, u"Документ № %1: терминал точно не вернул %2?\n"
                                                            "Если не знаете, вернитесь: касса спросит ещё раз."_s);
    const Question notMoved{title(),
                            withDetails(sure, document, operation),
                            isPayment ? tr::Tr(u"cardNotMovedYes"_s, u"Точно не списаны"_s)
                                      : tr::Tr(u"cardRefundNotMovedYes"_s, u"Точно не возвращены"_s),
                            {u"cardNotMovedNo"_s, u"Назад"_s}};
    return notMoved.ask() ? std::optional(State::Declined) : std::nullopt;
}

CardTerminalHost currentTerminal()
{
    return Singleton<CardTerminals>::get()->host();
}

} // namespace

CardTransfers::CardTransfers(Till& till)
    : m_till(till)
{
}

bool CardTransfers::settleOrShow(const QSharedPointer<Document>& document) const
{
    while (auto operation = document->unsettledCardOperation()) {
        if (!settleOrShow(document, *operation)) {
            return false;
        }
        showFound(*document, *operation);
    }
    return true;
}

bool CardTransfers::settleOrShow(const QSharedPointer<Document>& document, CardOperation& operation) const
{
    const CardTerminalHost host = currentTerminal();
    CardAnswer answer;
    if (host.terminal && host.plugin == operation.terminal) { // another terminal knows nothing of it
        answer = askTerminal(host, {u"cardFinding"_s, u"Терминал проверяет операцию…"_s}, longestWait(host),
                             [&](CardTerminal& terminal) { return terminal.find(operation.reference); });
    }
    if (answer.outcome == Outcome::Busy && !knowsWhileBusy()) {
        return false;
    }
    std::optional<CardOperation> known = settled(operation, answer);
    if (!known) {
        const std::optional<State> seen = askCashier(*document, operation);
        if (!seen) {
            return false;
        }
        known = operation;
        known->state = *seen;
    }
    operation = *known;
    log(*document, operation);
    m_till.recordOrShow(document, operation); // it is on the document, and is saved with its next change at the latest
    return true;
}

/// Has the terminal move the money of a new operation. @return false when nobody knows whether it moved, or the
/// terminal was not asked; the cashier has seen why
/// @param authorizationCode of a refund: that of the payment
bool CardTransfers::ask(const QSharedPointer<Document>& document, CardOperation& operation,
                        const QString& authorizationCode) const
{
    const CardTerminalHost host = currentTerminal();
    if (!host.terminal) {
        showNotice({u"terminalNone"_s, u"Терминал не подключён.\nПримите наличные или позовите администратора."_s});
        return false;
    }
    const QJsonObject before = document->toJson();
    const int seconds = longestWait(host); // a plug-in's code, which may do anything to the document
    if (document->toJson() != before) {
        showChanged(*document);
        return false;
    }
    operation.reference = document->nextCardReference();
    operation.terminal = host.plugin;
    if (!m_till.recordOrShow(document, operation)) {
        return false;
    }
    const CardRequest request = requestFor(*document, operation, authorizationCode);
    const bool isPayment = operation.kind == Kind::Payment;
    const CardAnswer answer = askTerminal(
        host,
        isPayment ? tr::Tr(u"cardPaying"_s, u"Оплата картой: следуйте указаниям терминала…"_s)
                  : tr::Tr(u"cardRefunding"_s, u"Возврат на карту: следуйте указаниям терминала…"_s),
        seconds, [&](CardTerminal& terminal) { return isPayment ? terminal.pay(request) : terminal.refund(request); });
    if (answer.outcome == Outcome::Busy) {
        operation.state = State::Declined;
        m_till.recordOrShow(document, operation);
        showBusy(isPayment);
        return false;
    }
    const std::optional<CardOperation> known = settled(operation, answer);
    if (!known) {
        if (!settleOrShow(document, operation)) {
            return false;
        }
        showFound(*document, operation);
        return true;
    }
    operation = *known;
    log(*document, operation);
    m_till.recordOrShow(document, operation);
    if (operation.state == State::Declined) {
        showDeclined(*document, operation, answer.text);
    }
    return true;
}

bool CardTransfers::chargeOrShow(const QSharedPointer<Document>& document, Kopecks amount) const
{
    CardOperation payment{.kind = Kind::Payment, .amount = amount};
    return ask(document, payment) && payment.state == State::Approved;
}

bool CardTransfers::refundOrShow(const QSharedPointer<Document>& document) const
{
    if (!settleOrShow(document)) {
        return false;
    }
    for (const CardOperation& payment : m_till.owedToCards(*document)) {
        if (!refundOrShow(document, payment)) {
            return false;
        }
    }
    return true;
}

bool CardTransfers::refundOrShow(const QSharedPointer<Document>& document, const CardOperation& payment) const
{
    if (currentTerminal().plugin != payment.terminal || !currentTerminal().terminal) {
        return payInCash(document, payment);
    }
    CardOperation refund{.kind = Kind::Refund, .amount = payment.amount, .payment = payment.reference};
    if (!ask(document, refund, payment.authorizationCode)) {
        return false;
    }
    return refund.state == State::Approved || payInCash(document, payment);
}

/// Asks whether to pay out in cash what the terminal does not give back. The final message asks the cashier to pay it
/// out.
bool CardTransfers::payInCash(const QSharedPointer<Document>& document, const CardOperation& payment) const
{
    const Question question{
        title(),
        withDetails({u"cardCashQuestion"_s, u"Документ № %1: вернуть %2 на карту нельзя.\n"
                                            "Вернуть эти деньги наличными? Их выдают в конце, когда "
                                            "касса об этом скажет."_s},
                    *document, payment),
        {u"cardCashYes"_s, u"Вернуть наличными"_s},
        {u"cardCashNo"_s, u"Назад"_s}};
    if (!question.ask()) {
        return false;
    }
    return m_till.recordOrShow(document, {.kind = Kind::CashRefund,
                                          .state = State::Approved,
                                          .amount = payment.amount,
                                          .reference = document->nextCardReference(),
                                          .payment = payment.reference});
}
