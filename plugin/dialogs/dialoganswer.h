// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>

/// Gives the form on top its answer: the dialog that shows it returns with `answer` under `key`.
void sendDialogAnswer(const QString& key, const QVariant& answer);
