// SPDX-License-Identifier: MIT
#include "till.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

QString number(const Document& document)
{
    return QString::number(document.getNumber());
}

Obstacle returnDamaged(const Document& sale, const ArchiveFolder::DamagedReturn& damaged)
{
    return {tr::Tr(u"takeBackDamaged"_s,
                   u"Возврат № %1 по чеку № %2 повреждён: неизвестно, что вернули и выданы ли деньги.\n"
                   "Файл: %3\nПозовите администратора: он исправит файл или, если деньги не выданы, уберёт его из "
                   "папки данных."_s)
                .arg(QString::number(damaged.number))
                .arg(number(sale))
                .arg(damaged.files.join(u", "_s)),
            {u"menuTakeBackDamaged"_s, u"возврат повреждён"_s}};
}

/// @param ofPlugins why the return cannot be finished yet; nothing: it can
Obstacle returnSuspended(const Document& sale, const Document& suspended, const std::optional<Obstacle>& ofPlugins)
{
    if (ofPlugins) {
        return {tr::Tr(u"takeBackSuspendedIdle"_s,
                       u"Возврат продажи № %1 начат и отложен, его номер %2: %3.\n"
                       "Позовите администратора. Когда модуль заработает, возьмите возврат в работу из списка "
                       "документов."_s)
                    .arg(number(sale))
                    .arg(number(suspended))
                    .arg(ofPlugins->shortest().ui())};
    }
    return {tr::Tr(u"takeBackSuspended"_s, u"Возврат продажи № %1 начат и отложен, его номер %2.\n"
                                           "Возьмите его в работу из списка документов."_s)
                .arg(number(sale))
                .arg(number(suspended))};
}

/// @param why what keeps a plug-in from bringing its lines of the receipt
Obstacle receiptIncomplete(const Document& document, const tr::Tr& why)
{
    return {tr::Tr(u"receiptWithoutPlugin"_s,
                   u"Чек № %1 пока не печатается: %2, и на чеке не было бы сведений об отпуске.\n"
                   "Позовите администратора. Предложите покупателю подождать или зайти за чеком позже: когда модуль "
                   "заработает, напечатайте чек из списка документов."_s)
                .arg(number(document))
                .arg(why.ui()),
            why};
}

Obstacle voidingPaidBack(const Document& sale)
{
    return {tr::Tr(u"voidingBegun"_s,
                   u"Аннулирование продажи № %1 начато, деньги возвращены или могли быть возвращены.\n"
                   "Завершите его: аннулируйте продажу ещё раз."_s)
                .arg(number(sale))};
}

Obstacle cancellingPaidBack(const Document& sale)
{
    return {tr::Tr(u"cancellingBegun"_s, u"Отмена чека № %1 начата, деньги возвращены или могли быть возвращены.\n"
                                         "Завершите её: отмените чек ещё раз."_s)
                .arg(number(sale))};
}

Obstacle documentGone()
{
    return {{u"documentGone"_s, u"Чек уже не открыт: модуль закрыл его во время действия.\n"
                                "Проверьте чек в списке документов."_s}};
}

Obstacle belowZero(const Document& document)
{
    const tr::Tr text =
        document.isReturn()
            ? tr::Tr(u"returnBelowZero"_s, u"Сумма возврата меньше нуля: %1.\n"
                                           "Отмените возврат и верните эту позицию вместе с другими."_s)
            : tr::Tr(u"totalBelowZero"_s, u"Сумма чека меньше нуля: %1.\n"
                                          "Удалите позицию с отрицательной ценой или позовите администратора."_s);
    return {text.arg(amountText(document.getSum())), {u"menuTotalBelowZero"_s, u"сумма меньше нуля"_s}};
}

/// A sum that could be saved and not read again.
Obstacle tooLarge(const Document& document)
{
    return {tr::Tr(u"totalTooLarge"_s, u"Сумма чека слишком велика: %1.\n"
                                       "Проверьте цены и количество или разделите покупку на несколько чеков."_s)
                .arg(amountText(document.getSum())),
            {u"menuTotalTooLarge"_s, u"сумма слишком велика"_s}};
}

} // namespace

