// SPDX-License-Identifier: MIT
#pragma once

#include "document.h"

#include <QSharedPointer>
#include <QString>

/// A document as a file holds it.
struct SavedDocument {
    QSharedPointer<Document> document; ///< null: the file is damaged
    QString damage;                    ///< what is wrong with it

    static SavedDocument read(const QString& file);
};
