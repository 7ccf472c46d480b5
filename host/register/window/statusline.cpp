// SPDX-License-Identifier: MIT
#include "statusline.h"

#include "currenttime.h"
#include "directionmarks.h"
#include "functionkey.h"
#include "iconsviewnotifier.h"
#include "plaintooltip.h"
#include "registerstyle.h"
#include "shownkey.h"
#include "tallokeyboard.h"
#include "tr.h"
#include "wrappedlabel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace
{
constexpr const char* permanent = "hint";
constexpr const char* done = "done";
constexpr const char* warning = "waiting";
constexpr int linesOfStatus = 2;
constexpr int roomAroundMessage = 10; // pixels; in touch mode the button is as high as the message then
} // namespace

StatusLine::StatusLine(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(u"statusLine"_s);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(16, 0, 16, 6);
    layout->setSpacing(24);
    m_message = new WrappedLabel(this);
    m_message->setObjectName(u"statusMessageLabel"_s);
    m_message->setProperty("textRole", QLatin1StringView(permanent));
    layout->addWidget(m_message, 1);
    m_message->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    // Always as high as the longest message, so that nothing moves under a finger when the message changes.
    m_message->setFixedHeight(linesOfStatus * fontMetrics().lineSpacing() + roomAroundMessage);
    m_more = addButton();
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

QPushButton* StatusLine::addButton()
{
    auto* button = new QPushButton(this);
    button->setObjectName(u"statusMoreButton"_s);
    button->setText(tr::Tr(u"statusMore"_s, u"Подробнее"_s).ui());
    button->setAccessibleName(button->text());
    button->setToolTip(shownKey(wholeMessageKey));
    button->setAutoDefault(false);
    button->setFocusPolicy(Qt::NoFocus); // the focus stays where the next scan is expected
    button->hide();
    static_cast<QHBoxLayout*>(layout())->addWidget(button);
    const auto tell = [this] {
        const QString message = m_message->text();
        emit moreWanted(m_details.isEmpty() ? message : message + u'\n' + m_details);
    };
    connect(button, &QPushButton::clicked, this, tell);
    m_moreKey = new QShortcut(wholeMessageKey, this);
    connect(m_moreKey, &QShortcut::activated, this, [this, tell] {
        if (isButtonShown()) {
            tell();
        }
    });
    return button;
}

QKeySequence StatusLine::buttonKey() const
{
    return m_moreKey->key();
}

void StatusLine::giveButtonKeyAway()
{
    m_moreKey->setKey({});
    m_more->setToolTip({});
}

bool StatusLine::isButtonShown() const
{
    return m_more->isVisible();
}

bool StatusLine::isButtonAt(const QPoint& place) const
{
    return isButtonShown() && m_more->rect().contains(m_more->mapFromGlobal(place));
}

void StatusLine::resizeEvent(QResizeEvent*)
{
    offerMore();
}

/// The button takes room from the message: a text that just fits without it is cut beside it, and the button shows it.
void StatusLine::offerMore()
{
    layout()->activate();
    m_more->setVisible(!m_message->text().isEmpty() && (!m_details.isEmpty() || m_message->isCut()));
}

void StatusLine::showMessage(const QString& text, const QString& details)
{
    m_permanentMessage = text;
    m_permanentDetails = details;
    dropNews();
}

void StatusLine::addProblem(const QString& text)
{
    m_problems.append(text);
    dropNews();
}

void StatusLine::showStanding(const QStringList& warnings)
{
    if (m_standing != warnings) {
        m_standing = warnings;
        dropNews();
    }
}

void StatusLine::showDone(const QString& text)
{
    show(text, done);
}

void StatusLine::showWarning(const QString& text)
{
    show(text, warning);
    m_isWarningShown = true;
}

void StatusLine::dropNews()
{
    QStringList lines = m_problems;
    if (!m_permanentMessage.isEmpty()) {
        lines.prepend(m_permanentMessage); // what does not work comes first: the rest may be cut
    }
    show((m_standing + lines).join(u'\n'), m_standing.isEmpty() ? permanent : warning, m_permanentDetails);
}

void StatusLine::show(const QString& text, const char* textRole, const QString& details)
{
    m_isWarningShown = false;
    m_message->setText(withoutDirectionMarks(text));
    m_message->setToolTip(plainToolTip(text));
    m_details = withoutDirectionMarks(details);
    setStyleProperty(*m_message, u"textRole"_s, QLatin1StringView(textRole));
    m_more->hide();
    offerMore();
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