/// Money from a card binds the open document: its sum stays as it is, also when the money went back.
std::optional<Obstacle> Till::obstacleWhileCharged() const
{
    if (!m_document) {
        return std::nullopt;
    }
    const bool mayOnlyBeCancelled = !m_document->isReturn() && m_document->mayHavePaidBack();
    if (!mayOnlyBeCancelled && m_document->getCharged() == Kopecks{0} && !m_document->unsettledCardOperation()) {
        return std::nullopt;
    }
    if (auto obstacle = obstacleOfPlugins(*m_document)) {
        return obstacle; // it can neither be paid nor cancelled
    }
    if (mayOnlyBeCancelled) {
        return cancellingPaidBack(*m_document);
    }
    return Obstacle{tr::Tr(u"chargedNotChanged"_s,
                           u"По чеку № %1 уже есть оплата картой, он не меняется.\n"
                           "Завершите оплату. Чтобы изменить чек, отмените его: деньги вернутся на карту."_s)
                        .arg(number(*m_document)),
                    {u"menuCharged"_s, u"есть оплата картой"_s}};
}

/// The first of the position's plug-ins that does not work, empty when it names none; nothing: all work.
std::optional<QString> Till::idlePlugin(const Position& position) const
{
    const QStringList active = m_activePlugins ? m_activePlugins() : QStringList();
    if (position.getPlugin().isEmpty() && position.isExternal() && active.isEmpty()) {
        return QString();
    }
    QStringList needed{position.getPlugin()};
    needed += marks().undecidedPlugins(position);
    const auto idle = std::find_if(needed.cbegin(), needed.cend(), [&active](const QString& plugin) {
        return !plugin.isEmpty() && !active.contains(plugin);
    });
    return idle == needed.cend() ? std::nullopt : std::optional(*idle);
}

/// The first position whose plug-in does not work; null: all work.
QSharedPointer<Position> Till::unserved(const Document& document) const
{
    const auto& positions = document.positions();
    const auto found = std::find_if(positions.cbegin(), positions.cend(),
                                    [this](const auto& position) { return !isServed(*position); });
    return found == positions.cend() ? nullptr : *found;
}

/// True when nobody knows yet what an external system holds of a position: the document waits until it is known.
bool Till::isUndecided(const Document& document) const
{
    const auto& positions = document.positions();
    return std::any_of(positions.cbegin(), positions.cend(),
                       [this](const auto& position) { return !marks().undecidedPlugins(*position).isEmpty(); });
}

/// What can be done with a document until its plug-in works, as one more line; empty: nothing.
QString Till::meanwhile(const Document& document) const
{
    if (m_document.data() != &document || obstacleToSuspending()) {
        return {};
    }
    return u'\n' + tr::Tr(u"suspendMeanwhile"_s, u"Открытый документ пока можно отложить."_s).ui();
}

Obstacle Till::pluginMissing(const Document& document, const Position& position) const
{
    const QString place = QString::number(document.placeOf(position));
    const QString plugin = idlePlugin(position).value_or(QString());
    if (plugin.isEmpty()) {
        return {tr::Tr(u"positionOfNoPlugin"_s,
                       u"Документ № %1: позиция № %2 отпускается %3, а ни один модуль не работает.\n"
                       "Позовите администратора и повторите, когда модуль заработает.%4"_s)
                    .arg(number(document))
                    .arg(place)
                    .arg(marks().origin(position))
                    .arg(meanwhile(document)),
                {u"menuPluginsIdle"_s, u"модули не работают"_s}};
    }
    return {tr::Tr(u"positionOfIdlePlugin"_s, u"Документ № %1: позицию № %2 ведёт модуль «%3», а он не работает.\n"
                                              "Позовите администратора и повторите, когда модуль заработает.%4"_s)
                .arg(number(document))
                .arg(place)
                .arg(plugin)
                .arg(meanwhile(document)),
            tr::Tr(u"menuPluginIdle"_s, u"не работает модуль «%1»"_s).arg(plugin)};
}

std::optional<Obstacle> Till::obstacleOfPlugins(const Document& document) const
{
    const QSharedPointer<Position> position = unserved(document);
    return position ? std::optional(pluginMissing(document, *position)) : std::nullopt;
}

std::optional<Obstacle> Till::obstacleOfPlugin(const Position& position) const
{
    if (!m_document || isServed(position)) {
        return std::nullopt;
    }
    return pluginMissing(*m_document, position);
}

std::optional<Obstacle> Till::obstacleToOpening() const
{
    if (!m_document) {
        return std::nullopt;
    }
    const tr::Tr text = obstacleToSuspending()
                            ? tr::Tr(u"documentAlreadyOpen"_s, u"Документ № %1 уже открыт, отложить его нельзя.\n"
                                                               "Завершите его, чтобы открыть следующий чек."_s)
                            : tr::Tr(u"receiptAlreadyOpen"_s,
                                     u"Чек № %1 уже открыт.\nЗавершите или отложите его, чтобы открыть следующий."_s);
    return Obstacle{text.arg(number(*m_document))};
}

