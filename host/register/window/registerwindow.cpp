// SPDX-License-Identifier: MIT
#include "registerwindow.h"

#include "actionhost.h"
#include "actionqueuecontroller.h"
#include "askform.h"
#include "config.h"
#include "documentwords.h"
#include "formlayer.h"
#include "helpform.h"
#include "inputblocker.h"
#include "notice.h"
#include "registeraction.h"
#include "screenhelp.h"
#include "stoppedaction.h"
#include "taptips.h"
#include "touchmode.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QShortcut>
#include <QTimer>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
constexpr QSize smallestWindow(1024, 600);
constexpr auto unwindingRound = std::chrono::milliseconds(10);

/// What a form says of itself; of the register's own forms, what their table says.
HelpParams helpOf(const BasicForm& form)
{
    const QWidget* root = form.rootWidget();
    const auto* title = root ? root->findChild<QLabel*>(u"titleLabel"_s) : nullptr;
    const QString name = root ? root->objectName() : QString();
    return {title ? title->text() : QString(), form.help().isEmpty() ? screenHelp(name) : form.help()};
}
} // namespace

RegisterWindow::RegisterWindow(Till& till, const PositionMarks& marks, const QList<FunctionKey>& keys,
                               const LongWork& longWork, const QString& unlockCode)
    : m_stage(new QWidget(this))
    , m_sales(new SalesScreen(till, marks, keys))
    , m_statusLine(new StatusLine)
    , m_ground(new QWidget(m_stage))
    , m_busy(new BusyScreen(m_stage))
    , m_lock(new LockScreen(unlockCode, LockState(Singleton<Config>::get()->getString(u"Register:data"_s)), this))
    , m_help(new QShortcut(helpKey, m_stage))
    , m_isHelpKeyTaken(keyWithShortcut(keys, helpKey) != nullptr)
{
    setObjectName(u"registerWindow"_s);
    setWindowTitle(tr::Tr(u"registerTitle"_s, u"Касса аптеки"_s).ui());
    setMinimumSize(smallestWindow);
    arrangeGround();
    showWork(longWork);
    showDocuments(till);
    showConflicts(keys);
    offerCommands();
    connect(Singleton<ActionQueueController>::get(), &ActionQueueController::stopped, this, &RegisterWindow::showStop);
    // A message belongs to the action that showed it.
    connect(Singleton<ActionQueueController>::get(), &ActionQueueController::idle, this,
            [] { Singleton<GraphicalUserInterface>::get()->host().lastMessage.clear(); });
    connect(m_statusLine, &StatusLine::moreWanted, this,
            [](const QString& text) { showNotice(tr::Tr(tr::undefined, u"%1"_s).arg(text)); });
    connect(m_lock, &LockScreen::unlocked, this, &RegisterWindow::uncover);
    if (keyWithShortcut(keys, wholeMessageKey)) {
        m_statusLine->giveButtonKeyAway();
    }
    m_help->setAutoRepeat(false);
    m_help->setEnabled(!m_isHelpKeyTaken);
    connect(m_help, &QShortcut::activated, this, &RegisterWindow::showHelp);
    if (isTouchMode()) {
        new TapTips(this);
    }
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { keepFocusInLock(now); });
    qApp->installEventFilter(this);
    m_sales->setFocus();
    if (m_lock->isLocked()) {
        cover();
    }
}

void RegisterWindow::offerCommands()
{
    ActionHost& host = Singleton<ActionQueueController>::get()->host();
    host.setHandler(registeraction::lock, [this](control::Action&) {
        lock();
        return EContext::GoOn;
    });
    host.setHandler(registeraction::showHelp, [this](control::Action&) {
        showHelp();
        return EContext::GoOn;
    });
}

/// The widgets below it are destroyed after it, and the focus moves with each. A form that is open goes with it, and
/// who asked for the form must not find the window any more.
RegisterWindow::~RegisterWindow()
{
    if (FormHost& forms = Singleton<GraphicalUserInterface>::get()->host(); forms.stage == this) {
        forms.stage = nullptr;
    }
    qApp->removeEventFilter(this);
    disconnect(qApp, nullptr, this, nullptr);
}

