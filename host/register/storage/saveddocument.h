// SPDX-License-Identifier: MIT
#pragma once

#include "document.h"
#include "expected.h"

#include <QSharedPointer>
#include <QString>

/// Reads a document that Document::toJson() wrote into a file; never null. Fails when the file cannot be read or is
/// damaged.
Expected<QSharedPointer<Document>> readSavedDocument(const QString& file);
