// SPDX-License-Identifier: MIT
#pragma once

#include "rawconnection.h"
#include "refusal.h"
#include "registryemulator.h"

#include <gtest/gtest.h>

#include <memory>

/// An emulator in this process with a seed of its own; requests go over the wire. Its clock shows 20 March 2024 until a
/// test changes it.
class EmulatorTest : public ::testing::Test
{
protected:
    EmulatorTest();

    /// Seed with one pharmacy ("pharmacy", secret "s&c+ret", scopes "read dispense", organization "17"), a second one
    /// ("other", "other", "dispense", "18") and the card "1100" of Пробный Пётр Петрович; see seed.json beside this.
    static QByteArray seedJson();

    /// Sends a request on a connection of its own.
    RawAnswer ask(const QByteArray& method, const QByteArray& target, const emulator::HttpHeaders& headers = {},
                  const QByteArray& body = {});
    RawAnswer askForToken(const QByteArray& form, const emulator::HttpHeaders& headers = {});
    /// A form for which the registry issues a token.
    static QByteArray goodForm(const QByteArray& scope = "read%20dispense");
    /// Headers of a resource request, with a new token.
    emulator::HttpHeaders admitted(const QByteArray& form = goodForm());
    RawAnswer byCard(const QByteArray& query);

    /// Sends the document as a registration.
    RawAnswer registerDispense(const QJsonObject& document);
    RawAnswer cancelDispense(const QByteArray& id);
    /// A dispense of 10 doses of the full-price prescription "rx-full".
    static QJsonObject fullPriceDispense();
    /// A dispense of 10 doses of the prescription "rx-half", half paid by "payer-1", at 20.00.
    static QJsonObject halfPriceDispense();
    static QString idOfDispense(const RawAnswer& registration);
    QString statusOf(const QString& prescription);

    QDateTime m_now{QDate(2024, 3, 20), QTime(12, 0)};
    std::unique_ptr<emulator::RegistryEmulator> m_emulator;
};

/// Expects that refusal as the answer: its status, its whole body and its headers.
/// @param values what the placeholders of its text stand for
void expectRefusal(const RawAnswer& answer, emulator::RefusalCode code, const QStringList& values = {});

/// The object with another value at a path. The path has names of members and indexes of arrays, separated by dots.
/// Undefined removes the member.
QJsonObject with(const QJsonObject& object, const QString& path, const QJsonValue& value);
