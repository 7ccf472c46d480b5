// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QString>
#include <QVariant>
#include <QVariantMap>

/// Answers the form on top, which ends it: whoever shows it gets these values under their names.
REGISTERPLATFORM_EXPORT void answerForm(const QVariantMap& answer);
/// Answers with one value.
REGISTERPLATFORM_EXPORT void answerForm(const QString& name, const QVariant& value);
