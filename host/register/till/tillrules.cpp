// SPDX-License-Identifier: MIT
#include "till.h"

using namespace Qt::StringLiterals;

namespace
{

QString number(const Document& document)
{
    return QString::number(document.getNumber());
}

} // namespace

std::optional<Obstacle> Till::obstacleToOpening() const
{
    if (!m_document) {
        return std::nullopt;
    }
    return Obstacle{tr::Tr(u"receiptAlreadyOpen"_s, u"Чек № %1 уже открыт."_s).arg(number(*m_document))};
}

std::optional<Obstacle> Till::obstacleToAnotherDocument() const
{
    if (!m_document) {
        return std::nullopt;
    }
    return Obstacle{tr::Tr(u"finishOpenReceiptFirst"_s, u"Сначала завершите или отложите открытый чек № %1."_s)
                        .arg(number(*m_document)),
                    tr::Tr(u"menuReceiptOpen"_s, u"сначала завершите чек № %1"_s).arg(number(*m_document))};
}

std::optional<Obstacle> Till::obstacleToAddingGoods() const
{
    if (!m_document || !m_document->isReturn()) {
        return std::nullopt;
    }
    return Obstacle{{u"takeBackTakesNoGoods"_s,
                     u"Открыт возврат: товары в него не добавляются.\nЗавершите возврат или отмените его."_s}};
}

std::optional<Obstacle> Till::obstacleToChangingPositions() const
{
    if (!m_document || !m_document->isReturn()) {
        return std::nullopt;
    }
    return Obstacle{{u"takeBackIsWhole"_s, u"Продажа возвращается целиком: позиции возврата не меняются."_s}};
}

std::optional<Obstacle> Till::obstacleToChangingQuantity(const Position& position)
{
    if (!position.isExternal()) {
        return std::nullopt;
    }
    return Obstacle{tr::Tr(u"positionBound"_s,
                           u"Позиция «%1» отпускается по документу, её количество и цена не меняются.\n"
                           "Чтобы отпустить другое количество, удалите позицию и отпустите её заново."_s)
                        .arg(position.getName())};
}

std::optional<Obstacle> Till::obstacleToPayment() const
{
    if (m_document && !m_document->positions().isEmpty()) {
        return std::nullopt;
    }
    return Obstacle{{u"receiptEmpty"_s, u"В чеке нет позиций.\nДобавьте товар или отмените чек."_s}};
}

std::optional<Obstacle> Till::obstacleToSuspending() const
{
    if (!m_document || !m_document->isReturn()) {
        return std::nullopt;
    }
    return Obstacle{{u"takeBackNotPutAside"_s, u"Возврат нельзя отложить: завершите его или отмените."_s},
                    {u"menuTakeBackOpen"_s, u"возврат не откладывают"_s}};
}

std::optional<Obstacle> Till::obstacleToResuming(const Document& document) const
{
    if (auto obstacle = obstacleToAnotherDocument()) {
        return obstacle;
    }
    if (document.getState() == Document::State::Suspended) {
        return std::nullopt;
    }
    return Obstacle{tr::Tr(u"resumeOnlySuspended"_s, u"Документ № %1 не отложен, его нельзя взять в работу."_s)
                        .arg(number(document))};
}

std::optional<Obstacle> Till::obstacleToReturning(const Document& sale) const
{
    if (auto obstacle = obstacleToAnotherDocument()) {
        return obstacle;
    }
    if (sale.isReturn() || sale.getState() != Document::State::Closed) {
        return Obstacle{
            tr::Tr(u"takeBackOnlyClosedSale"_s, u"Документ № %1 — не закрытая продажа, его нельзя вернуть."_s)
                .arg(number(sale))};
    }
    if (isReturned(sale)) {
        return Obstacle{tr::Tr(u"takenBackAlready"_s, u"Продажа № %1 уже возвращена документом № %2."_s)
                            .arg(number(sale))
                            .arg(QString::number(sale.getReturnedBy()))};
    }
    return std::nullopt;
}

std::optional<Obstacle> Till::obstacleToVoiding(const Document& document) const
{
    const bool isSuspended = document.getState() == Document::State::Suspended;
    const bool isSold = document.getState() == Document::State::Closed && !document.isReturn();
    if (isSuspended || (isSold && !isReturned(document))) {
        return std::nullopt;
    }
    return Obstacle{tr::Tr(u"annulNotPossible"_s, u"Документ № %1 нельзя аннулировать: аннулируются отложенные чеки и "
                                                  "закрытые продажи, которые не возвращены."_s)
                        .arg(number(document))};
}

std::optional<Obstacle> Till::obstacleToPrinting(const Document& document)
{
    if (document.getState() == Document::State::Closed) {
        return std::nullopt;
    }
    return Obstacle{{u"documentsPrintClosed"_s, u"Печатаются только закрытые документы, которые не аннулированы."_s}};
}

bool Till::isReturned(const Document& sale) const
{
    return m_archive.isReturned(sale, m_document);
}
