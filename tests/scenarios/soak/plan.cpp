// SPDX-License-Identifier: MIT
#include "plan.h"

#include "visitwriter.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace soak
{
namespace
{

constexpr int salesInABlock = 20;
constexpr int prescriptionSalesInABlock = 10;
constexpr int returnsInABlock = 2;
constexpr int mostPositions = 3;
constexpr int latestReturn = 10; // customers after the sale
constexpr std::array patientShares{10, 5, 3, 1, 0};

QString cardOf(int sale)
{
    return u"12%1"_s.arg(sale, 14, 10, QChar(u'0'));
}

QJsonObject seedOf(const PlannedPrescription& prescription)
{
    const Medicine& medicine = prescription.medicine;
    const QString code = QString::fromUtf8(medicine.dosageCode);
    QJsonObject seed{{u"id"_s, prescription.id},
                     {u"serialNumber"_s, u"СП "_s + prescription.id},
                     {u"inn"_s, QString::fromUtf8(medicine.inn)},
                     {u"innCode"_s, u"INN-"_s + code},
                     {u"tradeName"_s, QString::fromUtf8(medicine.tradeName)},
                     {u"tradeNameCode"_s, u"TN-"_s + code},
                     {u"dosageCode"_s, code},
                     {u"quantity"_s, prescription.doses},
                     {u"writtenDaysAgo"_s, 1},
                     {u"validDays"_s, 60},
                     {u"instructions"_s, QJsonArray{u"По 1 дозе 2 раза в день"_s}},
                     {u"practitioner"_s, u"practitioner-1"_s}};
    if (prescription.patientShare < 10) {
        seed.insert(u"patientShare"_s, prescription.patientShare / 10.0);
        seed.insert(u"payer"_s, u"payer-1"_s);
    }
    return seed;
}

QJsonObject patientOf(int sale, const QList<PlannedPrescription>& prescriptions)
{
    QJsonArray seeds;
    for (const PlannedPrescription& prescription : prescriptions) {
        seeds.append(seedOf(prescription));
    }
    return {{u"id"_s, u"patient-%1"_s.arg(sale)}, {u"card"_s, cardOf(sale)},
            {u"family"_s, u"Образцов"_s},         {u"given"_s, QJsonArray{u"Ян"_s, u"Янович"_s}},
            {u"birthDate"_s, u"1980-01-01"_s},    {u"prescriptions"_s, seeds}};
}

QJsonObject seedWith(const QJsonArray& patients)
{
    return {
        {u"rules"_s, QJsonObject{{u"dispenseScope"_s, u"dispense"_s}}},
        {u"clients"_s, QJsonArray{QJsonObject{{u"id"_s, u"pharmacy-17"_s},
                                              {u"secret"_s, u"secret&17"_s},
                                              {u"scopes"_s, QJsonArray{u"dispense"_s}},
                                              {u"organizationIdentifier"_s, u"100000017"_s}}}},
        {u"payers"_s, QJsonArray{QJsonObject{{u"id"_s, u"payer-1"_s}, {u"name"_s, u"Городская поликлиника № 12"_s}}}},
        {u"practitioners"_s,
         QJsonArray{QJsonObject{
             {u"id"_s, u"practitioner-1"_s}, {u"family"_s, u"Липова"_s}, {u"given"_s, QJsonArray{u"Инга"_s}}}}},
        {u"patients"_s, patients}};
}

struct DueReturn {
    int afterVisits = 0; ///< the count of visits from which on it takes place
    PlannedSale sale;
};

/// Makes the visits of a plan one after the other.
class Planner
{
public:
    explicit Planner(uint32_t seed)
        : m_chance(seed)
    {
    }

    void sellBlock();
    void sellWithoutPrescription();
    void returnWhatIsDue(bool atOnce);
    Plan finish();

private:
    QList<bool> shuffledMarks(int marked);
    void sellWithPrescriptions();
    QList<PlannedPrescription> newPrescriptions(int sale);
    void serveAll(VisitWriter& writer, int sale);
    bool mayFail(VisitWriter& writer, Deck<Fault>& faults, int oneIn, int mostPassing);
    void mayLoseAnAnswer(VisitWriter& writer, Deck<Fault>& faults, int oneIn, int requests);
    void keepSale(VisitWriter& writer);
    void takeReturn(const PlannedSale& sale);
    int nextDocument() { return int(m_plan.visits.size()) + 1; }

    Chance m_chance;
    Plan m_plan;
    QJsonArray m_patients;
    QList<DueReturn> m_due;
    int m_wantedReturns = 0;
    Deck<Fault> m_lookUpFaults{faultsOf({Endpoint::Token, Endpoint::ByCard})};
    Deck<Fault> m_registrationFaults{faultsOf({Endpoint::Token, Endpoint::Registration})};
    Deck<Fault> m_cancellationFaults{faultsOf({Endpoint::Token, Endpoint::Cancellation})};
};

/// For each sale of a block whether it is one of the marked.
QList<bool> Planner::shuffledMarks(int marked)
{
    QList<bool> marks(salesInABlock, false);
    std::fill_n(marks.begin(), marked, true);
    m_chance.shuffle(marks);
    return marks;
}

void Planner::sellBlock()
{
    const QList<bool> withPrescriptions = shuffledMarks(prescriptionSalesInABlock);
    const QList<bool> comeBack = shuffledMarks(returnsInABlock);
    for (int sale = 0; sale < salesInABlock; ++sale) {
        m_wantedReturns += comeBack[sale] ? 1 : 0;
        if (withPrescriptions[sale]) {
            sellWithPrescriptions();
        } else {
            sellWithoutPrescription();
        }
        returnWhatIsDue(false);
    }
}

void Planner::sellWithoutPrescription()
{
    VisitWriter writer(m_chance, nextDocument());
    writer.opensADocument();
    writer.addsGoods();
    keepSale(writer);
}

QList<PlannedPrescription> Planner::newPrescriptions(int sale)
{
    QList<Medicine> kinds(medicines.begin(), medicines.end());
    m_chance.shuffle(kinds);
    QList<PlannedPrescription> prescriptions;
    const int count = m_chance.between(1, mostPositions);
    for (int number = 1; number <= count; ++number) {
        prescriptions.append({.id = u"rx-%1-%2"_s.arg(sale).arg(number),
                              .medicine = kinds[number],
                              .doses = m_chance.between(2, 99),
                              .patientShare = m_chance.anyOf(patientShares)});
    }
    return prescriptions;
}

/// @param oneIn how many visits have one fault
/// @return whether this one has
bool Planner::mayFail(VisitWriter& writer, Deck<Fault>& faults, int oneIn, int mostPassing)
{
    const bool fails = m_chance.oneIn(oneIn);
    if (fails) {
        const int passing = m_chance.between(0, mostPassing); // the arguments of a call have no order of their own
        writer.expectFault(faults.deal(m_chance), passing);
    }
    return fails;
}

/// One of several requests fails, and the question what became of it may fail too.
void Planner::mayLoseAnAnswer(VisitWriter& writer, Deck<Fault>& faults, int oneIn, int requests)
{
    if (mayFail(writer, faults, oneIn, requests - 1)) {
        mayFail(writer, m_lookUpFaults, 3, 1);
    }
}

void Planner::serveAll(VisitWriter& writer, int sale)
{
    const QList<PlannedPrescription> prescriptions = newPrescriptions(sale);
    m_patients.append(patientOf(sale, prescriptions));
    mayFail(writer, m_lookUpFaults, 5, 0);
    writer.looksUp(cardOf(sale), prescriptions);
    for (qsizetype served = 0; served < prescriptions.size(); ++served) {
        writer.serves();
    }
    mayLoseAnAnswer(writer, m_registrationFaults, 4, int(prescriptions.size()));
}

void Planner::sellWithPrescriptions()
{
    const int number = nextDocument();
    ++m_plan.prescriptionSales;
    VisitWriter writer(m_chance, number);
    writer.opensADocument();
    if (m_chance.oneIn(4)) {
        writer.addsGoods();
    }
    serveAll(writer, number);
    keepSale(writer);
}

void Planner::keepSale(VisitWriter& writer)
{
    writer.pays();
    m_plan.visits.append(writer.finish());
    if (m_wantedReturns > 0) {
        --m_wantedReturns;
        m_due.append({int(m_plan.visits.size()) + m_chance.between(0, latestReturn), writer.sale()});
    }
}

void Planner::takeReturn(const PlannedSale& sale)
{
    VisitWriter writer(m_chance, nextDocument());
    writer.opensTheReturn(sale);
    if (!sale.prescriptions.isEmpty()) {
        mayLoseAnAnswer(writer, m_cancellationFaults, 2, int(sale.prescriptions.size()));
    }
    ++m_plan.returns;
    writer.paysOut();
    m_plan.visits.append(writer.finish());
}

void Planner::returnWhatIsDue(bool atOnce)
{
    for (qsizetype index = 0; index < m_due.size();) {
        if (atOnce || m_due[index].afterVisits <= m_plan.visits.size()) {
            takeReturn(m_due.takeAt(index).sale);
        } else {
            ++index;
        }
    }
}

Plan Planner::finish()
{
    m_plan.seed = seedWith(m_patients);
    return m_plan;
}

} // namespace

Plan planFor(int sales, uint32_t seed)
{
    Planner planner(seed);
    for (int sold = 0; sold < sales; sold += salesInABlock) {
        planner.sellBlock();
    }
    planner.returnWhatIsDue(true);
    return planner.finish();
}

Plan planWithoutRegistry(int sales, uint32_t seed)
{
    Planner planner(seed);
    for (int sold = 0; sold < sales; ++sold) {
        planner.sellWithoutPrescription();
    }
    return planner.finish();
}

} // namespace soak
