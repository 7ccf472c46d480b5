// SPDX-License-Identifier: MIT
#include "fault.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using emulator::Endpoint;
using emulator::FaultScript;
using emulator::Occasion;
using namespace std::chrono_literals;

namespace
{

using Order = void (FaultScript::*)(Endpoint, Occasion);

Fault plain(const char* name, Order order, Fault::Shown shown)
{
    return {name,
            [order](FaultScript& faults, Endpoint endpoint, Occasion occasion) { (faults.*order)(endpoint, occasion); },
            shown};
}

Fault bareStatus(int status)
{
    return {"Status" + std::to_string(status),
            [status](FaultScript& faults, Endpoint endpoint, Occasion occasion) {
                faults.answerStatus(endpoint, status, occasion);
            },
            status == 500 ? Fault::Shown::MayBeCarriedOut : Fault::Shown::Status, status};
}

QString reasonOf(int status)
{
    return u"Идут работы, «%1»"_s.arg(status);
}

Fault explainedStatus(int status)
{
    return {"Issue" + std::to_string(status),
            [status](FaultScript& faults, Endpoint endpoint, Occasion occasion) {
                faults.answerIssue(endpoint, status, reasonOf(status), occasion);
            },
            Fault::Shown::RegistrysText, status};
}

Fault body(const char* name, const QByteArray& body)
{
    return {name,
            [body](FaultScript& faults, Endpoint endpoint, Occasion occasion) {
                faults.answerBody(endpoint, body, occasion);
            },
            Fault::Shown::OperationsOwn};
}

QString ownTextOf(Endpoint endpoint)
{
    switch (endpoint) {
    case Endpoint::Token:
        return u"Ошибка при получении токена для авторизации"_s;
    case Endpoint::DispenseRegistration:
        return u"Ошибка при отпуске лекарственного препарата по рецепту"_s;
    default:
        return u"Ошибка при отмене отпуска лекарственного препарата по рецепту"_s;
    }
}

std::vector<Fault> allWithoutEffect()
{
    using Shown = Fault::Shown;
    std::vector<Fault> faults = {
        plain("Close", &FaultScript::closeBeforeAnswer, Shown::MayBeCarriedOut),
        plain("Reset", &FaultScript::resetBeforeAnswer, Shown::MayBeCarriedOut),
        plain("Html", &FaultScript::answerHtml, Shown::OperationsOwn),
        plain("Empty", &FaultScript::answerNothing, Shown::OperationsOwn),
        body("EmptyObject", "{}"),
        body("BundleWithoutEntries", R"({"resourceType": "Bundle", "entry": []})"),
        body("EntryOfAnotherStatus",
             R"({"resourceType": "Bundle", "entry": [{"transactionResponse": {"status": "POST:200"}}]})"),
    };
    for (const int status : {400, 401, 403, 404, 409, 500, 503}) {
        faults.push_back(bareStatus(status));
        faults.push_back(explainedStatus(status));
    }
    return faults;
}

} // namespace

void order(const Fault& fault, const Pharmacy& pharmacy, Endpoint endpoint, Occasion occasion)
{
    pharmacy.order([&](FaultScript& faults) { fault.order(faults, endpoint, occasion); });
}

void PrintTo(const Fault& fault, std::ostream* stream)
{
    *stream << fault.name;
}

const std::vector<Fault>& faultsWithoutEffect()
{
    static const std::vector<Fault> faults = allWithoutEffect();
    return faults;
}

const std::vector<Fault>& lostAnswers()
{
    using Shown = Fault::Shown;
    static const std::vector<Fault> faults = {
        plain("CutOff", &FaultScript::cutAnswerOff, Shown::MayBeCarriedOut),
        plain("CarriedOutThenClosed", &FaultScript::carryOutThenClose, Shown::MayBeCarriedOut),
        plain("CarriedOutThenReset", &FaultScript::carryOutThenReset, Shown::MayBeCarriedOut),
        plain("HalfOfJson", &FaultScript::answerHalfOfJson, Shown::OperationsOwn),
    };
    return faults;
}

Fault lateAnswer()
{
    return {"Late", [](FaultScript& faults, Endpoint endpoint, Occasion occasion) {
                faults.delay(endpoint, 1500ms, occasion);
            }};
}

Fault drippingAnswer()
{
    return {"Dripping",
            [](FaultScript& faults, Endpoint endpoint, Occasion occasion) { faults.drip(endpoint, 20ms, occasion); }};
}

Fault noAnswer()
{
    return plain("Never", &FaultScript::neverAnswer, Fault::Shown::MayBeCarriedOut);
}

void expectMessageOf(const Fault& fault, Endpoint endpoint, const QList<DialogDouble::Message>& shown)
{
    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown.first().kind, Dialog::Error);
    EXPECT_EQ(shown.first().sound, 1);
    EXPECT_EQ(shown.first().seconds, 0);
    const QString& text = shown.first().text;
    const QString uncertain = u"Запрос мог быть выполнен: прежде чем повторять, проверьте"_s;
    EXPECT_EQ(text.contains(uncertain), fault.shown == Fault::Shown::MayBeCarriedOut && endpoint != Endpoint::Token)
        << text.toStdString();
    switch (fault.shown) {
    case Fault::Shown::RegistrysText:
        EXPECT_EQ(text, reasonOf(fault.status));
        break;
    case Fault::Shown::Status:
        EXPECT_TRUE(text.contains(u"(ответ %1)"_s.arg(fault.status))) << text.toStdString();
        break;
    case Fault::Shown::OperationsOwn:
        EXPECT_EQ(text, ownTextOf(endpoint));
        break;
    case Fault::Shown::MayBeCarriedOut:
        EXPECT_TRUE(text.contains(u"127.0.0.1"_s)) << text.toStdString();
        break;
    }
}

std::string nameOf(Endpoint endpoint)
{
    switch (endpoint) {
    case Endpoint::Token:
        return "Token";
    case Endpoint::DispenseRegistration:
        return "Registration";
    default:
        return "Cancellation";
    }
}
