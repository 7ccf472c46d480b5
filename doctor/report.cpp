// SPDX-License-Identifier: MIT
#include "report.h"

#include "currenttime.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace doctor
{
namespace
{

/// A word for people, and one for programs.
template <typename Value>
struct WordRow {
    Value value;
    const char* name;
    const char* key;
    const char* text;

    QString ui() const { return tr::Tr(QString::fromLatin1(key), QString::fromUtf8(text)).ui(); }
};

constexpr std::array states = {
    WordRow<State>{State::Good, "ok", "doctorStateGood", "OK"},
    WordRow<State>{State::Warning, "warning", "doctorStateWarning", "WARNING"},
    WordRow<State>{State::Wrong, "wrong", "doctorStateWrong", "WRONG"},
    WordRow<State>{State::NotChecked, "not-checked", "doctorStateNotChecked", "--"},
};

constexpr std::array kinds = {
    WordRow<Kind>{Kind::None, "none", "doctorKindNone", "all well"},
    WordRow<Kind>{Kind::Configuration, "configuration", "doctorKindConfiguration", "configuration"},
    WordRow<Kind>{Kind::Network, "network", "doctorKindNetwork", "network"},
    WordRow<Kind>{Kind::Tls, "tls", "doctorKindTls", "TLS"},
    WordRow<Kind>{Kind::Clock, "clock", "doctorKindClock", "clock"},
    WordRow<Kind>{Kind::Credentials, "credentials", "doctorKindCredentials", "credentials"},
    WordRow<Kind>{Kind::Registry, "registry", "doctorKindRegistry", "the answer of the registry"},
};

constexpr std::array advisers = {
    WordRow<Adviser>{Adviser::Nobody, "nobody", "doctorAskNobody", "Nobody is to be asked"},
    WordRow<Adviser>{Adviser::Integrator, "integrator", "doctorAskIntegrator",
                     "For the integrator, who wrote the configuration"},
    WordRow<Adviser>{Adviser::NetworkAdministrator, "network-administrator", "doctorAskNetworkAdministrator",
                     "Ask the network administrator"},
    WordRow<Adviser>{Adviser::TillAdministrator, "till-administrator", "doctorAskTillAdministrator",
                     "For the administrator of the till"},
    WordRow<Adviser>{Adviser::Operator, "registry-operator", "doctorAskOperator",
                     "Write to the operator of the registry"},
};

template <typename Table, typename Value>
const WordRow<Value>& rowOf(const Table& table, Value value)
{
    return *std::find_if(table.begin(), table.end(), [value](const auto& row) { return row.value == value; });
}

// Widths of columns.
constexpr int stateWidth = 9;
constexpr int checkWidth = 15;
constexpr int timeWidth = 9;

qsizetype count(const QList<CheckResult>& results, State state)
{
    return std::count_if(results.cbegin(), results.cend(),
                         [state](const CheckResult& result) { return result.finding.state == state; });
}

bool isMade(const CheckResult& result)
{
    return result.finding.state != State::NotChecked;
}

QString timeOf(const CheckResult& result)
{
    const tr::Tr time(u"doctorMilliseconds"_s, u"%1 ms"_s);
    return isMade(result) ? time.arg(QString::number(result.milliseconds)).ui() : QString();
}

QJsonObject jsonOf(const CheckResult& result)
{
    const Finding& found = result.finding;
    QJsonObject json{
        {"check"_L1, result.check},
        {"state"_L1, QLatin1StringView(rowOf(states, found.state).name)},
        {"finding"_L1, found.name},
        {"text"_L1, found.text.ui()},
    };
    if (!result.server.isEmpty()) {
        json["server"_L1] = result.server;
    }
    if (isMade(result)) {
        json["milliseconds"_L1] = result.milliseconds;
    }
    if (found.adviser != Adviser::Nobody) {
        json["kind"_L1] = QLatin1StringView(rowOf(kinds, found.kind).name);
        json["ask"_L1] = QLatin1StringView(rowOf(advisers, found.adviser).name);
        json["advice"_L1] = found.advice.ui();
    }
    return json;
}

} // namespace

QString headOf(const QString& configFile)
{
    const QString time = CurrentTime::create()->current().toUTC().toString(u"yyyy-MM-dd hh:mm:ss"_s);
    return QCoreApplication::applicationName() + u' ' + QCoreApplication::applicationVersion() + u", "_s + time +
           u" UTC, "_s + configFile + u'\n';
}

QString lineOf(const CheckResult& result)
{
    const QString server = result.server.isEmpty() ? QString() : result.server + u": "_s;
    QString line = rowOf(states, result.finding.state).ui().leftJustified(stateWidth) +
                   result.check.leftJustified(checkWidth) + timeOf(result).rightJustified(timeWidth) + u"  "_s +
                   server + result.finding.text.ui() + u'\n';
    if (result.finding.adviser != Adviser::Nobody) {
        line += QString(stateWidth, u' ') + rowOf(advisers, result.finding.adviser).ui() + u": "_s +
                result.finding.advice.ui() + u'\n';
    }
    return line;
}

QString summaryOf(const QList<CheckResult>& results)
{
    const int status = exitStatus(results);
    return tr::Tr(u"doctorSummary"_s, u"Good: %1, warnings: %2, wrong: %3, not checked: %4. Exit status %5: %6."_s)
               .arg(QString::number(count(results, State::Good)))
               .arg(QString::number(count(results, State::Warning)))
               .arg(QString::number(count(results, State::Wrong)))
               .arg(QString::number(count(results, State::NotChecked)))
               .arg(QString::number(status))
               .arg(rowOf(kinds, Kind(status)).ui())
               .ui() +
           u'\n';
}

QByteArray jsonOf(const QList<CheckResult>& results)
{
    QJsonArray checks;
    for (const CheckResult& result : results) {
        checks.append(jsonOf(result));
    }
    const int status = exitStatus(results);
    const QJsonObject report{
        {"time"_L1, CurrentTime::create()->current().toUTC().toString(Qt::ISODate)},
        {"status"_L1, status},
        {"kind"_L1, QLatin1StringView(rowOf(kinds, Kind(status)).name)},
        {"checks"_L1, checks},
    };
    return QJsonDocument(report).toJson();
}

} // namespace doctor
