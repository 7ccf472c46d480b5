// SPDX-License-Identifier: MIT
#include "scenarioplayer.h"

#include "abstractdocument.h"
#include "jsondifference.h"
#include "postedinput.h"
#include "widgettext.h"

#include <QAbstractItemView>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QLineEdit>
#include <QPixmap>
#include <QWidget>

#include <cstdio>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

using std::chrono::milliseconds;

constexpr milliseconds lookInterval(20);
/// Between two keys: slower than a scanner, or the register would take typing for a scan.
constexpr milliseconds typingPace(70);
constexpr milliseconds scanningPace(2);
constexpr milliseconds pressingPace(30);

void print(FILE* stream, const QString& text)
{
    std::fputs((text + u'\n').toUtf8().constData(), stream);
    std::fflush(stream);
}

} // namespace

ScenarioPlayer::ScenarioPlayer(const QList<ScenarioStep>& steps, const QString& screenshots, const QString& dataFolder,
                               QObject* parent)
    : QObject(parent)
    , m_steps(steps)
    , m_screenshots(screenshots)
    , m_dataFolder(dataFolder)
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
    m_inputMade = false;
    m_since.start();
    if (m_current == m_steps.size()) {
        end(true); // at once: the last step may have asked the window to close
    } else {
        scheduleTick(lookInterval);
    }
}

/// A fresh single shot each time: a timer would not fire again inside an event loop that its own slot started.
void ScenarioPlayer::scheduleTick(milliseconds delay)
{
    QTimer::singleShot(delay, this, &ScenarioPlayer::tick);
}

