// SPDX-License-Identifier: MIT
// An amount of money: typed, shown and typed again.

#include "fuzztarget.h"

#include "amount.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto amount = typedAmount(QString::fromUtf8(bytesOf(data, size)));
    if (!amount) {
        return 0;
    }
    promise(*amount >= Kopecks{} && *amount <= Kopecks{99'999'999'99},
            "a typed amount is at most eight digits of roubles");
    promise(Kopecks::fromRoubles(amount->toRoubles()) == amount, "an amount in roubles is the same in kopecks");
    const QString shown = amountFigures(*amount).remove(QChar::Nbsp);
    promise(typedAmount(shown) == amount, "an amount reads back as it is shown");
    return 0;
}
