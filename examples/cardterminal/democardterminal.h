// SPDX-License-Identifier: MIT
#pragma once

#include "cardterminal.h"

#include <QString>

#include <optional>

/// A card terminal without a device. It writes the money that it moves into a journal, which is its bank.
///
/// "DemoCardTerminal:outcome" of the configuration says how it answers, read at each operation. Without it the kopecks
/// of the amount do: see the table in the .cpp.
class DemoCardTerminal : public CardTerminal
{
public:
    /// @param journal a file with one JSON object for each operation that moved money
    explicit DemoCardTerminal(const QString& journal);

    CardAnswer pay(const CardRequest& request) override;
    CardAnswer refund(const CardRequest& request) override;
    CardAnswer find(const QString& reference) override;
    /// What is configured for an operation, and a second for the journal.
    std::optional<std::chrono::seconds> timeLimit() const override;

private:
    CardAnswer operate(const char* kind, const CardRequest& request) const;
    bool write(const char* kind, const CardRequest& request) const;
    std::optional<CardRequest> movedBy(const QString& reference) const;

    QString m_journal;
};