void RegisterWindow::arrangeGround()
{
    auto* groundLayout = new QVBoxLayout(m_ground);
    groundLayout->setContentsMargins(0, 0, 0, 0);
    groundLayout->setSpacing(0);
    groundLayout->addWidget(m_sales, 1);
    groundLayout->addWidget(m_statusLine);
    for (const auto& [outer, inner] : {std::pair<QWidget*, QWidget*>(m_stage, m_ground), {this, m_stage}}) {
        auto* layout = new QVBoxLayout(outer);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(inner);
    }
}

/// Refreshes the positions after each piece of work: a plug-in may have changed them.
void RegisterWindow::showWork(const LongWork& longWork)
{
    connect(&longWork, &LongWork::running, m_busy, &BusyScreen::start);
    connect(&longWork, &LongWork::ended, m_busy, &BusyScreen::stop);
    connect(&longWork, &LongWork::ended, m_sales, &SalesScreen::refresh);
    connect(Singleton<ActionQueueController>::get(), &ActionQueueController::idle, m_sales, &SalesScreen::refresh);
}

/// Shows in the status line what happens to documents.
void RegisterWindow::showDocuments(const Till& till)
{
    connect(m_sales, &SalesScreen::ended, this,
            [this](const Document& document) { m_statusLine->showDone(documentwords::ending(document)); });
    connect(&till, &Till::voided, this, [this](const Document& document, Document::State before) {
        m_statusLine->showDone(documentwords::voiding(document, before));
    });
    connect(&till, &Till::changed, this, [this, &till] {
        if (till.document() && !m_statusLine->isWarningShown()) {
            m_statusLine->dropNews();
        }
    });
}

/// In touch mode each button works all the same.
void RegisterWindow::showConflicts(const QList<FunctionKey>& keys)
{
    if (isTouchMode()) {
        return;
    }
    for (const FunctionKey& key : keys) {
        if (!key.lostTo.isEmpty()) {
            m_statusLine->addProblem(shortcutConflict(key).ui());
        }
    }
}

void RegisterWindow::waitUntilSeen(QEventLoop& loop)
{
    if (!m_lock->isLocked()) {
        return;
    }
    const auto unlocking = connect(m_lock, &LockScreen::unlocked, &loop, &QEventLoop::quit);
    loop.exec();
    disconnect(unlocking);
}

void RegisterWindow::enter(BasicForm& form)
{
    auto* layer = new FormLayer(form, m_stage);
    m_layers.append(layer);
    layer->setGeometry(rect());
    layer->show();
    layer->raise();
    arrangeLayers();
}

void RegisterWindow::leave(BasicForm& form)
{
    const auto layer =
        std::find_if(m_layers.begin(), m_layers.end(), [&form](FormLayer* shown) { return shown->form() == &form; });
    if (layer == m_layers.end()) {
        return;
    }
    (*layer)->release();
    delete *layer;
    m_layers.erase(layer);
    arrangeLayers();
    if (m_layers.isEmpty()) {
        m_sales->setFocus();
    }
}

/// True for a key or a click of a cashier who goes on working: not for one that asks what the warning says, or what the
/// help says.
bool RegisterWindow::goesOn(const QEvent& event) const
{
    if (isHelpOnTop()) {
        return false;
    }
    switch (event.type()) {
    case QEvent::MouseButtonPress:
        return !m_statusLine->isButtonAt(static_cast<const QMouseEvent&>(event).globalPosition().toPoint());
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride: {
        const auto& key = static_cast<const QKeyEvent&>(event);
        const bool asksForMore = key.key() == Qt::Key_Control ||
                                 QKeySequence(key.keyCombination()) == m_statusLine->buttonKey() ||
                                 (key.key() == helpKey && m_help->isEnabled());
        return !key.isAutoRepeat() && !asksForMore;
    }
    default:
        return false;
    }
}

/// The first key or click after a warning removes it. A function key arrives as a ShortcutOverride, never as a
/// KeyPress.
bool RegisterWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (goesOn(*event) && m_statusLine->isWarningShown() && !m_lock->isLocked()) {
        m_statusLine->dropNews();
    }
    return QWidget::eventFilter(watched, event);
}

void RegisterWindow::lock()
{
    if (!m_lock->isLocked()) {
        cover();
    }
}

bool RegisterWindow::isHelpOnTop()
{
    return qobject_cast<HelpForm*>(Singleton<GraphicalUserInterface>::get()->topForm().data());
}

void RegisterWindow::showHelp()
{
    const QSharedPointer<BasicForm> form = Singleton<GraphicalUserInterface>::get()->topForm();
    if (isHelpOnTop()) {
        emit form->dismissed();
        return;
    }
    askForm(HelpParams::eventCode, form ? helpOf(*form) : helpOfGround());
}

