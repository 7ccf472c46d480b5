// SPDX-License-Identifier: MIT
#include "document.h"

#include "savedmember.h"

#include <QJsonArray>
#include <QUuid>

#include <algorithm>
#include <array>
#include <iterator>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

using StateWord = std::pair<Document::State, const char*>;

constexpr std::array<StateWord, 5> stateWords{{
    {Document::State::Open, "open"},
    {Document::State::Suspended, "putAside"},
    {Document::State::Closed, "closed"},
    {Document::State::Cancelled, "cancelled"},
    {Document::State::Voided, "annulled"},
}};

QString word(Document::State state)
{
    const auto* found = std::find_if(stateWords.begin(), stateWords.end(),
                                     [state](const StateWord& candidate) { return candidate.first == state; });
    return QString::fromLatin1(found->second);
}

Document::State readState(const QJsonObject& saved)
{
    if (!saved.contains("state"_L1)) {
        return Document::State::Open;
    }
    const QString wanted = savedmember::text(saved, u"state"_s);
    const auto* found = std::find_if(stateWords.begin(), stateWords.end(), [&wanted](const StateWord& candidate) {
        return wanted == QLatin1StringView(candidate.second);
    });
    if (found == stateWords.end()) {
        savedmember::refuse(u"state"_s);
    }
    return found->first;
}

AbstractDocument::Type readType(const QJsonObject& saved)
{
    const int type = savedmember::positiveInteger(saved, u"type"_s);
    if (type != AbstractDocument::Sale && type != AbstractDocument::Return) {
        savedmember::refuse(u"type"_s);
    }
    return static_cast<AbstractDocument::Type>(type);
}

QDateTime readTime(const QJsonObject& saved, const QString& name)
{
    QDateTime time = QDateTime::fromString(savedmember::text(saved, name), Qt::ISODate);
    // 24:00 on 31 December 9999 is read as a day of the year 10000, which ISO 8601 cannot write.
    if (!time.isValid() || time.date().year() > 9999) {
        savedmember::refuse(name);
    }
    return time;
}

/// A member that is `true` or absent.
bool readMark(const QJsonObject& saved, const QString& name)
{
    const QJsonValue mark = saved.value(name);
    if (!mark.isUndefined() && mark != true) {
        savedmember::refuse(name);
    }
    return !mark.isUndefined();
}

void insertTime(QJsonObject& saved, const QString& name, const QDateTime& time)
{
    if (time.isValid()) {
        saved.insert(name, time.toString(Qt::ISODate));
    }
}

/// "received" alone says it all.
bool isOneOfCash(const QList<Payment>& payments)
{
    return payments.isEmpty() || (payments.size() == 1 && payments.first().method == PaymentMethod::Cash);
}

QJsonArray savedPayments(const QList<Payment>& payments)
{
    QJsonArray saved;
    for (const Payment& payment : payments) {
        saved.append(QJsonObject{{"method"_L1, rowOf(payment.method).word}, {"amount"_L1, payment.amount.toRoubles()}});
    }
    return saved;
}

QJsonArray savedNumbers(const QList<int>& numbers)
{
    QJsonArray saved;
    std::copy(numbers.cbegin(), numbers.cend(), std::back_inserter(saved));
    return saved;
}

QJsonArray savedCardOperations(const QList<CardOperation>& operations)
{
    QJsonArray saved;
    for (const CardOperation& operation : operations) {
        saved.append(operation.toJson());
    }
    return saved;
}

Payment readPayment(const QJsonObject& saved)
{
    const QString word = savedmember::text(saved, u"method"_s);
    for (const PaymentMethodRow& row : paymentMethods()) {
        if (row.word == word) {
            return {row.method, savedmember::amount(saved, u"amount"_s)};
        }
    }
    savedmember::refuse(u"method"_s);
}

QList<Payment> readPayments(const QJsonObject& saved)
{
    if (!saved.contains("payments"_L1)) {
        return {Payment::cash(savedmember::amount(saved, u"received"_s))};
    }
    QList<Payment> payments;
    for (const auto value : savedmember::list(saved, u"payments"_s)) {
        payments.append(readPayment(value.toObject()));
    }
    return payments;
}

} // namespace

Document::Document(int number, const QDateTime& opened)
    : m_number(number)
    , m_opened(opened)
{
}

