// SPDX-License-Identifier: MIT
#include "prescriptionposition.h"

#include "positionformat.h"

#include <QJsonDocument>

bool isPrescriptionPosition(const GoodsItem& position)
{
    return position.getTags().contains(positionformat::tag);
}

QJsonObject readPositionOptions(const GoodsItem& position)
{
    return QJsonDocument::fromJson(position.getExtendedOptions().toUtf8()).object();
}

void writePositionOptions(GoodsItem& position, const QJsonObject& options)
{
    position.setExtendedOptions(QString::fromUtf8(QJsonDocument(options).toJson(QJsonDocument::Compact)));
}
