// SPDX-License-Identifier: MIT
#include "examination.h"

#include "accesschecks.h"
#include "config.h"
#include "finally.h"
#include "server.h"
#include "serverchecks.h"
#include "settingscheck.h"

#include <QElapsedTimer>

#include <array>
#include <deque>
#include <utility>

using namespace Qt::StringLiterals;

namespace doctor
{
namespace
{

const QString configurationCheck = u"configuration"_s;
const QString tokenCheck = u"token"_s;
const QString oaisCheck = u"oais"_s;
const QString cardCheck = u"card"_s;

constexpr int defaultTimeout = 60;
constexpr int requestsAtMost = 3; // the token, the card, and once more without a card

/// A row of the table of checks.
struct ServerCheck {
    const char* name;
    Finding (*check)(Server&, const TimeLimit&);
};

constexpr std::array serverChecks = {
    ServerCheck{"name", checkName}, //
    ServerCheck{"connection", checkConnection},
    ServerCheck{"tls", checkTls},
    ServerCheck{"answer", checkAnswer},
    ServerCheck{"clock", checkClock},
};

bool isSameServer(const QUrl& left, const QUrl& right)
{
    return left.scheme() == right.scheme() && left.host() == right.host() && left.port() == right.port();
}

/// True when the base address is configured, and one that can be asked.
bool isUsable(const QString& key)
{
    const QUrl url(Singleton<Config>::get()->getString(key));
    return (url.scheme() == "http"_L1 || url.scheme() == "https"_L1) && !url.host().isEmpty() &&
           url.userInfo().isEmpty();
}

class Examination
{
public:
    Examination(const ExaminationRequest& request, const std::function<void(const CheckResult&)>& found)
        : m_request(request)
        , m_found(found)
        , m_limit(request.limits)
        , m_config(request.configFile)
    {
    }

    QList<CheckResult> run()
    {
        Config* former = std::exchange(Singleton<Config>::instance, &m_config);
        const Finally restoring([former] { Singleton<Config>::instance = former; });
        examineSettings();
        configureThisRun();
        const ObservedRegistry registry; // knows the URLs of the operations
        Server* authorization = examineServer(u"ElectronicPrescription:authorizationUrl"_s, registry.tokenOperation());
        Server* requests = examineServer(u"ElectronicPrescription:requestsUrl"_s, registry.cardOperation());
        shortenRequests();
        examineAccess(authorization, requests);
        return m_results;
    }

private:
    void examineSettings()
    {
        QElapsedTimer timer;
        timer.start();
        for (const Finding& found : checkSettings(m_config, m_request.configFile)) {
            add({configurationCheck, {}, found, timer.elapsed()});
        }
    }

    /// The till's journal of requests is not ours to write to.
    void configureThisRun() { m_config.setForThisRun(u"RestClient:journal"_s, {}); }

    void shortenRequests()
    {
        const QString key = u"ElectronicPrescription:timeout"_s;
        const int configured = m_config.getInt(key, defaultTimeout);
        const int most = m_limit.request(requestsAtMost);
        m_config.setForThisRun(key, QString::number(configured > 0 ? std::min(configured, most) : most));
    }

    /// @return null when the address cannot be used
    Server* examineServer(const QString& key, const QUrl& operation)
    {
        if (!isUsable(key)) {
            return nullptr;
        }
        for (Server& known : m_servers) {
            if (isSameServer(known.operation(), operation)) {
                return &known;
            }
        }
        Server& server = m_servers.emplace_back(operation, QUrl(m_config.getString(u"RestClient:proxy"_s)));
        for (const ServerCheck& row : serverChecks) {
            examineServer(server, row);
        }
        return &server;
    }

    void examineServer(Server& server, const ServerCheck& row)
    {
        const QString check = QString::fromLatin1(row.name);
        const CheckResult& result =
            make(check, server.name(), server.failedCheck, [&] { return row.check(server, m_limit); });
        if (result.finding.state == State::Wrong && server.failedCheck.isEmpty()) {
            server.failedCheck = check;
        }
    }

    void examineAccess(const Server* authorization, const Server* requests)
    {
        Access access;
        access.authorizationHost = authorization ? authorization->host() : QString();
        access.requestsHost = requests ? requests->host() : QString();
        access.card = m_request.card;
        make(tokenCheck, {}, obstacle(authorization), [&] { return checkToken(access); });
        const bool isOaisSeen = access.hasToken || access.isStoppedByOais;
        make(oaisCheck, {}, isOaisSeen ? QString() : tokenCheck, [&] { return checkOais(access); });
        make(cardCheck, {}, access.hasToken ? obstacle(requests) : tokenCheck, [&] { return checkCard(access); });
    }

    /// The check that keeps requests from a server; empty: none does.
    static QString obstacle(const Server* server)
    {
        if (!server) {
            return configurationCheck;
        }
        return server->isReached ? QString() : server->failedCheck;
    }

    /// Makes a check, unless one that it needs has failed.
    template <typename Check>
    const CheckResult& make(const QString& name, const QString& server, const QString& failed, const Check& check)
    {
        QElapsedTimer timer;
        timer.start();
        if (!failed.isEmpty()) {
            return add({name, server, finding(FindingCode::NotReached, {failed})});
        }
        if (m_limit.isOver()) {
            return add({name, server, finding(FindingCode::TimeIsUp, {m_limit.wholeSeconds()})});
        }
        const Finding found = check();
        return add({name, server, found, timer.elapsed()});
    }

    const CheckResult& add(const CheckResult& result)
    {
        m_results.append(result);
        if (m_found) {
            m_found(result);
        }
        return m_results.constLast();
    }

    const ExaminationRequest& m_request;
    const std::function<void(const CheckResult&)>& m_found;
    const TimeLimit m_limit;
    Config m_config;
    std::deque<Server> m_servers;
    QList<CheckResult> m_results;
};

} // namespace

QList<CheckResult> examine(const ExaminationRequest& request, const std::function<void(const CheckResult&)>& found)
{
    return Examination(request, found).run();
}

} // namespace doctor
