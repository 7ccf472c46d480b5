// SPDX-License-Identifier: MIT
#include "electronicprescriptioninterface.h"

#include "dispenseanswer.h"
#include "goodsitem.h"
#include "positionoptions.h"
#include "unsettledrequestexception.h"

using namespace Qt::StringLiterals;

namespace
{

void declareJsonBody(ElectronicPrescriptionInterface::Headers& headers)
{
    headers.insert(u"Content-Type"_s, u"application/json; charset=utf-8"_s);
}

/// Without the registry's own word, nobody knows what became of a request that was answered.
RestClient::Outcome outcomeOfAnswer(const QJsonObject& answer)
{
    return dispenseanswer::reportsAnything(answer) ? RestClient::Outcome::Settled : RestClient::Outcome::Unknown;
}

/// Each dispense in the answer writes its id; that of the last one stays.
void keepDispenseIds(const QJsonObject& answer, GoodsItem& position)
{
    const QStringList ids = dispenseanswer::dispenseIds(answer);
    for (const QString& id : ids) {
        PositionOptions options(position);
        options.setMedicationDispenseId(id);
        options.writeTo(position);
    }
}

} // namespace

void ElectronicPrescriptionInterface::sendMedicationDispense(const QSharedPointer<GoodsItem>& position) const
{
    QJsonDocument dispense;
    formMedicationDispense(position, dispense);

    Headers headers;
    formHeaders(headers);
    declareJsonBody(headers);
    const QUrl url = formUrl(requestsUrl, dispenseanswer::registrationPath);
    QJsonDocument answer;
    sendPostRequest(url, headers, dispense.toJson(QJsonDocument::Indented), answer);

    if (!checkRequestResultStatus(answer.object(), dispenseanswer::registered)) {
        throwRequestFailure(
            {u"electronicPrescriptionDispenseError"_s, u"Ошибка при отпуске лекарственного препарата по рецепту"_s},
            outcomeOfAnswer(answer.object()));
    }
    keepDispenseIds(answer.object(), *position);
}

void ElectronicPrescriptionInterface::sendCancelMedicationDispense(const QSharedPointer<GoodsItem>& position) const
{
    Headers headers;
    formHeaders(headers);
    declareJsonBody(headers);
    const QString id = PositionOptions(*position).medicationDispenseId();
    const QUrl url = formUrl(requestsUrl, dispenseanswer::cancellationPath(id));
    QJsonDocument answer;
    sendPostRequest(url, headers, QJsonDocument(QJsonObject()).toJson(QJsonDocument::Indented), answer);

    if (!checkRequestResultStatus(answer.object(), dispenseanswer::cancelled)) {
        throwRequestFailure({u"electronicPrescriptionCancelError"_s,
                             u"Ошибка при отмене отпуска лекарственного препарата по рецепту"_s},
                            outcomeOfAnswer(answer.object()));
    }
}
