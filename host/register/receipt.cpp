// SPDX-License-Identifier: MIT
#include "receipt.h"

#include "savedmember.h"

#include <QJsonArray>

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

using StateWord = std::pair<Receipt::State, const char*>;

constexpr std::array<StateWord, 5> stateWords{{
    {Receipt::State::Open, "open"},
    {Receipt::State::PutAside, "putAside"},
    {Receipt::State::Closed, "closed"},
    {Receipt::State::Cancelled, "cancelled"},
    {Receipt::State::Annulled, "annulled"},
}};

QString word(Receipt::State state)
{
    const auto* found = std::find_if(stateWords.begin(), stateWords.end(),
                                     [state](const StateWord& candidate) { return candidate.first == state; });
    return QString::fromLatin1(found->second);
}

Receipt::State readState(const QJsonObject& saved)
{
    if (!saved.contains("state"_L1)) {
        return Receipt::State::Open;
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
    if (type != AbstractDocument::Sale && type != AbstractDocument::Cancelling) {
        savedmember::refuse(u"type"_s);
    }
    return static_cast<AbstractDocument::Type>(type);
}

QDateTime readTime(const QJsonObject& saved, const QString& name)
{
    QDateTime time = QDateTime::fromString(savedmember::text(saved, name), Qt::ISODate);
    if (!time.isValid() || time.date().year() > 9999) // 24:00 on the last day that can be written down
    {
        savedmember::refuse(name);
    }
    return time;
}

void insertTime(QJsonObject& saved, const QString& name, const QDateTime& time)
{
    if (time.isValid()) {
        saved.insert(name, time.toString(Qt::ISODate));
    }
}

double roubles(Kopecks amount)
{
    return double(amount) / 100.0;
}

} // namespace

Receipt::Receipt(int number, const QDateTime& opened)
    : m_number(number)
    , m_opened(opened)
{
}

QSharedPointer<Receipt> Receipt::cancelling(const Receipt& sale, int number, const QDateTime& opened)
{
    auto document = QSharedPointer<Receipt>::create(number, opened);
    document->m_type = Cancelling;
    document->m_takesBack = sale.getNumber();
    document->readPositions(sale.toJson());
    document->readPluginValues(sale.toJson());
    return document;
}

QList<QSharedPointer<GoodsItem>> Receipt::getPositions() const
{
    return {m_positions.cbegin(), m_positions.cend()};
}

QSharedPointer<ReceiptPosition> Receipt::position(int number) const
{
    return getPosition(number).staticCast<ReceiptPosition>();
}

bool Receipt::isClosed() const
{
    return hasEnded() && !m_beingAnnulled;
}

QString Receipt::fileName() const
{
    const QString file = u"%1.json"_s.arg(m_number, 8, 10, QChar(u'0'));
    switch (m_ending.state) {
    case State::Open:
        return AbstractDocument::fileName();
    case State::PutAside:
        return u"putaside/"_s + file;
    default:
        return u"finished/"_s + file;
    }
}

Kopecks Receipt::getSum() const
{
    return std::accumulate(m_positions.cbegin(), m_positions.cend(), Kopecks(0),
                           [](Kopecks sum, const auto& position) { return sum + position->getSum(); });
}

QSharedPointer<ReceiptPosition> Receipt::add(GoodsItem::Goods goods, const QString& barcode)
{
    goods.number = m_nextPosition++;
    m_positions.append(QSharedPointer<ReceiptPosition>::create(goods, barcode));
    return m_positions.last();
}

void Receipt::remove(int number)
{
    m_positions.removeIf([number](const auto& position) { return position->getNumber() == number; });
}

void Receipt::takeOverPluginData(const Receipt& other)
{
    for (const QSharedPointer<ReceiptPosition>& source : other.m_positions) {
        const QSharedPointer<ReceiptPosition> target = position(source->getNumber());
        if (!target) {
            continue;
        }
        target->setExtendedOptions(source->getExtendedOptions());
        target->setSoftCheckId(source->getSoftCheckId());
        for (const QString& tag : source->getTags()) {
            target->setTag(tag);
        }
    }
}

QJsonObject Receipt::toJson() const
{
    QJsonObject saved = AbstractDocument::toJson();
    saved.insert(u"closed"_s, hasEnded());
    saved.insert(u"number"_s, m_number);
    saved.insert(u"opened"_s, m_opened.toString(Qt::ISODate));
    saved.insert(u"nextPosition"_s, m_nextPosition);
    saved.insert(u"sum"_s, roubles(getSum()));
    saved.insert(u"state"_s, word(m_ending.state));
    insertTime(saved, u"finished"_s, m_ending.finished);
    insertTime(saved, u"annulled"_s, m_ending.annulled);
    if (m_ending.state == State::Closed || m_ending.received != 0) {
        saved.insert(u"received"_s, roubles(m_ending.received));
    }
    if (m_takesBack > 0) {
        saved.insert(u"takesBack"_s, m_takesBack);
    }
    if (m_takenBackBy > 0) {
        saved.insert(u"takenBackBy"_s, m_takenBackBy);
    }
    return saved;
}

QSharedPointer<Receipt> Receipt::fromJson(const QJsonObject& saved)
{
    if (savedmember::positiveInteger(saved, u"format"_s) != formatVersion) {
        savedmember::refuse(u"format"_s);
    }

    auto receipt =
        QSharedPointer<Receipt>::create(savedmember::positiveInteger(saved, u"number"_s), readTime(saved, u"opened"_s));
    receipt->m_type = readType(saved);
    Ending& ending = receipt->m_ending;
    ending.state = readState(saved);
    if (receipt->hasEnded()) {
        ending.finished = readTime(saved, u"finished"_s);
    }
    if (ending.state == State::Annulled) {
        ending.annulled = readTime(saved, u"annulled"_s);
    }
    if (ending.state == State::Closed || saved.contains("received"_L1)) {
        ending.received = kopecks(savedmember::number(saved, u"received"_s));
    }
    if (receipt->isCancelling()) {
        receipt->m_takesBack = savedmember::positiveInteger(saved, u"takesBack"_s);
    }
    if (saved.contains("takenBackBy"_L1)) {
        receipt->m_takenBackBy = savedmember::positiveInteger(saved, u"takenBackBy"_s);
    }
    receipt->readPositions(saved);
    receipt->readPluginValues(saved);
    return receipt;
}

void Receipt::readPositions(const QJsonObject& saved)
{
    for (const auto value : savedmember::list(saved, u"positions"_s)) {
        const auto position = ReceiptPosition::fromJson(value.toObject());
        if (this->position(position->getNumber())) {
            savedmember::refuse(u"number"_s);
        }
        m_positions.append(position);
        m_nextPosition = std::max(m_nextPosition, position->getNumber() + 1);
    }
    m_nextPosition = std::max(m_nextPosition, savedmember::positiveInteger(saved, u"nextPosition"_s));
}

void Receipt::readPluginValues(const QJsonObject& saved)
{
    const QJsonObject plugins = savedmember::object(saved, u"plugins"_s);
    for (auto plugin = plugins.begin(); plugin != plugins.end(); ++plugin) {
        const QVariantMap values = plugin.value().toObject().toVariantMap();
        for (auto value = values.cbegin(); value != values.cend(); ++value) {
            setPluginValue(plugin.key(), value.key(), value.value());
        }
    }
}
