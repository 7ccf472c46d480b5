// SPDX-License-Identifier: MIT
#include "receipt.h"

#include "savedmember.h"

#include <QJsonArray>

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

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
    if (!saved.contains(QLatin1String("state")))
        return Receipt::State::Open;
    const QString wanted = savedmember::text(saved, QStringLiteral("state"));
    const auto* found = std::find_if(stateWords.begin(), stateWords.end(), [&wanted](const StateWord& candidate) {
        return wanted == QLatin1String(candidate.second);
    });
    if (found == stateWords.end())
        savedmember::refuse(QStringLiteral("state"));
    return found->first;
}

AbstractDocument::Type readType(const QJsonObject& saved)
{
    const int type = savedmember::positiveInteger(saved, QStringLiteral("type"));
    if (type != AbstractDocument::Sale && type != AbstractDocument::Cancelling)
        savedmember::refuse(QStringLiteral("type"));
    return static_cast<AbstractDocument::Type>(type);
}

QDateTime readTime(const QJsonObject& saved, const QString& name)
{
    QDateTime time = QDateTime::fromString(savedmember::text(saved, name), Qt::ISODate);
    if (!time.isValid() || time.date().year() > 9999) // 24:00 on the last day that can be written down
        savedmember::refuse(name);
    return time;
}

void insertTime(QJsonObject& saved, const QString& name, const QDateTime& time)
{
    if (time.isValid())
        saved.insert(name, time.toString(Qt::ISODate));
}

double roubles(Kopecks amount)
{
    return static_cast<double>(amount) / 100.0;
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
    const QString file = QStringLiteral("%1.json").arg(m_number, 8, 10, QLatin1Char('0'));
    switch (m_ending.state) {
    case State::Open:
        return AbstractDocument::fileName();
    case State::PutAside:
        return QStringLiteral("putaside/") + file;
    default:
        return QStringLiteral("finished/") + file;
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
        if (!target)
            continue;
        target->setExtendedOptions(source->getExtendedOptions());
        target->setSoftCheckId(source->getSoftCheckId());
        for (const QString& tag : source->getTags())
            target->setTag(tag);
    }
}

QJsonObject Receipt::toJson() const
{
    QJsonObject saved = AbstractDocument::toJson();
    saved.insert(QStringLiteral("closed"), hasEnded());
    saved.insert(QStringLiteral("number"), m_number);
    saved.insert(QStringLiteral("opened"), m_opened.toString(Qt::ISODate));
    saved.insert(QStringLiteral("nextPosition"), m_nextPosition);
    saved.insert(QStringLiteral("sum"), roubles(getSum()));
    saved.insert(QStringLiteral("state"), word(m_ending.state));
    insertTime(saved, QStringLiteral("finished"), m_ending.finished);
    insertTime(saved, QStringLiteral("annulled"), m_ending.annulled);
    if (m_ending.state == State::Closed || m_ending.received != 0)
        saved.insert(QStringLiteral("received"), roubles(m_ending.received));
    if (m_takesBack > 0)
        saved.insert(QStringLiteral("takesBack"), m_takesBack);
    if (m_takenBackBy > 0)
        saved.insert(QStringLiteral("takenBackBy"), m_takenBackBy);
    return saved;
}

QSharedPointer<Receipt> Receipt::fromJson(const QJsonObject& saved)
{
    if (savedmember::positiveInteger(saved, QStringLiteral("format")) != formatVersion)
        savedmember::refuse(QStringLiteral("format"));

    auto receipt = QSharedPointer<Receipt>::create(savedmember::positiveInteger(saved, QStringLiteral("number")),
                                                   readTime(saved, QStringLiteral("opened")));
    receipt->m_type = readType(saved);
    Ending& ending = receipt->m_ending;
    ending.state = readState(saved);
    if (receipt->hasEnded())
        ending.finished = readTime(saved, QStringLiteral("finished"));
    if (ending.state == State::Annulled)
        ending.annulled = readTime(saved, QStringLiteral("annulled"));
    if (ending.state == State::Closed || saved.contains(QLatin1String("received")))
        ending.received = kopecks(savedmember::number(saved, QStringLiteral("received")));
    if (receipt->isCancelling())
        receipt->m_takesBack = savedmember::positiveInteger(saved, QStringLiteral("takesBack"));
    if (saved.contains(QLatin1String("takenBackBy")))
        receipt->m_takenBackBy = savedmember::positiveInteger(saved, QStringLiteral("takenBackBy"));
    receipt->readPositions(saved);
    receipt->readPluginValues(saved);
    return receipt;
}

void Receipt::readPositions(const QJsonObject& saved)
{
    for (const auto value : savedmember::list(saved, QStringLiteral("positions"))) {
        const auto position = ReceiptPosition::fromJson(value.toObject());
        if (this->position(position->getNumber()))
            savedmember::refuse(QStringLiteral("number"));
        m_positions.append(position);
        m_nextPosition = std::max(m_nextPosition, position->getNumber() + 1);
    }
    m_nextPosition = std::max(m_nextPosition, savedmember::positiveInteger(saved, QStringLiteral("nextPosition")));
}

void Receipt::readPluginValues(const QJsonObject& saved)
{
    const QJsonObject plugins = savedmember::object(saved, QStringLiteral("plugins"));
    for (auto plugin = plugins.begin(); plugin != plugins.end(); ++plugin) {
        const QVariantMap values = plugin.value().toObject().toVariantMap();
        for (auto value = values.cbegin(); value != values.cend(); ++value)
            setPluginValue(plugin.key(), value.key(), value.value());
    }
}
