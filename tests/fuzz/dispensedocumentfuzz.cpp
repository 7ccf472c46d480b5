// SPDX-License-Identifier: MIT
// The document of a dispense that a pharmacy registers, and its cancellation.

#include "fuzztarget.h"
#include "registrystate.h"

#include "dispenseregister.h"
#include "refusal.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

using namespace emulator;

namespace
{

QString statusOf(const RegistryState& state, const QString& prescription)
{
    return state.store().prescription(prescription)->status;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static RegistryState state;
    static DispenseRegister dispenses(state.store(), [] { return QDateTime(RegistryState::today, QTime(12, 0)); });
    const Access access{u"pharmacy"_s, u"17"_s, {}, {}};
    const qsizetype known = state.store().dispenses().size();
    try {
        const HttpAnswer answer = dispenses.book(bytesOf(data, size), access);
        const QString id = QJsonDocument::fromJson(answer.body)[u"entry"_s][0][u"resource"_s][u"id"_s].toString();
        const auto booked = state.store().dispense(id);
        promise(booked.has_value(), "a registered dispense is booked under the id of the answer");
        state.check();

        dispenses.cancel(id, access);
        promise(state.store().dispense(id)->isCancelled, "a registered dispense can be cancelled");
        promise(statusOf(state, booked->prescriptionId) == u"active"_s,
                "a cancellation makes the prescription active again");
        state.beginAgain();
    } catch (const Refusal& refusal) {
        promise(refusal.status() >= 400 && refusal.status() < 500 && !refusal.details().isEmpty(),
                "a refusal says what is wrong");
        promise(state.store().dispenses().size() == known, "a refusal books nothing");
    }
    return 0;
}