QSharedPointer<Document> Document::returnOf(const Document& sale, int number, const QDateTime& opened)
{
    auto document = QSharedPointer<Document>::create(number, opened);
    document->m_type = Return;
    document->m_returnedSale = sale.getNumber();
    document->readPositions(sale.toJson());
    document->readPluginValues(sale.toJson());
    return document;
}

QSharedPointer<Document> Document::returnOf(const Document& sale, const QSet<int>& positions, int number,
                                            const QDateTime& opened)
{
    auto document = returnOf(sale, number, opened);
    document->m_positions.removeIf(
        [&positions](const auto& position) { return !positions.contains(position->getNumber()); });
    return document;
}

QList<QSharedPointer<GoodsItem>> Document::getPositions() const
{
    return {m_positions.cbegin(), m_positions.cend()};
}

QSharedPointer<Position> Document::position(int number) const
{
    return getPosition(number).staticCast<Position>();
}

int Document::placeOf(const Position& position) const
{
    const auto found = std::find_if(m_positions.cbegin(), m_positions.cend(),
                                    [&position](const auto& one) { return one->getNumber() == position.getNumber(); });
    return found == m_positions.cend() ? 0 : int(found - m_positions.cbegin()) + 1;
}

bool Document::isClosed() const
{
    return hasEnded() && !m_beingVoided;
}

QString Document::fileName() const
{
    const QString file = u"%1.json"_s.arg(m_number, 8, 10, QChar(u'0'));
    switch (m_ending.state) {
    case State::Open:
        return AbstractDocument::fileName();
    case State::Suspended:
        return u"putaside/"_s + file;
    default:
        return u"finished/"_s + file;
    }
}

QString Document::identifier() const
{
    return QString::number(m_number);
}

bool Document::isUndone() const
{
    return getState() == State::Cancelled || getState() == State::Voided;
}

Kopecks Document::getSum() const
{
    return std::accumulate(m_positions.cbegin(), m_positions.cend(), Kopecks{},
                           [](Kopecks sum, const auto& position) { return sum + position->getSum(); });
}

double Document::packsOf(const GoodsKey& goods) const
{
    return std::accumulate(m_positions.cbegin(), m_positions.cend(), 0.0, [&goods](double packs, const auto& position) {
        return position->goodsKey().isSame(goods) ? packs + position->getQuantity() : packs;
    });
}

QSharedPointer<Position> Document::add(GoodsItem::Goods goods, const QString& barcode, const QString& code)
{
    goods.number = m_nextPosition++;
    m_positions.append(QSharedPointer<Position>::create(goods, barcode, code));
    return m_positions.last();
}

void Document::remove(int number)
{
    m_positions.removeIf([number](const auto& position) { return position->getNumber() == number; });
}

void Document::setCardOperation(const CardOperation& operation)
{
    for (CardOperation& known : m_cardOperations) {
        if (known.reference == operation.reference) {
            known = operation;
            return;
        }
    }
    m_cardOperations.append(operation);
}

void Document::removeCardOperation(const QString& reference)
{
    m_cardOperations.removeIf([&reference](const CardOperation& known) { return known.reference == reference; });
}

QString Document::nextCardReference() const
{
    return u"%1-%2"_s.arg(m_number).arg(QUuid::createUuid().toString(QUuid::Id128));
}

std::optional<CardOperation> Document::unsettledCardOperation() const
{
    const auto unsettled =
        std::find_if(m_cardOperations.cbegin(), m_cardOperations.cend(),
                     [](const CardOperation& known) { return known.state == CardOperation::State::Asked; });
    return unsettled == m_cardOperations.cend() ? std::nullopt : std::optional(*unsettled);
}

void Document::takeOverPluginData(const Document& other)
{
    for (const QSharedPointer<Position>& source : other.m_positions) {
        if (const QSharedPointer<Position> target = position(source->getNumber())) {
            target->takeOverPluginData(*source);
        }
    }
}