std::optional<Obstacle> Till::obstacleToAnotherDocument() const
{
    if (!m_document) {
        return std::nullopt;
    }
    const tr::Tr text =
        obstacleToSuspending()
            ? tr::Tr(u"finishOpenDocumentFirst"_s, u"Сначала завершите открытый документ № %1: отложить его нельзя."_s)
            : tr::Tr(u"finishOpenReceiptFirst"_s, u"Сначала завершите или отложите открытый чек № %1."_s);
    return Obstacle{text.arg(number(*m_document)),
                    tr::Tr(u"menuReceiptOpen"_s, u"сначала завершите чек № %1"_s).arg(number(*m_document))};
}

std::optional<Obstacle> Till::obstacleToChangingDocument() const
{
    if (m_document) {
        return std::nullopt;
    }
    return documentGone();
}

std::optional<Obstacle> Till::obstacleToGoingOn(const QSharedPointer<Document>& document) const
{
    return m_document == document ? std::nullopt : std::optional(documentGone());
}

std::optional<Obstacle> Till::obstacleToAddingGoods() const
{
    if (m_document && m_document->isClosed()) { // its receipt is being printed, and the cashier reads a message
        return documentGone();
    }
    if (!m_document || !m_document->isReturn()) {
        return obstacleWhileCharged();
    }
    return Obstacle{{u"takeBackTakesNoGoods"_s,
                     u"Открыт возврат: товары в него не добавляются.\nЗавершите возврат или отмените его."_s}};
}

std::optional<Obstacle> Till::obstacleToChangingPositions() const
{
    if (m_document && m_document->isClosed()) {
        return documentGone();
    }
    if (!m_document || !m_document->isReturn()) {
        return obstacleWhileCharged();
    }
    return Obstacle{{u"takeBackIsWhole"_s,
                     u"Позиции возврата не меняются.\nЧтобы вернуть другие, отмените возврат и начните его заново."_s}};
}

std::optional<Obstacle> Till::obstacleToChangingQuantity(const Position& position) const
{
    if (!position.isExternal()) {
        return std::nullopt;
    }
    return Obstacle{tr::Tr(u"positionBound"_s,
                           u"Позиция «%1» отпускается %2, её количество и цена не меняются.\n"
                           "Чтобы отпустить другое количество, удалите позицию и отпустите её заново."_s)
                        .arg(position.getName())
                        .arg(marks().origin(position))};
}

std::optional<Obstacle> Till::obstacleToPayment() const
{
    if (m_document && !m_document->isReturn() && m_document->mayHavePaidBack()) {
        return cancellingPaidBack(*m_document);
    }
    if (m_document && m_document->getSum() < Kopecks{0}) {
        return belowZero(*m_document);
    }
    if (m_document && !Kopecks::fromRoubles(m_document->getSum().toRoubles())) {
        return tooLarge(*m_document);
    }
    if (m_document && !m_document->positions().isEmpty()) {
        return obstacleOfPlugins(*m_document);
    }
    return Obstacle{{u"receiptEmpty"_s, u"В чеке нет позиций.\nДобавьте товар или отмените чек."_s},
                    {u"menuReceiptEmpty"_s, u"в чеке нет позиций"_s}};
}

