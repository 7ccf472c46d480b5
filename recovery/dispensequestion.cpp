// SPDX-License-Identifier: MIT
#include "dispensequestion.h"

#include "goodsitem.h"
#include "positionoptions.h"
#include "recoverytexts.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace
{

/// The day, with the time where the registry shows it; what is neither as it is.
QString timeText(const RegistryDispense& dispense)
{
    if (dispense.handedOver.contains(u'T')) {
        const QDateTime time = QDateTime::fromString(dispense.handedOver, Qt::ISODate);
        return time.isValid() ? recoverytexts::timeText(time) : dispense.handedOver;
    }
    const QDate day = QDate::fromString(dispense.facts.day, Qt::ISODate);
    return day.isValid() ? day.toString(u"dd.MM.yyyy"_s) : dispense.handedOver;
}

DispenseChoiceRow rowOf(const RegistryDispense& dispense)
{
    QStringList pharmacy{dispense.facts.pharmacy, dispense.facts.address};
    pharmacy.removeAll(QString());
    return {timeText(dispense), recoverytexts::dosesText(dispense.facts.doses), pharmacy.join(u", "_s), dispense.id};
}

} // namespace

namespace dispensequestion
{

DispenseChoice ask(const GoodsItem& position, const DispenseRequest& request, const QList<RegistryDispense>& possible)
{
    const PositionOptions options(position);
    DispenseChoiceParams params;
    params.goods = position.getName();
    params.prescription = options.serialNumber().isEmpty() ? options.id() : options.serialNumber();
    params.doses = recoverytexts::dosesText(options.doseQuantity());
    params.sent = recoverytexts::timeText(request.sent);
    std::transform(possible.cbegin(), possible.cend(), std::back_inserter(params.dispenses), rowOf);
    return DispenseChoiceDialog::create()->ask(params);
}

DispenseChoice ask(const tr::Tr& reason, const DispenseRequest& request)
{
    DispenseChoiceParams params;
    params.goods = reason.ui();
    params.prescription = request.prescription;
    params.doses = recoverytexts::dosesText(request.facts.doses);
    params.sent = recoverytexts::timeText(request.sent);
    return DispenseChoiceDialog::create()->ask(params);
}

} // namespace dispensequestion
