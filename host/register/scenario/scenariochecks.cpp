// SPDX-License-Identifier: MIT
#include "scenariochecks.h"

#include "jsondifference.h"
#include "postedinput.h"
#include "widgettext.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QWidget>

using namespace Qt::StringLiterals;

QWidget* visibleWidget(const QString& name)
{
    QWidget* window = postedinput::activeWindow();
    if (!window) {
        return nullptr;
    }
    if (window->objectName() == name) {
        return window;
    }
    QWidget* found = nullptr;
    for (QWidget* widget : window->findChildren<QWidget*>(name)) {
        if (widget->isVisible() && (!found || widget->isEnabled())) {
            found = widget;
        }
    }
    return found;
}

StepResult notVisible(const QString& name)
{
    return {false, name + u" is not visible"_s};
}

ScenarioChecks::ScenarioChecks(const QString& dataFolder)
    : m_dataFolder(dataFolder)
{
}

StepResult ScenarioChecks::text(const ScenarioStep& step) const
{
    const QWidget* widget = visibleWidget(step.target);
    if (!widget) {
        return notVisible(step.target);
    }
    const QString actual = widgetText(*widget);
    const bool fits = step.kind == ScenarioStep::Kind::Expect ? actual == step.text : actual.contains(step.text);
    return {fits, step.target + u" shows \""_s + actual + u'"'};
}

StepResult ScenarioChecks::state(const ScenarioStep& step) const
{
    const QWidget* widget = visibleWidget(step.target);
    const bool wanted = step.value.toBool();
    if (step.kind == ScenarioStep::Kind::Visible) {
        return {(widget != nullptr) == wanted, step.target + (widget ? u" is visible"_s : u" is not visible"_s)};
    }
    if (!widget) {
        return notVisible(step.target);
    }
    return {widget->isEnabled() == wanted, step.target + (widget->isEnabled() ? u" is enabled"_s : u" is disabled"_s)};
}

StepResult ScenarioChecks::document(const QString& file, const QJsonValue& expected) const
{
    QFile saved(QDir(m_dataFolder).filePath(file));
    if (!saved.open(QIODevice::ReadOnly)) {
        return {false, file + u" cannot be read: "_s + saved.errorString()};
    }
    const QJsonDocument document = QJsonDocument::fromJson(saved.readAll());
    const std::optional<QString> difference = jsonDifference(expected, document.object());
    return {!difference, difference.value_or(QString())};
}

/// Runs of blanks count as one: they only arrange the paper.
StepResult ScenarioChecks::receipt(const ScenarioStep& step) const
{
    const QString file = u"printed/%1.txt"_s.arg(step.times, 8, 10, QChar(u'0'));
    QFile printed(QDir(m_dataFolder).filePath(file));
    if (!printed.open(QIODevice::ReadOnly)) {
        return {false, file + u" cannot be read: "_s + printed.errorString()};
    }
    const QString words = QString::fromUtf8(printed.readAll()).simplified();
    return {words.contains(step.text), file + u" says \""_s + words + u'"'};
}
