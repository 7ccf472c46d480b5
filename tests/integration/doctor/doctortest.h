// SPDX-License-Identifier: MIT
#pragma once

#include "examination.h"
#include "nameresolver.h"

#include "mocked.h"
#include "registrythread.h"
#include "serveridentity.h"

#include <QJsonObject>
#include <QMap>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

/// A registry with the client "pharmacy" (secret "s&c+ret", scopes "read dispense", organization "17"), the card of
/// Пробный Пётр Петрович and one without prescriptions, and a configuration that fits it. After each test nothing
/// secret, no card and no name may have been shown.
class DoctorTest : public ::testing::Test
{
protected:
    DoctorTest();
    ~DoctorTest() override;

    /// Starts the registry, and lets the configuration name it.
    /// @param rules of its seed
    void startRegistry(const QJsonObject& rules = {}, emulator::EmulatorSettings settings = {});
    /// The same over HTTPS; the configuration trusts its authority.
    void startSecureRegistry(const ServerIdentity::Wish& wish = {});
    /// Lets the configuration name this server for everything.
    void useServer(const QUrl& url);

    void configure(const QString& name, const QString& value) { ini[u"ElectronicPrescription"_s][name] = value; }
    void removeKey(const QString& name) { ini[u"ElectronicPrescription"_s].remove(name); }
    /// Writes the configuration, which only its owner can read.
    QString writeConfiguration();
    /// A file beside the configuration.
    QString write(const QString& name, const QByteArray& content, QFile::Permissions permissions);

    /// Writes the configuration and makes all checks. The results stay in `results`.
    void examine(const QString& card = {});

    /// The result of the check; of a check of servers the first one.
    doctor::CheckResult resultOf(const QString& check) const;
    /// Expects that this is the first thing that is wrong, whom it is to be asked of, and that it decides the status.
    void expectWrong(const QString& check, doctor::FindingCode code, doctor::Adviser adviser, int status) const;
    void expectFinding(const QString& check, doctor::FindingCode code) const;
    /// Expects that the check was not made since another one failed.
    void expectNotReached(const QString& check, const QString& failed) const;
    /// All lines for a person.
    QString shown() const;

    // Longer than a port, which may be shown.
    const QString testCard = u"1100000000000017"_s;
    const QString emptyCard = u"1100000000000018"_s;

    QTemporaryDir folder;
    QMap<QString, QMap<QString, QString>> ini; ///< values by section and name
    doctor::Limits limits;
    QStringList secrets; ///< texts that must not be shown, besides those of the configuration and the seed
    QList<doctor::CheckResult> results;
    std::unique_ptr<RegistryThread> registry;
    std::optional<TestAuthority> authority;
    std::optional<ServerIdentity> identity;
};

/// Lets names have the addresses that the test says, for as long as it lives.
class ResolverDouble
{
public:
    explicit ResolverDouble(const doctor::ResolvedName& resolved)
        : m_mocked([resolved] { return QSharedPointer<Resolver>::create(resolved); })
    {
    }

private:
    class Resolver : public doctor::NameResolver
    {
    public:
        explicit Resolver(const doctor::ResolvedName& resolved)
            : m_resolved(resolved)
        {
        }
        doctor::ResolvedName resolve(const QString& /*host*/, int /*milliseconds*/) const override
        {
            return m_resolved;
        }

    private:
        doctor::ResolvedName m_resolved;
    };

    Mocked<doctor::NameResolver> m_mocked;
};
