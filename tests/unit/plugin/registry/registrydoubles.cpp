// SPDX-License-Identifier: MIT
#include "registrydoubles.h"

#include "electronicprescriptionexception.h"
#include "electronicprescriptionnoprescriptionsexception.h"
#include "workstep.h"

using namespace Qt::StringLiterals;

QJsonDocument json(const char* text)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << text;
    return document;
}

std::ostream& operator<<(std::ostream& stream, const Thrown& thrown)
{
    return stream << thrown.kind << ' ' << thrown.message.key().toStdString() << ' '
                  << thrown.message.text().toStdString();
}

Thrown thrownBy(const std::function<void()>& step)
{
    try {
        step();
    } catch (const ElectronicPrescriptionNoPrescriptionsException& exception) {
        return {Thrown::NoPrescriptions, exception.tr()};
    } catch (const ElectronicPrescriptionException& exception) {
        return {Thrown::Error, exception.tr()};
    }
    return {};
}

/// Sends nothing: writes down what it is to send, and answers what the test queued.
class RegistryTest::Client : public RestClient
{
public:
    explicit Client(RegistryTest& test)
        : m_test(test)
        , m_number(++test.clients)
    {
    }

    void setTimeout(int seconds) override { m_timeout = seconds; }

    void get(const QUrl& url, const QJsonDocument& body, const QHash<QString, QString>& headers) override
    {
        m_test.requests.append({"GET", url, headers, {}, body, m_timeout, m_number, WorkStep::isWithoutEffect()});
        takeAnswer();
    }

    void post(const QUrl& url, const QByteArray& body, const QHash<QString, QString>& headers) override
    {
        m_test.requests.append({"POST", url, headers, body, {}, m_timeout, m_number, WorkStep::isWithoutEffect()});
        takeAnswer();
    }

    int errorCode() const override { return m_answer.errorCode; }
    tr::Tr errorText() const override { return m_answer.errorText; }
    QJsonDocument answer() const override { return m_answer.document; }
    Outcome outcome() const override { return m_answer.outcome; }

private:
    void takeAnswer()
    {
        if (!m_test.answers.isEmpty()) {
            m_answer = m_test.answers.takeFirst();
        }
    }

    RegistryTest& m_test;
    int m_number;
    int m_timeout = 0;
    Answered m_answer;
};

RegistryTest::RegistryTest()
    : m_mocked([this] { return QSharedPointer<Client>::create(*this); })
{
}

void RegistryTest::configurePharmacy()
{
    const std::pair<const char*, const char*> settings[] = {
        {"requestsUrl", "https://registry.example/api/"},
        {"authorizationUrl", "https://login.example"},
        {"timeout", "17"},
        {"clientId", "pharmacy-1"},
        {"clientSecret", "s3cret"},
        {"scope", "prescriptions dispenses"},
        {"organizationIdentifier", "org-9"},
        {"organizationName", "Аптека № 9"},
        {"organizationAddress", "г. Минск, ул. Лесная, 1"},
        {"oais", "oais-token"},
    };
    for (const auto& [name, value] : settings) {
        config.set(u"ElectronicPrescription:"_s + name, value);
    }
}

void RegistryTest::fail(int errorCode, const char* text)
{
    answers.append({json(text), errorCode, transportError});
}
