// SPDX-License-Identifier: MIT
#include "scenarioplayer.h"

#include "abstractdocument.h"
#include "postedinput.h"
#include "widgettext.h"

#include <QAbstractItemView>
#include <QDir>
#include <QLineEdit>
#include <QPixmap>
#include <QWidget>

#include <algorithm>
#include <cstdio>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

using std::chrono::milliseconds;

constexpr milliseconds lookInterval(20);
/// Slower than a scanner: the register takes fast keys for a scan.
constexpr milliseconds typingPace(70);
constexpr milliseconds pressingPace(30);

void print(FILE* stream, const QString& text)
{
    std::fputs((text + u'\n').toUtf8().constData(), stream);
    std::fflush(stream);
}

/// All keys at once: a timer between them would fire late on a busy machine, and the rest look like typing.
bool scan(const QString& text)
{
    const QList<uint> characters = text.toUcs4();
    return std::all_of(characters.cbegin(), characters.cend(), postedinput::typeCharacter) &&
           postedinput::pressKey(Qt::Key_Return);
}

} // namespace

ScenarioPlayer::ScenarioPlayer(const QList<ScenarioStep>& steps, const QString& screenshots, const QString& dataFolder,
                               QObject* parent)
    : QObject(parent)
    , m_steps(steps)
    , m_screenshots(screenshots)
    , m_checks(dataFolder)
{
}

void ScenarioPlayer::start()
{
    beginStep();
}

void ScenarioPlayer::beginStep()
{
    ++m_current;
    m_input.clear();
    m_isInputPrepared = false;
    m_stepTime.start();
    if (m_current == m_steps.size()) {
        emit finished(true); // at once: the last step may have asked the window to close
    } else {
        scheduleTick(lookInterval);
    }
}

/// A new single shot each time: a timer does not fire again inside an event loop that its own slot started.
void ScenarioPlayer::scheduleTick(milliseconds delay)
{
    QTimer::singleShot(delay, this, &ScenarioPlayer::tick);
}

void ScenarioPlayer::tick()
{
    const ScenarioStep& step = m_steps.at(m_current);
    const StepResult result = perform(step);
    if (result.done) {
        beginStep();
    } else if (m_stepTime.hasExpired(milliseconds(std::chrono::seconds(step.seconds)).count())) {
        fail(result.why);
    } else {
        scheduleTick(m_input.isEmpty() ? lookInterval : m_pace);
    }
}

void ScenarioPlayer::fail(const QString& why)
{
    const ScenarioStep& step = m_steps.at(m_current);
    takePicture(u"failure"_s);
    print(stderr, u"Step "_s + QString::number(m_current + 1) + u" of "_s + QString::number(m_steps.size()) +
                      u" failed: "_s + step.source + u"\n  "_s + why + u"\n  Picture: "_s +
                      QDir(m_screenshots).filePath(u"failure.png"_s));
    emit finished(false);
}

StepResult ScenarioPlayer::perform(const ScenarioStep& step)
{
    switch (step.kind) {
    case ScenarioStep::Kind::Wait:
        return visibleWidget(step.target) ? StepResult{true, {}} : notVisible(step.target);
    case ScenarioStep::Kind::Key:
    case ScenarioStep::Kind::Click:
    case ScenarioStep::Kind::Type:
    case ScenarioStep::Kind::Scan:
        return performInput(step);
    case ScenarioStep::Kind::Row:
        return makeCurrent(step);
    case ScenarioStep::Kind::Expect:
    case ScenarioStep::Kind::Contains:
        return m_checks.text(step);
    case ScenarioStep::Kind::Enabled:
    case ScenarioStep::Kind::Visible:
        return m_checks.state(step);
    case ScenarioStep::Kind::OpenDocument:
        return m_checks.document(AbstractDocument::openDocumentFile, step.value);
    case ScenarioStep::Kind::SavedFile:
        return m_checks.document(step.target, step.value);
    case ScenarioStep::Kind::Printed:
        return m_checks.receipt(step);
    case ScenarioStep::Kind::Screenshot:
        return takePicture(step.text);
    case ScenarioStep::Kind::Say:
        print(stdout, step.text);
        return {true, {}};
    case ScenarioStep::Kind::Print:
        return printText(step);
    case ScenarioStep::Kind::Close:
        if (QWidget* window = postedinput::activeWindow()) {
            QMetaObject::invokeMethod(window, &QWidget::close, Qt::QueuedConnection);
        }
        return {true, {}};
    }
    return {false, u"not a step"_s};
}

