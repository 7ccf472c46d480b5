// SPDX-License-Identifier: MIT
#include "scenario.h"

#include "postedinput.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <iterator>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{

/// The member of ScenarioStep that a member in JSON is read into.
enum class Slot { Target, Text, Value, Times };

/// A kind of step: the JSON member that identifies it, and its second member, if any.
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

constexpr auto timeLimit = "seconds";

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
    return member == QLatin1StringView(form.member) || member == QLatin1StringView(timeLimit) ||
           (form.second && member == QLatin1StringView(form.second));
}

/// The first member that the kind of step does not have; nothing: it has all of them.
std::optional<QString> unknownMember(const Form& form, const QJsonObject& object)
{
    const QStringList members = object.keys();
    const auto unknown =
        std::find_if(members.cbegin(), members.cend(), [&form](const QString& name) { return !isKnown(form, name); });
    return unknown == members.cend() ? std::nullopt : std::optional(*unknown);
}

QJsonValue::Type typeOf(Slot slot)
{
    return slot == Slot::Times ? QJsonValue::Double : QJsonValue::String;
}

Failure wrongType(const char* member)
{
    return untranslatedFailure(u'"' + QLatin1StringView(member) + u"\" has a value of the wrong type"_s);
}

/// Why the step cannot be played whatever the register does; nothing: it may be played.
std::optional<Failure> obstacleTo(const ScenarioStep& step)
{
    if (step.kind == Kind::Key && !postedinput::keyNamed(step.text)) {
        return untranslatedFailure(u"there is no key \""_s + step.text + u'"');
    }
    return std::nullopt;
}

Expected<ScenarioStep> readStep(const QJsonObject& object)
{
    const auto* form = std::find_if(std::begin(forms), std::end(forms), [&object](const Form& candidate) {
        return object.contains(QLatin1StringView(candidate.member));
    });
    if (form == std::end(forms)) {
        return untranslatedFailure(u"no known kind of step"_s);
    }
    if (const std::optional<QString> unknown = unknownMember(*form, object)) {
        return untranslatedFailure(u"unknown member \""_s + *unknown + u'"');
    }
    const QJsonValue main = object.value(QLatin1StringView(form->member));
    if (main.type() != form->type) {
        return wrongType(form->member);
    }
    ScenarioStep step;
    step.kind = form->kind;
    step.source = QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
    step.seconds = object.value(QLatin1StringView(timeLimit)).toInt(step.seconds);
    fill(step, form->holds, main);
    if (form->second) {
        const QJsonValue second = object.value(QLatin1StringView(form->second));
        if (second.isUndefined() && form->secondRequired) {
            return untranslatedFailure(u"\""_s + QLatin1StringView(form->second) + u"\" is missing"_s);
        }
        if (!second.isUndefined() && second.type() != typeOf(form->secondHolds)) {
            return wrongType(form->second);
        }
        if (!second.isUndefined()) {
            fill(step, form->secondHolds, second);
        }
    }
    if (const std::optional<Failure> obstacle = obstacleTo(step)) {
        return *obstacle;
    }
    return step;
}

} // namespace

Expected<QList<ScenarioStep>> readScenario(const QString& file)
{
    QFile scenario(file);
    if (!scenario.open(QIODevice::ReadOnly)) {
        return untranslatedFailure(file + u": "_s + scenario.errorString());
    }
    Expected<QList<ScenarioStep>> steps = parseScenario(scenario.readAll());
    if (!steps) {
        return untranslatedFailure(file + u": "_s + steps.failure().detail);
    }
    return steps;
}

Expected<QList<ScenarioStep>> parseScenario(const QByteArray& json)
{
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    if (document.isNull()) {
        return untranslatedFailure(parseError.errorString());
    }
    const QJsonValue list = document.object().value("steps"_L1);
    if (!list.isArray()) {
        return untranslatedFailure(u"it has no list \"steps\""_s);
    }

    QList<ScenarioStep> steps;
    for (const auto entry : list.toArray()) {
        const Expected<ScenarioStep> step = readStep(entry.toObject());
        if (!step) {
            return untranslatedFailure(u"step "_s + QString::number(steps.size() + 1) + u": "_s +
                                       step.failure().detail);
        }
        steps.append(*step);
    }
    return steps;
}
