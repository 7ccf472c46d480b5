// SPDX-License-Identifier: MIT
#include "visitwriter.h"

#include "cashiersteps.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace soak
{
namespace
{

constexpr int mostPacks = 5;
constexpr int coin = 1000; // customers who do not pay exactly round up to ten roubles

/// Of several positions the register asks which come back; all are chosen at first.
QByteArray opensTheReturnOf(const PlannedSale& sale)
{
    return R"({"key": "F10"}, {"wait": "menuForm"}, {"key": "3"}, {"wait": "inputLineEdit"}, {"type": ")" +
           QByteArray::number(sale.number) + R"("}, {"key": "Return"}, )" +
           (sale.positions.size() > 1 ? R"({"wait": "returnForm"}, {"key": "Return"}, )" : "") +
           R"({"contains": "Возврат №", "in": "receiptNumberLabel"})";
}

} // namespace

int PlannedPrescription::benefitPrice() const
{
    constexpr int whole = 10;
    if (patientShare == whole) {
        return medicine.price;
    }
    const int rounded = (medicine.price * patientShare + whole / 2) / whole;
    return std::max(rounded, medicine.lowestPrice);
}

qint64 PlannedSale::total() const
{
    qint64 total = 0;
    for (const PlannedPosition& position : positions) {
        total += position.sum;
    }
    return total;
}

VisitWriter::VisitWriter(Chance& chance, int document)
    : m_chance(chance)
{
    m_sale.number = document;
    m_visit.document = document;
}

void VisitWriter::expectFault(const Fault& fault, int passing)
{
    m_fault = fault;
    m_passing = passing;
    m_hadFault = true;
}

/// Counts a request. False when the register gets no usable answer; then `m_message` is what the cashier reads.
bool VisitWriter::asks(Endpoint endpoint)
{
    ++m_requests[endpoint];
    m_isCarriedOut = true;
    if (!m_fault || m_fault->endpoint != endpoint || m_passing-- > 0) {
        return true;
    }
    const Fault fault = *m_fault;
    m_fault.reset();
    m_visit.faults.append(fault.order(m_requests[endpoint]));
    if (fault.isSentAgain()) {
        ++m_requests[endpoint];
    }
    m_isCarriedOut = fault.isCarriedOut;
    m_message = fault.message();
    return !fault.isShown();
}

void VisitWriter::reads(const QByteArray& message)
{
    m_visit.steps.append(cashier::tries(R"({"wait": "messageForm"})", message));
}

void VisitWriter::opensADocument()
{
    m_visit.steps.append(R"({"key": "F2"}, {"receipt": {"number": )" + QByteArray::number(m_sale.number) +
                         R"(, "positions": []}})");
}

void VisitWriter::expectPositions()
{
    const QByteArrayList positions(m_sale.positions.size(), "{}");
    m_visit.steps.append(R"({"receipt": {"positions": [)" + positions.join(", ") + "]}}");
}

void VisitWriter::addsGoods()
{
    const Goods& goods = m_chance.anyOf(goodsWithoutPrescription);
    m_visit.steps.append(R"({"scan": ")" + QByteArray(goods.barcode) + R"(", "into": "searchLineEdit"})");
    m_sale.positions.append(PlannedPosition{.sum = goods.price});
    expectPositions();
    if (m_chance.oneIn(3)) {
        const int packs = m_chance.between(2, mostPacks);
        m_visit.steps.append(R"({"key": "F4"}, {"wait": "inputLineEdit"}, {"type": ")" + QByteArray::number(packs) +
                             R"("}, {"key": "Return"}, {"visible": false, "in": "inputLineEdit"})");
        m_sale.positions.last().sum *= packs;
    }
}

void VisitWriter::looksUp(const QString& card, const QList<PlannedPrescription>& prescriptions)
{
    m_sale.prescriptions = prescriptions;
    const QByteArray asksForTheCard =
        R"({"key": "F5"}, {"wait": "inputLineEdit"}, {"scan": ")" + card.toLatin1() + R"("})";
    m_visit.steps.append(asksForTheCard);
    while (!asks(Endpoint::Token) || !asks(Endpoint::ByCard)) {
        reads(m_message);
        m_visit.steps.append(asksForTheCard);
    }
}

void VisitWriter::serves()
{
    if (m_served > 0) {
        m_visit.steps.append(R"({"key": "F5"})");
    }
    const auto index = int(m_served++);
    const PlannedPrescription& prescription = m_sale.prescriptions[index];
    const bool isFinal = m_chance.oneIn(2);
    // Half of the partial dispenses leave enough for another one of that size.
    const int doses = m_chance.between(1, prescription.doses);
    m_visit.steps.append(R"({"wait": "electronicPrescriptionsTableView"}, {"key": "Return"}, {"wait": "chooseButton"},
        {"expect": ")" + QByteArray(prescription.medicine.inn) +
                         R"(", "in": "innNameValueLabel"}, {"key": "Return"}, {"wait": "goodsTable"}, {"key": "Return"},
        {"wait": "inputLineEdit"}, {"type": ")" +
                         QByteArray::number(doses) + R"("}, {"key": "Return"}, {"click": ")" +
                         (isFinal ? "completeDispenseButton" : "partDispenseButton") +
                         R"("}, {"visible": false, "in": "partDispenseButton"})");
    m_sale.positions.append(
        PlannedPosition{.sum = prescription.benefitPrice(), .prescription = index, .doses = doses, .isFinal = isFinal});
    expectPositions();
}

