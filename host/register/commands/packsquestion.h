// SPDX-License-Identifier: MIT
#pragma once

#include "question.h"

#include <QString>

#include <optional>

/// Packs of one kind of goods that go on a document.
struct AddedPacks {
    /// The cashier is asked about more packs of one kind of goods than this in a document.
    static constexpr int usual = 20;

    QString name;             ///< of the goods
    std::optional<int> stock; ///< in packs; empty: unknown
    double before = 0.0;      ///< packs of these goods in the document, in all positions
    double after = 0.0;       ///< the same once they are added
    int entered = 1;          ///< by the cashier at once; a scan is one pack

    /// What to ask before they are added: they are more than there are in stock, or unusually many. Nothing when they
    /// go without saying. Packs that are taken off always do, and once there are more than usual each further scan
    /// does.
    std::optional<Question> question() const;

    /// Asks the question, when there is one. @return false for no
    bool areWanted() const;
};