QJsonObject Document::toJson() const
{
    QJsonObject saved = AbstractDocument::toJson();
    saved.insert(u"closed"_s, hasEnded());
    saved.insert(u"number"_s, m_number);
    saved.insert(u"opened"_s, m_opened.toString(Qt::ISODate));
    saved.insert(u"nextPosition"_s, m_nextPosition);
    saved.insert(u"sum"_s, getSum().toRoubles());
    saved.insert(u"state"_s, word(m_ending.state));
    insertTime(saved, u"finished"_s, m_ending.finished);
    insertTime(saved, u"annulled"_s, m_ending.voided);
    if (m_ending.voidingBegun) {
        saved.insert(u"annulmentBegun"_s, true);
    }
    if (m_ending.closing > 0) {
        saved.insert(u"closing"_s, m_ending.closing);
    }
    if (m_ending.state == State::Closed || !m_ending.payments.isEmpty()) {
        saved.insert(u"received"_s, getReceived().toRoubles());
    }
    if (!isOneOfCash(m_ending.payments)) {
        saved.insert(u"payments"_s, savedPayments(m_ending.payments));
    }
    if (m_returnedSale > 0) {
        saved.insert(u"takesBack"_s, m_returnedSale);
    }
    if (!m_returns.isEmpty()) {
        saved.insert(u"takenBackBy"_s, m_returns.last());
    }
    if (m_returns.size() > 1) {
        saved.insert(u"takenBackBefore"_s, savedNumbers(m_returns.first(m_returns.size() - 1)));
    }
    if (!m_cardOperations.isEmpty()) {
        saved.insert(u"cardOperations"_s, savedCardOperations(m_cardOperations));
    }
    return saved;
}

QSharedPointer<Document> Document::fromJson(const QJsonObject& saved)
{
    if (savedmember::positiveInteger(saved, u"format"_s) != formatVersion) {
        savedmember::refuse(u"format"_s);
    }

    auto document = QSharedPointer<Document>::create(savedmember::positiveInteger(saved, u"number"_s),
                                                     readTime(saved, u"opened"_s));
    document->m_type = readType(saved);
    Ending& ending = document->m_ending;
    ending.state = readState(saved);
    if (document->hasEnded()) {
        ending.finished = readTime(saved, u"finished"_s);
    }
    if (ending.state == State::Voided) {
        ending.voided = readTime(saved, u"annulled"_s);
    }
    ending.voidingBegun = readMark(saved, u"annulmentBegun"_s);
    if (saved.contains("closing"_L1)) {
        ending.closing = savedmember::positiveInteger(saved, u"closing"_s);
    }
    if (ending.state == State::Closed || saved.contains("received"_L1)) {
        ending.payments = readPayments(saved);
    }
    if (document->isReturn()) {
        document->m_returnedSale = savedmember::positiveInteger(saved, u"takesBack"_s);
    }
    document->readReturns(saved);
    document->readCardOperations(saved);
    document->readPositions(saved);
    document->readPluginValues(saved);
    return document;
}

void Document::readReturns(const QJsonObject& saved)
{
    if (!saved.contains("takenBackBy"_L1)) {
        return;
    }
    if (saved.contains("takenBackBefore"_L1)) {
        for (const auto value : savedmember::list(saved, u"takenBackBefore"_s)) {
            m_returns.append(savedmember::positiveInteger({{u"takenBackBefore"_s, value}}, u"takenBackBefore"_s));
        }
    }
    m_returns.append(savedmember::positiveInteger(saved, u"takenBackBy"_s));
}

void Document::readCardOperations(const QJsonObject& saved)
{
    if (!saved.contains("cardOperations"_L1)) {
        return;
    }
    for (const auto value : savedmember::list(saved, u"cardOperations"_s)) {
        const CardOperation operation = CardOperation::fromJson(value.toObject());
        if (std::any_of(m_cardOperations.cbegin(), m_cardOperations.cend(),
                        [&](const CardOperation& known) { return known.reference == operation.reference; })) {
            savedmember::refuse(u"reference"_s);
        }
        m_cardOperations.append(operation);
    }
}

void Document::readPositions(const QJsonObject& saved)
{
    for (const auto value : savedmember::list(saved, u"positions"_s)) {
        const auto position = Position::fromJson(value.toObject());
        if (this->position(position->getNumber())) {
            savedmember::refuse(u"number"_s);
        }
        m_positions.append(position);
        m_nextPosition = std::max(m_nextPosition, position->getNumber() + 1);
    }
    m_nextPosition = std::max(m_nextPosition, savedmember::positiveInteger(saved, u"nextPosition"_s));
}

void Document::readPluginValues(const QJsonObject& saved)
{
    const QJsonObject plugins = savedmember::object(saved, u"plugins"_s);
    for (auto plugin = plugins.begin(); plugin != plugins.end(); ++plugin) {
        const QVariantMap values = plugin.value().toObject().toVariantMap();
        for (auto value = values.cbegin(); value != values.cend(); ++value) {
            setPluginValue(plugin.key(), value.key(), value.value());
        }
    }
}
