// SPDX-License-Identifier: MIT
#pragma once

#include "goodsitem.h"

#include <QJsonObject>

// How the plug-in's data stands on a position; what the members are called is positionformat.h's.

/// True when the position comes from a prescription: it carries the tag.
bool isPrescriptionPosition(const GoodsItem& position);

/// The position's options; empty when they are no JSON object.
QJsonObject readPositionOptions(const GoodsItem& position);

/// Replaces the position's options, as compact JSON.
void writePositionOptions(GoodsItem& position, const QJsonObject& options);
