// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Which goods of the catalogue a position holds.
struct GoodsKey {
    QString code; ///< of the goods database; empty in documents that were saved without it
    QString barcode;
    QString name;

    /// Compares the codes. Where one is empty, bar code and name decide.
    bool isSame(const GoodsKey& other) const
    {
        if (code.isEmpty() || other.code.isEmpty()) {
            return barcode == other.barcode && name == other.name;
        }
        return code == other.code;
    }
};