void ScenarioPlayer::tick()
{
    const ScenarioStep& step = m_steps.at(m_current);
    const Look look = perform(step);
    if (look.done) {
        beginStep();
    } else if (m_since.hasExpired(milliseconds(std::chrono::seconds(step.seconds)).count())) {
        fail(look.why);
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
    end(false);
}

void ScenarioPlayer::end(bool held)
{
    emit finished(held);
}

ScenarioPlayer::Look ScenarioPlayer::perform(const ScenarioStep& step)
{
    switch (step.kind) {
    case ScenarioStep::Kind::Wait:
        return visibleWidget(step.target) ? Look{true, {}} : missing(step.target);
    case ScenarioStep::Kind::Key:
    case ScenarioStep::Kind::Click:
    case ScenarioStep::Kind::Type:
    case ScenarioStep::Kind::Scan:
        return performInput(step);
    case ScenarioStep::Kind::Row:
        return makeCurrent(step);
    case ScenarioStep::Kind::Expect:
    case ScenarioStep::Kind::Contains:
        return compareText(step);
    case ScenarioStep::Kind::Enabled:
    case ScenarioStep::Kind::Visible:
        return compareState(step);
    case ScenarioStep::Kind::OpenDocument:
        return compareDocument(AbstractDocument::openDocumentFile, step.value);
    case ScenarioStep::Kind::SavedFile:
        return compareDocument(step.target, step.value);
    case ScenarioStep::Kind::Printed:
        return comparePrinted(step);
    case ScenarioStep::Kind::Screenshot:
        return takePicture(step.text);
    case ScenarioStep::Kind::Say:
        print(stdout, step.text);
        return {true, {}};
    case ScenarioStep::Kind::Print: {
        const QWidget* widget = visibleWidget(step.target);
        if (!widget) {
            return missing(step.target);
        }
        print(stdout, widgetText(*widget));
        return {true, {}};
    }
    case ScenarioStep::Kind::Close:
        if (QWidget* window = postedinput::activeWindow()) {
            QMetaObject::invokeMethod(window, &QWidget::close, Qt::QueuedConnection);
        }
        return {true, {}};
    }
    return {false, u"not a step"_s};
}

/// The first look prepares the presses, each further one makes one of them; the step is done when all are made.
ScenarioPlayer::Look ScenarioPlayer::performInput(const ScenarioStep& step)
{
    if (!m_inputMade) {
        Look prepared = step.kind == ScenarioStep::Kind::Click ? click(step)
                        : step.kind == ScenarioStep::Kind::Key ? press(step)
                                                               : enter(step);
        if (!prepared.done) {
            return prepared;
        }
        m_inputMade = true;
    }
    if (!m_input.isEmpty()) {
        if (!m_input.constFirst()()) {
            return {false, u"the register has no active window"_s};
        }
        m_input.removeFirst();
    }
    return {m_input.isEmpty(), u"not all keys were pressed in time"_s};
}

ScenarioPlayer::Look ScenarioPlayer::press(const ScenarioStep& step)
{
    const std::optional<QKeyCombination> key = postedinput::keyNamed(step.text);
    if (!key) {
        return {false, u"there is no key of that name"_s};
    }
    m_pace = pressingPace;
    for (int pressed = 0; pressed < step.times; ++pressed) {
        m_input.append([combination = *key] { return postedinput::pressKey(combination); });
    }
    return {true, {}};
}

ScenarioPlayer::Look ScenarioPlayer::click(const ScenarioStep& step)
{
    QWidget* widget = visibleWidget(step.target);
    if (!widget) {
        return missing(step.target);
    }
    if (!widget->isEnabled()) {
        return {false, step.target + u" cannot be used"_s};
    }
    postedinput::click(*widget);
    return {true, {}};
}

ScenarioPlayer::Look ScenarioPlayer::enter(const ScenarioStep& step)
{
    if (!step.target.isEmpty()) {
        QWidget* widget = visibleWidget(step.target);
        if (!widget) {
            return missing(step.target);
        }
        widget->setFocus();
        if (auto* line = qobject_cast<QLineEdit*>(widget)) {
            line->selectAll();
        }
    }
    const bool scanned = step.kind == ScenarioStep::Kind::Scan;
    m_pace = scanned ? scanningPace : typingPace;
    for (const QChar character : step.text) {
        m_input.append([character] { return postedinput::typeCharacter(character); });
    }
    if (scanned) {
        m_input.append([] { return postedinput::pressKey(Qt::Key_Return); });
    }
    return {true, {}};
}

ScenarioPlayer::Look ScenarioPlayer::makeCurrent(const ScenarioStep& step)
{
    auto* table = qobject_cast<QAbstractItemView*>(visibleWidget(step.target));
    if (!table) {
        return missing(step.target);
    }
    if (!table->model() || step.times < 0 || step.times >= table->model()->rowCount()) {
        return {false, step.target + u" has no such row"_s};
    }
    table->setCurrentIndex(table->model()->index(step.times, 0));
    return {true, {}};
}

ScenarioPlayer::Look ScenarioPlayer::compareText(const ScenarioStep& step) const
{
    const QWidget* widget = visibleWidget(step.target);
    if (!widget) {
        return missing(step.target);
    }
    const QString actual = widgetText(*widget);
    const bool held = step.kind == ScenarioStep::Kind::Expect ? actual == step.text : actual.contains(step.text);
    return {held, step.target + u" shows \""_s + actual + u'"'};
}

ScenarioPlayer::Look ScenarioPlayer::compareState(const ScenarioStep& step) const
{
    const QWidget* widget = visibleWidget(step.target);
    const bool wanted = step.value.toBool();
    if (step.kind == ScenarioStep::Kind::Visible) {
        return {(widget != nullptr) == wanted, step.target + (widget ? u" can be seen"_s : u" cannot be seen"_s)};
    }
    if (!widget) {
        return missing(step.target);
    }
    return {widget->isEnabled() == wanted,
            step.target + (widget->isEnabled() ? u" can be used"_s : u" cannot be used"_s)};
}

ScenarioPlayer::Look ScenarioPlayer::compareDocument(const QString& file, const QJsonValue& expected) const
{
    QFile saved(QDir(m_dataFolder).filePath(file));
    if (!saved.open(QIODevice::ReadOnly)) {
        return {false, file + u" cannot be read: "_s + saved.errorString()};
    }
    const QJsonDocument document = QJsonDocument::fromJson(saved.readAll());
    const QString difference = jsonDifference(expected, document.object());
    return {difference.isEmpty(), difference};
}

/// Blanks between words do not count, nor how many there are: they only arrange the paper.
ScenarioPlayer::Look ScenarioPlayer::comparePrinted(const ScenarioStep& step) const
{
    const QString file = u"printed/%1.txt"_s.arg(step.times, 8, 10, QChar(u'0'));
    QFile printed(QDir(m_dataFolder).filePath(file));
    if (!printed.open(QIODevice::ReadOnly)) {
        return {false, file + u" cannot be read: "_s + printed.errorString()};
    }
    const QString words = QString::fromUtf8(printed.readAll()).simplified();
    return {words.contains(step.text), file + u" says \""_s + words + u'"'};
}

ScenarioPlayer::Look ScenarioPlayer::takePicture(const QString& name) const
{
    QWidget* window = postedinput::activeWindow();
    if (!window) {
        return {false, u"the register has no active window"_s};
    }
    const QString file = QDir(m_screenshots).filePath(name + u".png"_s);
    return {window->grab().save(file), u"the picture cannot be written: "_s + file};
}

QWidget* ScenarioPlayer::visibleWidget(const QString& name)
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

ScenarioPlayer::Look ScenarioPlayer::missing(const QString& name)
{
    return {false, name + u" cannot be seen"_s};
}
