// SPDX-License-Identifier: MIT
#pragma once

#include "configured.h"
#include "electronicprescriptioninterface.h"
#include "goodsitem.h"
#include "mocked.h"
#include "restclient.h"

#include <QJsonDocument>
#include <QList>
#include <QSharedPointer>
#include <QString>
#include <QUrl>

#include <gtest/gtest.h>

#include <functional>

using namespace Qt::StringLiterals;

/// The JSON document of a text; fails the test when it is none.
QJsonDocument json(const char* text);

/// What the registry client handed to the HTTP client.
struct SentRequest {
    QByteArray method;
    QUrl url;
    ElectronicPrescriptionInterface::Headers headers;
    QByteArray body;
    /// Of a GET; null when the client gave none.
    QJsonDocument document;
    int timeout = 0;
    /// Number of the client that sent it, from 1.
    int client = 0;
    /// It was sent in a WorkStep that changes nothing on the server.
    bool isWithoutEffect = false;

    /// What goes over the wire after the host and the port.
    QByteArray target() const { return url.toEncoded(QUrl::RemoveScheme | QUrl::RemoveAuthority); }
};

/// An answer of the HTTP client.
struct Answered {
    QJsonDocument document;
    int errorCode = 0;
    tr::Tr errorText;
    RestClient::Outcome outcome = RestClient::Outcome::Settled;
};

/// An exception of the plug-in, as a value.
struct Thrown {
    enum Kind { Nothing, Error, NoPrescriptions };

    Kind kind = Nothing;
    tr::Tr message;

    bool operator==(const Thrown&) const = default;
};
std::ostream& operator<<(std::ostream& stream, const Thrown& thrown);

/// Runs the step and returns which of the plug-in's exceptions it threw.
Thrown thrownBy(const std::function<void()>& step);

/// The registry client with a configuration of the test's own and with HTTP clients that answer what the test says.
class RegistryTest : public ::testing::Test
{
protected:
    RegistryTest();

    /// The settings of a pharmacy, in every key.
    void configurePharmacy();

    /// Queues an answer. Without one left, an HTTP client answers with null and without an error.
    void answer(const char* text) { answers.append({json(text), 0, {}}); }
    void fail(int errorCode, const char* text = "{}");
    /// Queues the answer to a token request.
    void grantToken() { answer(R"({"access_token": "token-1"})"); }

    Configured config;
    QList<Answered> answers;
    QList<SentRequest> requests;
    int clients = 0;

    const tr::Tr transportError{u"transportError"_s, u"Нет связи с реестром"_s};

private:
    class Client;

    Mocked<RestClient> m_mocked;
};

/// A position whose values the test sets.
struct PositionDouble : GoodsItem {
    double quantity = 1.0;
    double tmcPrice = 0.0;
    double sum = 0.0;

    explicit PositionDouble(const char* options = "") { GoodsItem::setExtendedOptions(QString::fromUtf8(options)); }
    double getQuantity() const override { return quantity; }
    double getTmcPrice() const override { return tmcPrice; }
    double getSumb() const override { return sum; }
    void setExtendedOptions(const QString& options) override
    {
        GoodsItem::setExtendedOptions(options);
        ++optionsWritten;
    }

    int optionsWritten = 0;
};