StepResult ScenarioPlayer::printText(const ScenarioStep& step)
{
    const QWidget* widget = visibleWidget(step.target);
    if (!widget) {
        return notVisible(step.target);
    }
    print(stdout, widgetText(*widget));
    return {true, {}};
}

/// The first call prepares the key presses; each further call posts one of them. The step is done after the last one.
StepResult ScenarioPlayer::performInput(const ScenarioStep& step)
{
    if (!m_isInputPrepared) {
        StepResult prepared = step.kind == ScenarioStep::Kind::Click ? click(step)
                              : step.kind == ScenarioStep::Kind::Key ? press(step)
                                                                     : enter(step);
        if (!prepared.done) {
            return prepared;
        }
        m_isInputPrepared = true;
    }
    if (!m_input.isEmpty()) {
        if (!m_input.constFirst()()) {
            return {false, u"the register has no active window"_s};
        }
        m_input.removeFirst();
    }
    return {m_input.isEmpty(), u"not all keys were pressed in time"_s};
}

StepResult ScenarioPlayer::press(const ScenarioStep& step)
{
    m_pace = pressingPace;
    for (int pressed = 0; pressed < step.times; ++pressed) {
        m_input.append([name = step.text] { return postedinput::pressKey(postedinput::keyNamed(name).value()); });
    }
    return {true, {}};
}

StepResult ScenarioPlayer::click(const ScenarioStep& step)
{
    QWidget* widget = visibleWidget(step.target);
    if (!widget) {
        return notVisible(step.target);
    }
    if (!widget->isEnabled()) {
        return {false, step.target + u" is disabled"_s};
    }
    if (!postedinput::canBeClicked(*widget)) {
        return {false, u"the middle of "_s + step.target + u" cannot be seen"_s};
    }
    postedinput::click(*widget);
    return {true, {}};
}

StepResult ScenarioPlayer::enter(const ScenarioStep& step)
{
    if (!step.target.isEmpty()) {
        QWidget* widget = visibleWidget(step.target);
        if (!widget) {
            return notVisible(step.target);
        }
        widget->setFocus();
        if (auto* line = qobject_cast<QLineEdit*>(widget)) {
            line->selectAll();
        }
    }
    if (step.kind == ScenarioStep::Kind::Scan) {
        m_input.append([text = step.text] { return scan(text); });
        return {true, {}};
    }
    m_pace = typingPace;
    for (const char32_t character : step.text.toUcs4()) {
        m_input.append([character] { return postedinput::typeCharacter(character); });
    }
    return {true, {}};
}

StepResult ScenarioPlayer::makeCurrent(const ScenarioStep& step)
{
    auto* table = qobject_cast<QAbstractItemView*>(visibleWidget(step.target));
    if (!table) {
        return notVisible(step.target);
    }
    if (!table->model() || step.times < 0 || step.times >= table->model()->rowCount()) {
        return {false, step.target + u" has no such row"_s};
    }
    table->setCurrentIndex(table->model()->index(step.times, 0));
    return {true, {}};
}

StepResult ScenarioPlayer::takePicture(const QString& name) const
{
    QWidget* window = postedinput::activeWindow();
    if (!window) {
        return {false, u"the register has no active window"_s};
    }
    const QString file = QDir(m_screenshots).filePath(name + u".png"_s);
    return {window->grab().save(file), u"the picture cannot be written: "_s + file};
}
