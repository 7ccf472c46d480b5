// SPDX-License-Identifier: MIT
#include "statusline.h"

#include "currenttime.h"
#include "iconsviewnotifier.h"
#include "plaintooltip.h"
#include "registerstyle.h"
#include "tallokeyboard.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace
{
constexpr const char* permanent = "hint";
constexpr const char* done = "done";
constexpr const char* warning = "waiting";
constexpr int linesOfMessage = 2;
constexpr int roomAroundMessage = 8; // pixels
} // namespace

StatusLine::StatusLine(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(u"statusLine"_s);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(16, 0, 16, 6);
    layout->setSpacing(24);
    m_message = addLabel(u"statusMessageLabel"_s, 1);
    m_message->setWordWrap(true);
    m_message->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    // Always as high as the longest message, so that nothing moves under a finger when the message changes.
    m_message->setFixedHeight(linesOfMessage * fontMetrics().lineSpacing() + roomAroundMessage);
    m_plugins = addLabel(u"pluginStateLabel"_s, 0);
    m_keyboardLayout = addLabel(u"keyboardLayoutLabel"_s, 0);
    m_clock = addLabel(u"clockLabel"_s, 0);

    auto* timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &StatusLine::showTime);
    timer->start(std::chrono::seconds(1));
    showTime();
    connect(Singleton<IconsViewNotifier>::get(), &IconsViewNotifier::iconsChanged, this, &StatusLine::onIconsChanged);
}

QLabel* StatusLine::addLabel(const QString& name, int stretch)
{
    auto* label = new QLabel(this);
    label->setObjectName(name);
    label->setProperty("textRole", QLatin1StringView(permanent));
    label->setTextFormat(Qt::PlainText);
    static_cast<QHBoxLayout*>(layout())->addWidget(label, stretch);
    return label;
}

void StatusLine::showMessage(const QString& text)
{
    m_permanentMessage = text;
    dropNews();
}

void StatusLine::addProblem(const QString& text)
{
    m_problems.append(text);
    dropNews();
}

void StatusLine::showDone(const QString& text)
{
    show(text, done);
}

void StatusLine::showWarning(const QString& text)
{
    show(text, warning);
}

bool StatusLine::isWarningShown() const
{
    return m_message->property("textRole").toString() == QLatin1StringView(warning);
}

void StatusLine::dropNews()
{
    QStringList lines = m_problems;
    if (!m_permanentMessage.isEmpty()) {
        lines.append(m_permanentMessage);
    }
    show(lines.join(u'\n'), permanent);
}

void StatusLine::show(const QString& text, const char* textRole)
{
    m_message->setText(text);
    m_message->setToolTip(plainToolTip(text));
    setStyleProperty(*m_message, u"textRole"_s, QLatin1StringView(textRole));
}

void StatusLine::showPlugins(const QString& text, const QString& details)
{
    m_plugins->setText(text);
    m_plugins->setToolTip(plainToolTip(details));
}

void StatusLine::showTime()
{
    m_clock->setText(CurrentTime::create()->current().toString(u"dd.MM.yyyy hh:mm"_s));
}

void StatusLine::onIconsChanged(QEvent::Type type, QObject* source)
{
    const auto* keyboard = qobject_cast<TalloKeyboard*>(source);
    if (type == QEvent::KeyboardLayoutChange && keyboard) {
        m_keyboardLayout->setText(keyboard->currentLayout().toUpper());
    }
}