/// What the help says when no form is in front.
HelpParams RegisterWindow::helpOfGround() const
{
    FormHelp help = m_sales->help();
    if (m_statusLine->isButtonShown() && !m_statusLine->buttonKey().isEmpty()) {
        help.keys.append({m_statusLine->buttonKey().toString(QKeySequence::NativeText),
                          {u"helpStatusMore"_s, u"прочитать сообщение внизу целиком"_s}});
    }
    return {m_sales->heading(), help};
}

void RegisterWindow::shutDown()
{
    m_isShuttingDown = true;
    close();
}

void RegisterWindow::closeEvent(QCloseEvent* event)
{
    if (m_lock->isLocked() && m_lock->hasCode() && !m_isShuttingDown) {
        event->ignore();
        m_lock->refuseClosing();
    } else if (isAtWork()) {
        event->ignore();
        unwind();
    }
}

void RegisterWindow::resizeEvent(QResizeEvent*)
{
    for (FormLayer* layer : std::as_const(m_layers)) {
        layer->setGeometry(rect());
    }
    m_busy->setGeometry(rect());
    m_lock->setGeometry(rect());
}

void RegisterWindow::unwind()
{
    if (!std::exchange(m_isUnwinding, true)) {
        QTimer::singleShot(0, this, &RegisterWindow::goOnUnwinding);
    }
}

/// A cancelled form may bring back the one before it, so that several rounds are needed until nothing is open.
void RegisterWindow::goOnUnwinding()
{
    Singleton<ActionQueueController>::get()->dropWaiting(); // an action that queues itself would hold up the end
    const bool blocked = InputBlocker::isActive();
    if (blocked || isAtWork()) {
        QTimer::singleShot(unwindingRound, this, &RegisterWindow::goOnUnwinding);
        if (!blocked) {
            Singleton<GraphicalUserInterface>::get()->cancelForms();
        }
        return;
    }
    m_isUnwinding = false;
    close();
}

bool RegisterWindow::isAtWork() const
{
    return !m_layers.isEmpty() || Singleton<GraphicalUserInterface>::get()->topForm() ||
           Singleton<ActionQueueController>::get()->isBusy();
}

void RegisterWindow::arrangeLayers()
{
    bool covered = false;
    bool onTop = true;
    const auto place = [&](QWidget* widget, bool coversAll) {
        widget->setVisible(!covered);
        widget->setEnabled(onTop);
        onTop = false;
        covered = covered || coversAll;
    };
    for (auto layer = m_layers.crbegin(); layer != m_layers.crend(); ++layer) {
        place(*layer, !(*layer)->isDialog());
    }
    place(m_ground, true);
    m_help->setEnabled(!m_layers.isEmpty() || !m_isHelpKeyTaken);
    // The last child is on top.
    const QObjectList& shown = m_stage->children();
    m_busy->setCovered(!m_layers.isEmpty() && shown.indexOf(m_layers.last()) > shown.indexOf(m_busy));
}

/// Hides the stage, so that no shortcut, tool tip or screen reader finds anything of it.
void RegisterWindow::cover()
{
    m_focusBelowLock = focusWidget();
    while (QWidget* popup = QApplication::activePopupWidget()) {
        popup->close();
    }
    QToolTip::hideText();
    m_lock->lock();
    m_stage->hide();
}

void RegisterWindow::uncover()
{
    m_stage->show();
    QWidget* below = m_focusBelowLock;
    if (!below || !below->isVisible() || below == m_busy) {
        below = m_layers.isEmpty() ? m_sales : m_layers.last()->focusWidget();
    }
    if (below) {
        below->setFocus();
    }
    if (m_busy->isVisible()) {
        m_busy->takeFocus();
    }
}

/// What would have the focus now gets it when the screen is unlocked.
void RegisterWindow::keepFocusInLock(QWidget* focused)
{
    if (!m_lock->isLocked() || !focused || !m_stage->isAncestorOf(focused)) {
        return;
    }
    m_focusBelowLock = focused;
    m_lock->setFocus();
}

void RegisterWindow::showStop(const control::Action& action, EContext::Result result)
{
    if (result == EContext::NotFound) {
        showNotice(stoppedaction::notFound(action));
    } else {
        m_statusLine->showWarning(stoppedaction::stopped(action).ui());
    }
}
