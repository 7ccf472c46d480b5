// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>

/// Gives the form on top its answer, a map with this one entry; that ends the form.
void answerForm(const QString& name, const QVariant& value);
