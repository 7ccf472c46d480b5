// SPDX-License-Identifier: MIT
// The file that a registry begins with.

#include "fuzztarget.h"

#include "bycardanswer.h"
#include "emulatorerror.h"
#include "seedreader.h"

using namespace Qt::StringLiterals;

using namespace emulator;

namespace
{

void lookAt(const PrescriptionStore& store, const Seed& seed)
{
    for (const Patient& patient : seed.patients) {
        promise(store.patientOfCard(patient.card).has_value(), "each patient is found by the card");
        promise(byCardAnswer(store, patient, {}).contains(u"resourceType"_s), "each card has an answer");
    }
    for (const Prescription& prescription : seed.prescriptions) {
        const auto stored = store.prescription(prescription.id);
        promise(stored.has_value(), "each prescription is kept");
        promise(stored->written == prescription.written && stored->validUntil == prescription.validUntil,
                "a prescription's days are kept");
        promise(stored->quantity == prescription.quantity, "a prescription's doses are kept");
    }
    promise(store.dispenses().size() == seed.dispenses.size(), "each dispense is kept");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static PrescriptionStore store;
    Seed seed;
    try {
        seed = SeedReader(QDate(2026, 3, 20)).read(JsonNode::parse(bytesOf(data, size)));
    } catch (const EmulatorError& error) {
        promise(!error.message().isEmpty(), "a mistake in the seed has a message");
        return 0;
    }
    store.replace(seed);
    lookAt(store, seed);
    return 0;
}
