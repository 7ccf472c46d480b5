// SPDX-License-Identifier: MIT
#include "fault.h"

#include <array>

using namespace Qt::StringLiterals;

namespace soak
{
namespace
{

using Answer = Fault::Answer;

struct Kind {
    const char* name;
    Answer answer;
    bool isCarriedOut;
    bool booksOnly; ///< only for requests that book something
};

constexpr std::array kinds{
    Kind{"delay", Answer::Usable, true, false},      Kind{"drip", Answer::Usable, true, false},

    Kind{"cut", Answer::Broken, true, false},        Kind{"close", Answer::Broken, false, false},
    Kind{"reset", Answer::Broken, false, false},     Kind{"close", Answer::Broken, true, true},
    Kind{"reset", Answer::Broken, true, true},

    Kind{"never", Answer::None, false, false},       Kind{"never", Answer::None, true, true},

    Kind{"status", Answer::Refusal, false, false},

    Kind{"html", Answer::Unusable, false, false},    Kind{"empty", Answer::Unusable, false, false},
    Kind{"half-json", Answer::Unusable, true, false}};

constexpr int delayMilliseconds = 400; // long enough for the busy screen

bool books(Endpoint endpoint)
{
    return endpoint == Endpoint::Registration || endpoint == Endpoint::Cancellation;
}

QByteArray unusableAnswer(Endpoint endpoint)
{
    switch (endpoint) {
    case Endpoint::Token:
        return "Ошибка при получении токена";
    case Endpoint::ByCard:
        return "Ошибка при получении списка рецептов";
    case Endpoint::Registration:
        return "Ошибка при отпуске";
    case Endpoint::Cancellation:
        return "Ошибка при отмене отпуска";
    }
    return {};
}

} // namespace

QString nameOf(Endpoint endpoint)
{
    switch (endpoint) {
    case Endpoint::Token:
        return u"token"_s;
    case Endpoint::ByCard:
        return u"by-card"_s;
    case Endpoint::Registration:
        return u"register"_s;
    case Endpoint::Cancellation:
        return u"cancel"_s;
    }
    return {};
}

bool Fault::isSentAgain() const
{
    return endpoint == Endpoint::ByCard && answer == Answer::Broken && !isCarriedOut;
}

bool Fault::isShown() const
{
    return answer != Answer::Usable && !isSentAgain();
}

QByteArray Fault::message() const
{
    switch (answer) {
    case Answer::Usable:
        return {};
    case Answer::Broken:
        return books(endpoint) ? "Запрос мог быть выполнен" : "прервалась";
    case Answer::None:
        return books(endpoint) ? "Запрос мог быть выполнен" : "не ответил вовремя";
    case Answer::Refusal:
        return "временно недоступен";
    case Answer::Unusable:
        return unusableAnswer(endpoint);
    }
    return {};
}

QJsonObject Fault::order(int nth) const
{
    QJsonObject order{{u"fault"_s, QString::fromLatin1(name)}, {u"endpoint"_s, nameOf(endpoint)}, {u"nth"_s, nth}};
    if (books(endpoint)) {
        order.insert(u"carriedOut"_s, isCarriedOut);
    }
    if (order.value(u"fault"_s) == "delay"_L1) {
        order.insert(u"delay"_s, delayMilliseconds);
    }
    return order;
}

QList<Fault> faultsOf(const QList<Endpoint>& endpoints)
{
    QList<Fault> faults;
    for (const Endpoint endpoint : endpoints) {
        for (const Kind& kind : kinds) {
            if (!kind.booksOnly || books(endpoint)) {
                faults.append({endpoint, kind.name, kind.answer, kind.isCarriedOut});
            }
        }
    }
    return faults;
}

} // namespace soak
