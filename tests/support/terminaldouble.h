// SPDX-License-Identifier: MIT
#pragma once

#include "cardterminal.h"
#include "cardterminalhost.h"
#include "cardterminals.h"
#include "inplace.h"
#include "pluginscope.h"

#include <QHash>
#include <QList>
#include <QSharedPointer>
#include <QString>

#include <chrono>
#include <functional>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

/// A terminal with a bank behind it: it moves money once for each reference, and remembers. At first it approves.
class TerminalDouble : public CardTerminal
{
public:
    CardAnswer pay(const CardRequest& request) override { return move(u"pay", request, request.amount.count()); }
    CardAnswer refund(const CardRequest& request) override { return move(u"refund", request, -request.amount.count()); }
    CardAnswer find(const QString& reference) override
    {
        calls.append(u"find"_s);
        if (onFind) {
            return onFind(reference);
        }
        return moved.contains(reference) ? approved() : CardAnswer::declined();
    }

    std::optional<std::chrono::seconds> timeLimit() const override
    {
        return onTimeLimit ? onTimeLimit() : std::nullopt;
    }

    static CardAnswer approved() { return CardAnswer::approved(u"A17"_s, u"2200 0000 0000 1234"_s); }
    /// Moves the money and loses the answer.
    void loseAnswers()
    {
        onMove = [](const CardRequest&, const Move& move) {
            move();
            return CardAnswer::unknown();
        };
    }
    /// What customers have paid in all, in kopecks.
    qint64 taken() const
    {
        qint64 sum = 0;
        for (const qint64 amount : moved) {
            sum += amount;
        }
        return sum;
    }
    qsizetype count(const char* call) const { return calls.count(QString::fromLatin1(call)); }

    using Move = std::function<void()>;
    /// Answers each payment and refund; `move` moves its money. Empty: it moves, approved.
    std::function<CardAnswer(const CardRequest& request, const Move& move)> onMove;
    /// Answers each find(). Empty: from what has moved.
    std::function<CardAnswer(const QString& reference)> onFind;

    /// How long it takes at most. Empty: it does not know.
    std::function<std::optional<std::chrono::seconds>()> onTimeLimit;

    QStringList calls;           ///< "pay", "refund", "find", in order
    QList<CardRequest> requests; ///< of payments and refunds
    QHash<QString, qint64> moved;

private:
    CardAnswer move(QStringView call, const CardRequest& request, qint64 kopecks)
    {
        calls.append(call.toString());
        requests.append(request);
        const Move transfer = [this, reference = request.reference, kopecks] { moved.insert(reference, kopecks); };
        if (onMove) {
            return onMove(request, transfer);
        }
        transfer();
        return approved();
    }
};

/// A register with a terminal of the plug-in "bank", for as long as it lives.
class ConnectedTerminal
{
public:
    ConnectedTerminal() { connect(u"bank"_s); }

    /// Takes the terminal away.
    void disconnect() { m_terminals.object.host() = {}; }
    /// Connects it as a terminal of that plug-in.
    void connect(const QString& plugin)
    {
        disconnect();
        const PluginScope scope(plugin);
        m_terminals.object.add(terminal);
    }
    TerminalDouble* operator->() const { return terminal.data(); }

    const QSharedPointer<TerminalDouble> terminal = QSharedPointer<TerminalDouble>::create();

private:
    Own<CardTerminals> m_terminals;
};
