// SPDX-License-Identifier: MIT
#include "syntheticprescriptions.h"

#include "prescriptionstatus.h"

#include <array>

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
struct Medicine {
    const char16_t* inn;
    const char16_t* tradeName;
};

constexpr std::array medicines{Medicine{u"Амоксициллин", u"Амоксидар"},  Medicine{u"Парацетамол", u"Параделин"},
                               Medicine{u"Метформин", u"Метфолин"},      Medicine{u"Эналаприл", u"Эналакор"},
                               Medicine{u"Амлодипин", u"Амлонорд"},      Medicine{u"Аторвастатин", u"Аторвелл"},
                               Medicine{u"Бисопролол", u"Бисопрол-Нео"}, Medicine{u"Лозартан", u"Лозавита"}};
constexpr std::array patientShares{1.0, 0.5, 0.1, 0.0};
constexpr int firstDosageCode = 1001;

const Practitioner practitioner{u"synthetic-practitioner"_s, {u"Примерова"_s, {u"Ева"_s, u"Львовна"_s}}};
const Payer payer{u"synthetic-payer"_s, u"Городская поликлиника № 1"_s};

Prescription prescriptionNumber(int number, const Patient& patient, const QDate& today)
{
    const auto medicine = std::size_t(number) % medicines.size();
    const double share = patientShares.at(std::size_t(number) % patientShares.size());
    Prescription prescription;
    prescription.id = patient.card + u'-' + QString::number(number);
    prescription.card = patient.card;
    prescription.patientId = patient.id;
    prescription.serialNumber = u"СР %1"_s.arg(number, 7, 10, QChar(u'0'));
    prescription.status = prescriptionstatus::active;
    prescription.inn = QString::fromUtf16(medicines.at(medicine).inn);
    prescription.innCode = u"INN-%1"_s.arg(medicine + 1);
    prescription.tradeName = QString::fromUtf16(medicines.at(medicine).tradeName);
    prescription.tradeNameCode = u"TN-%1"_s.arg(medicine + 1);
    prescription.dosageCode = QString::number(firstDosageCode + int(medicine));
    prescription.quantity = 10 + number % 50;
    prescription.written = today;
    prescription.validUntil = today.addDays(365);
    prescription.instructions = {u"По 1 дозе 2 раза в день"_s, u"после еды"_s};
    if (share < 1) {
        prescription.patientShare = share;
        prescription.payerId = payer.id;
    }
    prescription.practitionerId = practitioner.id;
    return prescription;
}
} // namespace

void addSyntheticPrescriptions(PrescriptionStore& store, const QString& card, int count, const QDate& today)
{
    store.addUnlessKnown(practitioner);
    store.addUnlessKnown(payer);
    auto patient = store.patientOfCard(card);
    if (!patient) {
        patient = Patient{u"patient-"_s + card, card, {u"Образцов"_s, {u"Ян"_s, u"Янович"_s}}, QDate(1980, 1, 1)};
        store.add(*patient);
    }
    const int present = int(store.prescriptionsOfCard(card).size());
    QList<Prescription> prescriptions;
    prescriptions.reserve(count);
    for (int number = present + 1; number <= present + count; ++number) {
        prescriptions.append(prescriptionNumber(number, *patient, today));
    }
    store.add(prescriptions);
}
} // namespace emulator
