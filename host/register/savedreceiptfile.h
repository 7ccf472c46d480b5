// SPDX-License-Identifier: MIT
#pragma once

#include "receipt.h"

#include <QSharedPointer>
#include <QString>

/// A document as a file holds it.
struct SavedReceiptFile {
    QSharedPointer<Receipt> receipt; ///< null: the file is damaged
    QString damage;                  ///< what is wrong with it

    static SavedReceiptFile read(const QString& file);
};
