// SPDX-License-Identifier: MIT
#include "scenario.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <iterator>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{

/// Where a step's member goes.
enum class Slot { Target, Text, Value, Times };

/// How a kind of step is written: the member that names it, what that member holds, and its second member.
struct Form {
    const char* member = nullptr;
    ScenarioStep::Kind kind = ScenarioStep::Kind::Wait;
    Slot holds = Slot::Target;
    QJsonValue::Type type = QJsonValue::String;
    const char* second = nullptr;
    Slot secondHolds = Slot::Target;
    bool secondRequired = false;
};

using Kind = ScenarioStep::Kind;

const Form forms[] = {
    {"wait", Kind::Wait, Slot::Target, QJsonValue::String},
    {"click", Kind::Click, Slot::Target, QJsonValue::String},
    {"key", Kind::Key, Slot::Text, QJsonValue::String, "times", Slot::Times},
    {"type", Kind::Type, Slot::Text, QJsonValue::String, "into"},
    {"scan", Kind::Scan, Slot::Text, QJsonValue::String, "into"},
    {"row", Kind::Row, Slot::Times, QJsonValue::Double, "in", Slot::Target, true},
    {"expect", Kind::Expect, Slot::Text, QJsonValue::String, "in", Slot::Target, true},
    {"contains", Kind::Contains, Slot::Text, QJsonValue::String, "in", Slot::Target, true},
    {"enabled", Kind::Enabled, Slot::Value, QJsonValue::Bool, "in", Slot::Target, true},
    {"visible", Kind::Visible, Slot::Value, QJsonValue::Bool, "in", Slot::Target, true},
    {"receipt", Kind::OpenDocument, Slot::Value, QJsonValue::Object},
    {"document", Kind::SavedFile, Slot::Value, QJsonValue::Object, "file", Slot::Target, true},
    {"printed", Kind::Printed, Slot::Text, QJsonValue::String, "number", Slot::Times, true},
    {"screenshot", Kind::Screenshot, Slot::Text, QJsonValue::String},
    {"say", Kind::Say, Slot::Text, QJsonValue::String},
    {"print", Kind::Print, Slot::Target, QJsonValue::String},
    {"close", Kind::Close, Slot::Value, QJsonValue::Bool},
};

constexpr auto patience = "seconds";

void fill(ScenarioStep& step, Slot slot, const QJsonValue& value)
{
    switch (slot) {
    case Slot::Target:
        step.target = value.toString();
        break;
    case Slot::Text:
        step.text = value.toString();
        break;
    case Slot::Value:
        step.value = value;
        break;
    case Slot::Times:
        step.times = value.toInt();
        break;
    }
}

bool isKnown(const Form& form, const QString& member)
{
    return member == QLatin1StringView(form.member) || member == QLatin1StringView(patience) ||
           (form.second && member == QLatin1StringView(form.second));
}

/// Reads one step; without a value, `error` says what is wrong with it.
std::optional<ScenarioStep> readStep(const QJsonObject& object, QString& error)
{
    const auto* form = std::find_if(std::begin(forms), std::end(forms), [&object](const Form& candidate) {
        return object.contains(QLatin1StringView(candidate.member));
    });
    if (form == std::end(forms)) {
        error = u"no known kind of step"_s;
        return std::nullopt;
    }
    const QStringList members = object.keys();
    const auto odd =
        std::find_if(members.cbegin(), members.cend(), [form](const QString& name) { return !isKnown(*form, name); });
    if (odd != members.cend()) {
        error = u"unknown member \""_s + *odd + u'"';
        return std::nullopt;
    }
    const QJsonValue main = object.value(QLatin1StringView(form->member));
    if (main.type() != form->type) {
        error = u"\""_s + QLatin1StringView(form->member) + u"\" holds a value of the wrong kind"_s;
        return std::nullopt;
    }
    ScenarioStep step;
    step.kind = form->kind;
    step.source = QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
    step.seconds = object.value(QLatin1StringView(patience)).toInt(step.seconds);
    fill(step, form->holds, main);
    if (form->second) {
        const QJsonValue second = object.value(QLatin1StringView(form->second));
        if (second.isUndefined() && form->secondRequired) {
            error = u"\""_s + QLatin1StringView(form->second) + u"\" is missing"_s;
            return std::nullopt;
        }
        if (!second.isUndefined()) {
            fill(step, form->secondHolds, second);
        }
    }
    return step;
}

} // namespace

ScenarioFile ScenarioFile::read(const QString& file)
{
    QFile scenario(file);
    if (!scenario.open(QIODevice::ReadOnly)) {
        return {{}, file + u": "_s + scenario.errorString()};
    }
    ScenarioFile parsed = parse(scenario.readAll());
    if (!parsed.error.isEmpty()) {
        parsed.error.prepend(file + u": "_s);
    }
    return parsed;
}

ScenarioFile ScenarioFile::parse(const QByteArray& json)
{
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    if (document.isNull()) {
        return {{}, parseError.errorString()};
    }
    const QJsonValue steps = document.object().value("steps"_L1);
    if (!steps.isArray()) {
        return {{}, u"it has no list \"steps\""_s};
    }

    ScenarioFile scenario;
    for (const auto entry : steps.toArray()) {
        QString error;
        std::optional<ScenarioStep> step = readStep(entry.toObject(), error);
        if (!step) {
            return {{}, u"step "_s + QString::number(scenario.steps.size() + 1) + u": "_s + error};
        }
        scenario.steps.append(*step);
    }
    return scenario;
}
