// SPDX-License-Identifier: MIT
#include "busyscreen.h"

#include "registerstyle.h"

#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace
{
constexpr int panelWidth = 520;
constexpr int panelHeight = 220;
constexpr int ringSize = 64;
constexpr int degreesPerTurn = 360;
constexpr int step = 12; // degrees
constexpr auto stepTime = std::chrono::milliseconds(33);
} // namespace

BusyScreen::BusyScreen(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(u"busyScreen"_s);
    m_message = new QLabel(this);
    m_message->setObjectName(u"busyMessageLabel"_s);
    m_message->setTextFormat(Qt::PlainText);
    m_message->setWordWrap(true);
    m_message->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    m_message->setFixedSize(panelWidth - 48, panelHeight / 2 - 24);

    auto* layout = new QVBoxLayout(this);
    layout->addStretch();
    layout->addSpacing(panelHeight / 2);
    layout->addWidget(m_message, 0, Qt::AlignHCenter);
    layout->addSpacing(24);
    layout->addStretch();

    m_turning.setInterval(stepTime);
    connect(&m_turning, &QTimer::timeout, this, [this] {
        m_angle = (m_angle + step) % degreesPerTurn;
        update();
    });
    hide();
}

void BusyScreen::start(const QString& message)
{
    m_isWorking = true;
    m_message->setText(message);
    setAccessibleName(message);
    setGeometry(parentWidget()->rect());
    show();
    raise();
    takeFocus();
    repaint();
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

    QRect panel(0, 0, std::min(panelWidth, width()), std::min(panelHeight, height()));
    panel.moveCenter(rect().center());
    painter.setPen(colours.line);
    painter.setBrush(colours.panel);
    painter.drawRoundedRect(panel, 8, 8);

    QRect ring(0, 0, ringSize, ringSize);
    ring.moveCenter({panel.center().x(), panel.top() + panelHeight / 4 + 8});
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
