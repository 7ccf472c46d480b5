// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>

/// Answers the form on top with a map of this one entry, which ends the form.
void answerForm(const QString& name, const QVariant& value);
