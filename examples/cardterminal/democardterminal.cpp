// SPDX-License-Identifier: MIT
#include "democardterminal.h"

#include "config.h"

#include <QEventLoop>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimer>

#include <algorithm>
#include <iterator>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace
{

enum class Act { Approve, Decline, Busy, LoseTaken, LoseRefused, LoseForGood, Throw };

struct ActRow {
    Act act;
    QLatin1StringView word; ///< in the configuration
    int kopecks;            ///< of the amount; -1: all others
};

constexpr ActRow acts[] = {
    {Act::Decline, "decline"_L1, 1},
    {Act::Busy, "busy"_L1, 2},
    {Act::LoseTaken, "loseTaken"_L1, 3},     // the money moves, the answer is lost; find() knows
    {Act::LoseRefused, "loseRefused"_L1, 4}, // nothing moves, the answer is lost; find() knows
    {Act::LoseForGood, "loseForGood"_L1, 5}, // the money moves, the answer is lost, and find() cannot say
    {Act::Throw, "throw"_L1, 6},             // the money moves, then an exception; find() knows
    {Act::Approve, "approve"_L1, -1},
};

QString configured()
{
    return Singleton<Config>::get()->getString(u"DemoCardTerminal:outcome"_s);
}

Act actFor(const CardRequest& request)
{
    const QString word = configured();
    const auto* found = std::find_if(std::begin(acts), std::end(acts), [&](const ActRow& row) {
        return word.isEmpty() ? row.kopecks == request.amount.count() % 100 : row.word == word;
    });
    return found == std::end(acts) ? Act::Approve : found->act;
}

int configuredSeconds()
{
    return Singleton<Config>::get()->getInt(u"DemoCardTerminal:seconds"_s, 1);
}

/// As long as a customer needs to present a card; events run meanwhile.
void waitForTheCustomer()
{
    const int seconds = configuredSeconds();
    if (seconds <= 0) {
        return;
    }
    QEventLoop loop;
    QTimer::singleShot(seconds * 1000, &loop, &QEventLoop::quit);
    loop.exec();
}

CardAnswer approved(const QString& reference)
{
    return CardAnswer::approved(u"DEMO-"_s + reference.right(4).toUpper(), u"**** 0000"_s);
}

} // namespace

DemoCardTerminal::DemoCardTerminal(const QString& journal)
    : m_journal(journal)
{
}

CardAnswer DemoCardTerminal::pay(const CardRequest& request)
{
    return operate("payment", request);
}

CardAnswer DemoCardTerminal::refund(const CardRequest& request)
{
    return operate("refund", request);
}

CardAnswer DemoCardTerminal::operate(const char* kind, const CardRequest& request) const
{
    const Act act = actFor(request);
    if (act == Act::Busy) {
        return CardAnswer::busy();
    }
    const bool moves = act != Act::Decline && act != Act::LoseRefused;
    if (moves && !write(kind, request)) {
        return CardAnswer::declined({tr::undefined, u"журнал терминала не записывается"_s});
    }
    waitForTheCustomer();
    switch (act) {
    case Act::Approve:
        return approved(request.reference);
    case Act::Decline:
        return CardAnswer::declined({tr::undefined, u"Недостаточно средств."_s});
    case Act::Throw:
        throw std::runtime_error("the demo terminal breaks down");
    default:
        return CardAnswer::unknown();
    }
}

CardAnswer DemoCardTerminal::find(const QString& reference)
{
    const std::optional<CardRequest> moved = movedBy(reference);
    if (moved ? actFor(*moved) == Act::LoseForGood : configured() == "loseForGood"_L1) {
        return CardAnswer::unknown();
    }
    return moved ? approved(reference) : CardAnswer::declined();
}

std::optional<std::chrono::seconds> DemoCardTerminal::timeLimit() const
{
    return std::chrono::seconds(std::max(0, configuredSeconds()) + 1);
}

bool DemoCardTerminal::write(const char* kind, const CardRequest& request) const
{
    const QJsonObject line{{u"kind"_s, QString::fromLatin1(kind)},
                           {u"reference"_s, request.reference},
                           {u"document"_s, request.documentNumber},
                           {u"kopecks"_s, request.amount.count()}};
    QFile journal(m_journal);
    return journal.open(QIODevice::Append) &&
           journal.write(QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n') > 0 && journal.flush();
}

/// The operation of that reference, when it moved money.
std::optional<CardRequest> DemoCardTerminal::movedBy(const QString& reference) const
{
    QFile journal(m_journal);
    if (!journal.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    while (!journal.atEnd()) {
        const QJsonObject line = QJsonDocument::fromJson(journal.readLine()).object();
        if (line.value("reference"_L1).toString() == reference) {
            return CardRequest{.amount = Kopecks{line.value("kopecks"_L1).toInteger()}, .reference = reference};
        }
    }
    return std::nullopt;
}
