// SPDX-License-Identifier: MIT
#include "outcomemark.h"

#include "goodsitem.h"
#include "positionoptions.h"

#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace
{

constexpr QLatin1StringView member{"recovery"};

} // namespace

namespace outcomemark
{

bool isOn(const GoodsItem& position)
{
    return PositionOptions(position).toDocument()[member] == QJsonValue("unknown"_L1);
}

bool set(GoodsItem& position, bool isUndecided)
{
    if (isOn(position) == isUndecided) {
        return false;
    }
    QJsonObject options = PositionOptions(position).toDocument().object();
    if (isUndecided) {
        options[member] = "unknown"_L1;
    } else {
        options.remove(member);
    }
    PositionOptions(QJsonDocument(options)).writeTo(position);
    return true;
}

} // namespace outcomemark
