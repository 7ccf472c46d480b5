// SPDX-License-Identifier: MIT
// The money that comes from cards and goes back to them.
#include "till.h"

#include <algorithm>

Kopecks Till::due() const
{
    if (!m_document) {
        return Kopecks{0};
    }
    return m_document->getSum() - (m_document->isReturn() ? m_document->getRefunded() : m_document->getCharged());
}

QList<CardOperation> Till::owedToCards(const Document& document) const
{
    QList<CardOperation> operations = document.cardOperations();
    Kopecks left = document.getCharged();
    if (document.isReturn()) {
        const auto paidInCash = cardoperations::approved(operations, CardOperation::Kind::CashRefund);
        left = document.getSum() - document.getRefunded() - cardoperations::totalOf(paidInCash);
        if (const QSharedPointer<Document> sale = m_archive.find(document.getReturnedSale())) {
            operations += sale->cardOperations() + m_archive.cardOperationsOfReturns(*sale);
        }
    }
    QList<CardOperation> owed = cardoperations::charged(operations);
    for (CardOperation& payment : owed) {
        payment.amount = std::min(payment.amount, left);
        left = left - payment.amount;
    }
    owed.removeIf([](const CardOperation& payment) { return payment.amount <= Kopecks{0}; });
    return owed;
}

bool Till::recordOrShow(const QSharedPointer<Document>& document, const CardOperation& operation)
{
    const auto before = document->cardOperations().size();
    document->setCardOperation(operation);
    const bool isNew = document->cardOperations().size() > before;
    if (document != m_document && document->unsettledCardOperation()) {
        m_unsettled.add(document->getNumber());
    }
    const bool isSaved = m_archive.saveOrShow(document);
    if (!isSaved && isNew) {
        document->removeCardOperation(operation.reference);
    }
    if (isSaved && !document->unsettledCardOperation()) {
        m_unsettled.remove(document->getNumber());
    }
    emit changed();
    return isSaved;
}

QList<QSharedPointer<Document>> Till::unsettledDocuments() const
{
    QList<QSharedPointer<Document>> unsettled;
    for (const int number : m_unsettled.numbers()) {
        const bool isOpen = m_document && m_document->getNumber() == number;
        const QSharedPointer<Document> document = isOpen ? nullptr : m_archive.find(number);
        if (document && document->unsettledCardOperation()) {
            unsettled.append(document);
        }
    }
    return unsettled;
}
