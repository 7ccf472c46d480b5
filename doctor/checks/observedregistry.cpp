// SPDX-License-Identifier: MIT
#include "observedregistry.h"

#include "electronicprescriptionexception.h"
#include "electronicprescriptionnoprescriptionsexception.h"
#include "restclient.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace doctor
{
namespace
{

constexpr qsizetype mostWords = 200;
const QString activeStatus = u"active"_s;

QString shortened(const QString& words)
{
    const QString line = words.simplified();
    return line.size() > mostWords ? line.first(mostWords) + u'…' : line;
}

} // namespace

RequestOutcome ObservedRegistry::askForToken()
{
    m_last = {};
    m_token.clear();
    QString token;
    try {
        getAuthorizationToken(token);
    } catch (const ElectronicPrescriptionException& failure) {
        m_last.words = withoutSecrets(failure.tr().ui());
    }
    return m_last;
}

ObservedRegistry::CardOutcome ObservedRegistry::askForCard(const QString& card)
{
    m_last = {};
    CardOutcome outcome;
    QJsonArray prescriptions;
    QJsonObject patient;
    try {
        getElectronicPrescriptionsByCardNumber(card, activeStatus, prescriptions, patient);
    } catch (const ElectronicPrescriptionNoPrescriptionsException&) {
        outcome.isEmpty = true;
    } catch (const ElectronicPrescriptionException& failure) {
        outcome.isUnusable = m_last.code == 0;
        m_last.words = withoutSecrets(failure.tr().ui());
    }
    outcome.prescriptions = prescriptions.size();
    outcome.request = std::exchange(m_last, {});
    return outcome;
}

void ObservedRegistry::getAuthorizationToken(QString& token) const
{
    if (m_token.isEmpty()) {
        ElectronicPrescriptionInterface::getAuthorizationToken(m_token);
    }
    token = m_token;
}

void ObservedRegistry::getRequestResult(const QSharedPointer<RestClient>& client, QJsonDocument& result) const
{
    m_last.code = client->errorCode();
    m_last.answer = client->answer();
    ElectronicPrescriptionInterface::getRequestResult(client, result);
}

QString ObservedRegistry::withoutSecrets(QString words) const
{
    for (const QString& secret : {clientSecret, oais, m_token}) {
        if (!secret.isEmpty()) {
            words.replace(secret, u"***"_s);
            words.replace(QString::fromLatin1(QUrl::toPercentEncoding(secret)), u"***"_s);
        }
    }
    return shortened(words);
}

} // namespace doctor
