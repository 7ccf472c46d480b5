// SPDX-License-Identifier: MIT
#include "visitwriter.h"

#include "cashiersteps.h"

#include <algorithm>

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
    m_expected.append({fault, passing});
}

/// Counts a request. False when the register gets no usable answer; then `m_error` is what the cashier reads.
bool VisitWriter::asks(Endpoint endpoint)
{
    ++m_requests[endpoint];
    m_isCarriedOut = true;
    if (m_expected.isEmpty() || m_expected.first().fault.endpoint != endpoint || m_expected.first().passing-- > 0) {
        return true;
    }
    const Fault fault = m_expected.takeFirst().fault;
    m_visit.faults.append(fault.order(m_requests[endpoint]));
    if (fault.isSentAgain()) {
        ++m_requests[endpoint];
    }
    m_isCarriedOut = fault.isCarriedOut;
    m_error = fault.message();
    return !fault.isShown();
}

void VisitWriter::readsError()
{
    m_visit.steps.append(cashier::tries(R"({"wait": "messageForm"})", m_error));
}

/// The command goes on afterwards, perhaps to an error. So nothing waits here until no message is there.
void VisitWriter::readsNotice(const QByteArray& message)
{
    m_visit.steps.append(R"({"wait": "messageForm"}, {"contains": ")" + message +
                         R"(", "in": "messageLabel"}, {"key": "Return"})");
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
        readsError();
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
    const int doses = m_chance.between(1, prescription.doses);
    m_visit.steps.append(R"({"wait": "electronicPrescriptionsTableView"}, {"key": "Return"}, {"wait": "chooseButton"},
        {"expect": ")" + QByteArray(prescription.medicine.inn) +
                         R"(", "in": "innNameValueLabel"}, {"key": "Return"}, {"wait": "goodsTable"}, {"key": "Return"},
        {"wait": "inputLineEdit"}, {"type": ")" +
                         QByteArray::number(doses) + R"("}, {"key": "Return"}, {"click": ")" +
                         (isFinal ? "completeDispenseButton" : "partDispenseButton") +
                         R"("}, {"visible": false, "in": "partDispenseButton"})");
    m_sale.positions.append(PlannedPosition{
        .sum = prescription.benefitPrice(), .prescription = index, .isLast = isFinal || doses == prescription.doses});
    expectPositions();
}

/// @param sent what the subtotal sends: registrations of a sale, cancellations of a return
void VisitWriter::goesToThePayment(Endpoint sent)
{
    while (!triesToGoToThePayment(sent)) {
        readsError();
    }
}

bool VisitWriter::triesToGoToThePayment(Endpoint sent)
{
    m_visit.steps.append(R"({"key": "F12"})");
    return settles(sent) && std::all_of(m_sale.positions.begin(), m_sale.positions.end(),
                                        [&](PlannedPosition& position) { return sends(sent, position); });
}

/// Before anything is sent, the register asks what became of the request whose answer was lost. False when it cannot.
bool VisitWriter::settles(Endpoint sent)
{
    const auto open = std::find_if(m_sale.positions.begin(), m_sale.positions.end(),
                                   [](const PlannedPosition& position) { return position.isOpen; });
    if (open == m_sale.positions.end() || findsOut(sent, *open)) {
        return true;
    }
    m_error = "Касса не знает, что записано в реестре";
    return false;
}

bool VisitWriter::findsOut(Endpoint sent, PlannedPosition& position)
{
    const bool isCompleted = position.isBooked && position.isLast; // the second status that the register asks for
    for (int status = 0; status <= (isCompleted ? 1 : 0); ++status) {
        if (!asks(Endpoint::Token) || !asks(Endpoint::ByCard)) {
            return false;
        }
    }
    position.isRegistered = position.isBooked;
    if (sent == Endpoint::Cancellation) {
        position.isOpen = false;
        readsNotice(position.isBooked ? "Отпуск в реестре не отменён" : "Отпуск в реестре отменён");
    } else if (position.isBooked) {
        position.isOpen = false;
        readsNotice("Отпуск записан в реестре под номером");
    }
    return true; // a registration that has not arrived stays open until the next one is answered
}

/// Sends a position's request, unless the document says that it is done. False when the register gets no usable answer.
bool VisitWriter::sends(Endpoint endpoint, PlannedPosition& position)
{
    const bool isRegistration = endpoint == Endpoint::Registration;
    if (position.prescription < 0 || position.isRegistered == isRegistration) {
        return true;
    }
    if (!asks(Endpoint::Token)) {
        return false;
    }
    const bool isAnswered = asks(endpoint);
    position.isBooked = m_isCarriedOut == isRegistration;
    position.isRegistered = isAnswered == isRegistration;
    position.isOpen = !isAnswered;
    return isAnswered;
}

void VisitWriter::pays()
{
    goesToThePayment(Endpoint::Registration);
    m_visit.steps.append(R"({"expect": "К ОПЛАТЕ", "in": "paymentCaptionLabel"}, {"wait": "receivedLineEdit"})");
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

void VisitWriter::paysOut()
{
    goesToThePayment(Endpoint::Cancellation);
    m_visit.total = -m_sale.total();
    m_visit.steps.append(R"({"expect": "К ВОЗВРАТУ", "in": "paymentCaptionLabel"}, {"key": "Return"}, )" +
                         cashier::isIdle);
}

PlannedSale VisitWriter::sale() const
{
    return m_sale;
}

Visit VisitWriter::finish()
{
    m_visit.isComparable = !m_sale.prescriptions.isEmpty() && m_visit.faults.isEmpty();
    return m_visit;
}

} // namespace soak