/// Why the registry refuses to book a position; nothing when it does not.
std::optional<QByteArray> VisitWriter::refusalOf(const PlannedPosition& position) const
{
    const PlannedPrescription& prescription = m_sale.prescriptions[position.prescription];
    if (prescription.isCompleted()) {
        return "уже отпущен полностью";
    }
    if (prescription.bookedDoses + position.doses > prescription.doses) {
        return "осталось доз";
    }
    return std::nullopt;
}

bool VisitWriter::sendsDispense(PlannedPosition& position)
{
    const bool isAnswered = asks(Endpoint::Registration);
    if (const std::optional<QByteArray> refusal = refusalOf(position)) {
        m_message = *refusal;
        m_refused = &position;
        return false;
    }
    PlannedPrescription& prescription = m_sale.prescriptions[position.prescription];
    if (m_isCarriedOut) {
        prescription.bookedDoses += position.doses;
        prescription.isFinalBooked |= position.isFinal;
    }
    if (m_isCarriedOut && !isAnswered) {
        m_visit.lostRegistrations.append(prescription.id);
    }
    position.isRegistered = isAnswered;
    return isAnswered;
}

bool VisitWriter::registersOne(PlannedPosition& position)
{
    const bool isDue = position.prescription >= 0 && !position.isRegistered;
    return !isDue || (asks(Endpoint::Token) && sendsDispense(position));
}

bool VisitWriter::registersAll()
{
    return std::all_of(m_sale.positions.begin(), m_sale.positions.end(),
                       [this](PlannedPosition& position) { return registersOne(position); });
}

/// Removes a position that the registry refuses. False when it is the only one: then the document is cancelled.
bool VisitWriter::givesUp(PlannedPosition& position)
{
    if (m_sale.positions.size() == 1) {
        m_visit.steps.append(cashier::cancelsTheDocument + ", " + cashier::isIdle);
        return false;
    }
    const qsizetype row = &position - m_sale.positions.constData();
    m_visit.steps.append(R"({"row": )" + QByteArray::number(row) +
                         R"(, "in": "receiptTable"}, {"key": "F8"}, {"click": "yesButton"},
        {"visible": false, "in": "questionForm"})");
    m_sale.positions.removeAt(row);
    expectPositions();
    return true;
}

void VisitWriter::goesToThePayment()
{
    m_visit.steps.append(R"({"key": "F12"})");
}

bool VisitWriter::registers()
{
    goesToThePayment();
    while (!registersAll()) {
        reads(m_message);
        PlannedPosition* const refused = std::exchange(m_refused, nullptr);
        if (refused && !givesUp(*refused)) {
            return false;
        }
        goesToThePayment();
    }
    m_visit.steps.append(R"({"expect": "К ОПЛАТЕ", "in": "paymentCaptionLabel"}, {"wait": "receivedLineEdit"})");
    return true;
}

void VisitWriter::pays()
{
    m_visit.total = m_sale.total();
    if (m_visit.total > 0 && m_chance.oneIn(2)) {
        const qint64 roubles = (m_visit.total + coin - 1) / coin * coin / 100;
        m_visit.steps.append(R"({"type": ")" + QByteArray::number(roubles) + R"("})");
    }
    m_visit.steps.append(R"({"key": "Return"}, )" + cashier::isIdle);
}

void VisitWriter::opensTheReturn(const PlannedSale& sale)
{
    m_sale.positions = sale.positions;
    m_sale.prescriptions = sale.prescriptions;
    m_visit.steps.append(opensTheReturnOf(sale));
    expectPositions();
}

bool VisitWriter::cancelsOne(PlannedPosition& position)
{
    if (!position.isRegistered) {
        return true;
    }
    if (!asks(Endpoint::Token)) {
        return false;
    }
    const bool isAnswered = asks(Endpoint::Cancellation);
    if (position.isCancelled) {
        m_message = "уже отменён";
        m_refused = &position;
        return false;
    }
    position.isCancelled = m_isCarriedOut;
    if (m_isCarriedOut && !isAnswered) {
        m_visit.lostCancellations.append(m_sale.prescriptions[position.prescription].id);
    }
    position.isRegistered = !isAnswered;
    return isAnswered;
}

bool VisitWriter::cancelsAll()
{
    return std::all_of(m_sale.positions.begin(), m_sale.positions.end(),
                       [this](PlannedPosition& position) { return cancelsOne(position); });
}

bool VisitWriter::paysOut()
{
    goesToThePayment();
    while (!cancelsAll()) {
        reads(m_message);
        if (m_refused) {
            m_visit.steps.append(cashier::cancelsTheDocument + ", " + cashier::isIdle);
            return false;
        }
        goesToThePayment();
    }
    m_visit.total = -m_sale.total();
    m_visit.steps.append(R"({"expect": "К ВОЗВРАТУ", "in": "paymentCaptionLabel"}, {"key": "Return"}, )" +
                         cashier::isIdle);
    return true;
}

PlannedSale VisitWriter::sale() const
{
    return m_sale;
}

Visit VisitWriter::finish(const QString& state)
{
    m_visit.state = state;
    m_visit.isComparable = !m_sale.prescriptions.isEmpty() && !m_hadFault;
    return m_visit;
}

} // namespace soak
