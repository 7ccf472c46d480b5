// SPDX-License-Identifier: MIT
#include "busyscreen.h"

#include "currenttime.h"
#include "pluginscope.h"
#include "question.h"
#include "registerstyle.h"
#include "runningrequest.h"
#include "touchmode.h"
#include "tr.h"
#include "workstep.h"
#include "wrappedlabel.h"

#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
/// In the smallest window, in pixels.
constexpr int panelWidth = 560;
constexpr int touchTarget = 44;
constexpr int ringSize = 64;
constexpr int ringRoom = ringSize + 32;
constexpr int linesOfMessage = 2;
constexpr int linesOfStep = 4;
constexpr int linesOfTime = 2;
constexpr int linesOfHint = 2;
constexpr int degreesPerTurn = 360;
constexpr int step = 12; // degrees
constexpr auto stepTime = std::chrono::milliseconds(33);

QString seconds(std::chrono::seconds time)
{
    return QString::number(time.count());
}

/// @param since when the work began
/// @param request null: none runs now
QString timeText(const QString& since, const RunningRequest* request, const WorkLimit& limit)
{
    if (!request && !limit.isKnown()) {
        return tr::Tr(u"busySince"_s, u"Начато в %1"_s).arg(since).ui();
    }
    return tr::Tr(u"busySinceWithLimit"_s, u"Начато в %1. Ждём ответа %2 с, самое большее %3 с"_s)
        .arg(since)
        .arg(seconds(request ? request->elapsed() : limit.elapsed()))
        .arg(seconds(request ? request->limit() : limit.most()))
        .ui();
}

QString hintText(const RunningRequest* request)
{
    if (!request) {
        return {};
    }
    if (isTouchMode()) {
        return (request->changesSomething()
                    ? tr::Tr(u"busyTapAsks"_s, u"Коснитесь здесь, чтобы не ждать ответа (касса переспросит)"_s)
                    : tr::Tr(u"busyTapStops"_s, u"Коснитесь здесь, чтобы прекратить: ничего не записывается"_s))
            .ui();
    }
    return (request->changesSomething() ? tr::Tr(u"busyEscapeAsks"_s, u"Esc — не ждать ответа (касса переспросит)"_s)
                                        : tr::Tr(u"busyEscapeStops"_s, u"Esc — прекратить: ничего не записывается"_s))
        .ui();
}

Question stopQuestion()
{
    return {
        {u"busyStopTitle"_s, u"Не ждать ответа?"_s},
        {u"busyStopQuestion"_s,
         u"Запрос мог уже дойти до сервера и быть выполнен. Если не ждать ответа, касса не узнает, записано ли это: "
         "придётся выяснять, прежде чем повторять.\nНадёжнее дождаться ответа."_s},
        {u"busyStopYes"_s, u"Не ждать"_s},
        {u"busyStopNo"_s, u"Ждать дальше"_s},
    };
}

} // namespace

BusyScreen::BusyScreen(QWidget* parent)
    : QWidget(parent)
    , m_panel(new QWidget(this))
{
    setObjectName(u"busyScreen"_s);
    fillPanel();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_panel, 0, Qt::AlignCenter);

    m_turning.setInterval(stepTime);
    connect(&m_turning, &QTimer::timeout, this, [this] {
        m_angle = (m_angle + step) % degreesPerTurn;
        showProgress();
        update();
    });
    RunningRequest::setEscape(this, [this](RunningRequest& request) { stopWaiting(request); });
    hide();
}

void BusyScreen::fillPanel()
{
    m_panel->setFixedWidth(scaledPixels(panelWidth));
    auto* layout = new QVBoxLayout(m_panel);
    layout->setContentsMargins(24, ringRoom, 24, 16);
    layout->setSpacing(8);
    m_message = addText(u"busyMessageLabel"_s, linesOfMessage);
    m_step = addText(u"busyStepLabel"_s, linesOfStep);
    m_time = addText(u"busyTimeLabel"_s, linesOfTime);
    m_hint = addText(u"busyHintLabel"_s, linesOfHint);
    m_hint->setProperty("textRole", u"hint"_s);
    if (isTouchMode()) {
        m_hint->setProperty("stopsWaiting", true); // see InputBlocker
        m_hint->setFixedHeight(std::max(m_hint->height(), scaledPixels(touchTarget)));
    }
}

/// As high as the longest text, so that nothing moves while the work goes on.
WrappedLabel* BusyScreen::addText(const QString& name, int lines)
{
    auto* label = new WrappedLabel(m_panel);
    label->setObjectName(name);
    label->setFixedHeight(lines * label->fontMetrics().lineSpacing());
    m_panel->layout()->addWidget(label);
    return label;
}

void BusyScreen::start(const QString& message, const WorkLimit& limit)
{
    if (!m_isWorking) {
        m_since = CurrentTime::create()->current().toString(u"HH:mm:ss"_s);
    }
    m_isWorking = true;
    m_limit = limit;
    m_message->setText(message);
    setAccessibleName(message);
    showProgress();
    setGeometry(parentWidget()->rect());
    show();
    raise();
    takeFocus();
    repaint();
}

void BusyScreen::showProgress()
{
    const RunningRequest* request = RunningRequest::current();
    m_step->setText(request ? request->step() : WorkStep::currentText());
    m_time->setText(timeText(m_since, request, m_limit));
    m_hint->setText(hintText(request));
}

void BusyScreen::stopWaiting(RunningRequest& request)
{
    if (!isVisible()) {
        return;
    }
    if (!request.changesSomething()) {
        request.stop();
        return;
    }
    const PluginScope ownCode(QString{});
    if (stopQuestion().ask()) {
        request.stop();
    }
}

/// Without the focus, the caret of the input below would keep blinking.
void BusyScreen::takeFocus()
{
    QWidget* focused = window()->focusWidget();
    if (focused == this) {
        return;
    }
    m_focusBefore = focused;
    setFocus();
}

void BusyScreen::stop()
{
    if (window()->focusWidget() == this && m_focusBefore) {
        m_focusBefore->setFocus();
    }
    m_isWorking = false;
    hide();
}

void BusyScreen::setCovered(bool covered)
{
    setVisible(m_isWorking && !covered);
}

void BusyScreen::paintEvent(QPaintEvent*)
{
    const RegisterColours colours;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor veil = colours.text;
    veil.setAlpha(96);
    painter.fillRect(rect(), veil);

    const QRect panel = m_panel->geometry();
    painter.setPen(colours.line);
    painter.setBrush(colours.panel);
    painter.drawRoundedRect(panel, 8, 8);

    QRect ring(0, 0, ringSize, ringSize);
    ring.moveCenter({panel.center().x(), panel.top() + ringRoom / 2 + 4});
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colours.raised, 8));
    painter.drawEllipse(ring);
    painter.setPen(QPen(colours.accent, 8, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(ring, -m_angle * 16, 90 * 16);
}

void BusyScreen::showEvent(QShowEvent*)
{
    m_turning.start();
}

void BusyScreen::hideEvent(QHideEvent*)
{
    m_turning.stop();
}