std::optional<Obstacle> Till::obstacleToSuspending() const
{
    if (!m_document || unserved(*m_document) || isUndecided(*m_document)) {
        return std::nullopt;
    }
    if (!m_document->isReturn()) {
        return obstacleWhileCharged();
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
    return Obstacle{tr::Tr(u"resumeOnlySuspended"_s,
                           u"Документ № %1 не отложен, его нельзя взять в работу.\nВыберите отложенный."_s)
                        .arg(number(document))};
}

std::optional<Obstacle> Till::obstacleToReturning(const Document& sale) const
{
    if (auto obstacle = obstacleToAnotherDocument()) {
        return obstacle;
    }
    if (sale.isReturn() || sale.getState() != Document::State::Closed) {
        return Obstacle{tr::Tr(u"takeBackOnlyClosedSale"_s,
                               u"Документ № %1 — не закрытая продажа, его нельзя вернуть.\n"
                               "Проверьте номер чека."_s)
                            .arg(number(sale))};
    }
    if (sale.hasPaidBack()) {
        return voidingPaidBack(sale);
    }
    if (const auto latest = m_archive.find(sale.getReturnedBy());
        latest && latest->getState() == Document::State::Suspended && latest->getReturnedSale() == sale.getNumber()) {
        return returnSuspended(sale, *latest, obstacleOfPlugins(*latest));
    }
    if (const auto damaged = m_archive.damagedReturn(sale, m_document)) {
        return returnDamaged(sale, *damaged);
    }
    if (returned(sale) == Document::Returned::Wholly) {
        return Obstacle{tr::Tr(u"takenBackAlready"_s, u"Продажа № %1 уже возвращена документом № %2.\n"
                                                      "Проверьте номер чека."_s)
                            .arg(number(sale))
                            .arg(QString::number(sale.getReturnedBy()))};
    }
    return obstacleToReturningAny(sale);
}

/// Why none of the positions that are left can be returned: each belongs to a plug-in that does not work.
std::optional<Obstacle> Till::obstacleToReturningAny(const Document& sale) const
{
    const QSet<int> left = returnablePositions(sale);
    std::optional<Obstacle> obstacle;
    for (const QSharedPointer<Position>& position : sale.positions()) {
        if (left.contains(position->getNumber())) {
            if (isServed(*position)) {
                return std::nullopt;
            }
            obstacle = pluginMissing(sale, *position);
        }
    }
    return obstacle;
}

std::optional<Obstacle> Till::obstacleToReturning(const Document& sale, const QSet<int>& positions) const
{
    if (auto obstacle = obstacleToReturning(sale)) {
        return obstacle;
    }
    if (sale.unsettledCardOperation()) {
        return Obstacle{tr::Tr(u"saleUnsettled"_s, u"Продажа № %1: неизвестно, прошла ли операция по карте.\n"
                                                   "Повторите возврат: касса спросит терминал."_s)
                            .arg(number(sale))};
    }
    for (const QSharedPointer<Position>& position : sale.positions()) {
        if (positions.contains(position->getNumber()) && !isServed(*position)) {
            return pluginMissing(sale, *position);
        }
    }
    return std::nullopt;
}

std::optional<Obstacle> Till::obstacleToVoiding(const Document& document) const
{
    const bool isSuspended = document.getState() == Document::State::Suspended;
    const bool isSold =
        document.getState() == Document::State::Closed && returned(document) == Document::Returned::Nothing;
    if (!document.isReturn() && (isSuspended || isSold)) {
        return obstacleOfPlugins(document);
    }
    if (const auto damaged = m_archive.damagedReturn(document, m_document)) {
        return returnDamaged(document, *damaged);
    }
    return Obstacle{tr::Tr(u"annulNotPossible"_s, u"Документ № %1 нельзя аннулировать: аннулируются отложенные чеки и "
                                                  "закрытые продажи, которые не возвращены.\n"
                                                  "Выберите другой документ."_s)
                        .arg(number(document))};
}

std::optional<Obstacle> Till::obstacleOfVoiding(const Document& document) const
{
    if (!document.isVoidingBegun() || returned(document) != Document::Returned::Nothing) {
        return std::nullopt;
    }
    if (document.hasPaidBack()) {
        return voidingPaidBack(document);
    }
    return Obstacle{tr::Tr(u"voidingNotEnded"_s, u"Аннулирование продажи № %1 начато и не завершено.\n"
                                                 "Аннулируйте её ещё раз или оформите возврат."_s)
                        .arg(number(document))};
}

std::optional<Obstacle> Till::obstacleToPrinting(const Document& document) const
{
    if (document.getState() != Document::State::Closed) {
        return Obstacle{{u"documentsPrintClosed"_s, u"Печатаются только закрытые документы, которые не аннулированы. "
                                                    "Выберите такой документ."_s}};
    }
    if (auto obstacle = obstacleOfVoiding(document)) {
        return obstacle;
    }
    const QSharedPointer<Position> position = unserved(document);
    return position ? std::optional(receiptIncomplete(document, pluginMissing(document, *position).brief))
                    : std::nullopt;
}

std::optional<Obstacle> Till::obstacleToCancelling() const
{
    if (!m_document || !m_document->isReturn() || !m_document->mayHavePaidBack()) {
        return m_document ? obstacleOfPlugins(*m_document) : std::nullopt;
    }
    return Obstacle{{u"refundedNotCancelled"_s,
                     u"По возврату уже возвращали деньги, он не отменяется.\nЗавершите его: перейдите к оплате."_s}};
}

Document::Returned Till::returned(const Document& sale) const
{
    return m_archive.returned(sale, m_document);
}

QSet<int> Till::returnablePositions(const Document& sale) const
{
    QSet<int> left;
    for (const auto& position : sale.positions()) {
        left.insert(position->getNumber());
    }
    return left - m_archive.returnedPositions(sale, m_document);
}
