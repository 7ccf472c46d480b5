// SPDX-License-Identifier: MIT
#include "graphicaluserinterface.h"

#include "askform.h"
#include "basicexception.h"
#include "finally.h"
#include "formhost.h"
#include "inputblocker.h"
#include "messageform_p.h"
#include "scanguard_p.h"
#include "textinputform_p.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QPointer>
#include <QScopedValueRollback>
#include <QWidget>

using namespace Qt::StringLiterals;

template struct Singleton<GraphicalUserInterface>;

namespace
{

core::BasicDialog::Result noAnswer()
{
    return {QVariantMap{{u"data"_s, -1}, {u"status"_s, -1}}, true};
}

/// More forms in a row are not cancelled one by one: somebody asks again and again.
constexpr int mostCancelledInARow = 50;

/// Cancels the forms before the application quits.
class QuitWatcher : public QObject
{
public:
    explicit QuitWatcher(GraphicalUserInterface& gui)
        : m_gui(gui)
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == qApp && event->type() == QEvent::Quit && !InputBlocker::isActive()) {
            m_gui.cancelForms();
        }
        return false;
    }

private:
    GraphicalUserInterface& m_gui;
};

} // namespace

/// A form on the screen.
struct GraphicalUserInterface::Shown {
    QSharedPointer<BasicForm> form;
    QEventLoop loop;
    core::BasicDialog::Result result;
    std::exception_ptr fault; ///< thrown instead of returning the result
    bool isAnswered = false;

    void finish(const core::BasicDialog::Result& answer)
    {
        if (isAnswered) {
            return;
        }
        result = answer;
        isAnswered = true;
        loop.quit();
    }
    void fail(const std::exception_ptr& exception)
    {
        if (!isAnswered) {
            fault = exception;
            finish(noAnswer());
        }
    }
    bool owns(const QObject& object) const
    {
        for (const QObject* owner = &object; owner; owner = owner->parent()) {
            if (owner == form.data() || owner == form->rootWidget()) {
                return true;
            }
        }
        return false;
    }
};

GraphicalUserInterface::GraphicalUserInterface()
    : m_host(std::make_unique<FormHost>())
{
}

GraphicalUserInterface::~GraphicalUserInterface() = default;

void GraphicalUserInterface::addFormCreator(const QSharedPointer<BasicFormCreator>& creator)
{
    if (creator) {
        m_host->creators.append(creator);
    }
}

QSharedPointer<BasicForm> GraphicalUserInterface::createForm(const Event& event) const
{
    std::exception_ptr fault;
    const QList<QSharedPointer<BasicFormCreator>> creators = m_host->creators;
    for (const QSharedPointer<BasicFormCreator>& creator : creators) {
        try {
            if (QSharedPointer<BasicForm> form = creator->create(event)) {
                return form;
            }
        } catch (...) {
            fault = fault ? fault : std::current_exception();
        }
    }
    switch (event.getCode()) {
    case EActivityListener::ShowMessage:
        return QSharedPointer<MessageForm>::create(event);
    case EActivityListener::ShowTextInput:
        return QSharedPointer<TextInputForm>::create(formParams<TextInputParams>(event));
    default:
        if (fault) {
            std::rethrow_exception(fault);
        }
        return nullptr;
    }
}

core::BasicDialog::Result GraphicalUserInterface::run(const QSharedPointer<BasicForm>& form)
{
    if (!form) {
        return noAnswer();
    }

    if (!m_scanGuard) {
        m_scanGuard = std::make_unique<ScanGuard>(*this);
    }
    const InputBlocker::Pause pause;
    const QuitWatcher quitWatcher(*this);
    const QScopedValueRollback<Shown*> ownAnswers(m_cancelling, nullptr);
    QPointer<QWidget> focusBefore;

    Shown shown;
    shown.form = form;
    const auto dismiss = [&shown] { shown.finish(noAnswer()); };
    const auto dismissal = QObject::connect(form.data(), &BasicForm::dismissed, &shown.loop, dismiss);
    if (form->rootWidget()) { // without it nobody could answer
        QObject::connect(form->rootWidget(), &QObject::destroyed, &shown.loop, dismiss);
    }
    m_shown.append(&shown);
    const Finally leave([&] {
        m_shown.removeOne(&shown);
        QObject::disconnect(dismissal);
        if (m_host->stage) {
            m_host->stage->leave(*form);
        } else if (form->rootWidget()) {
            form->rootWidget()->hide();
        }
        if (focusBefore && focusBefore->isVisible()) {
            focusBefore->activateWindow();
            focusBefore->setFocus();
        }
    });

    if (m_host->stage) {
        m_host->stage->waitUntilSeen(shown.loop);
    }
    focusBefore = QApplication::focusWidget();
    if (!shown.isAnswered) {
        enter(*form);
    }
    if (m_host->stage && !form->rootWidget()) { // nobody can see it
        dismiss();
    }
    if (!shown.isAnswered) {
        shown.loop.exec();
    }
    // The loop may have been ended with all others: the application is about to end.
    cancel(shown);
    if (shown.fault) {
        std::rethrow_exception(shown.fault);
    }
    return shown.result;
}

void GraphicalUserInterface::enter(BasicForm& form)
{
    if (m_host->stage) {
        m_host->stage->enter(form);
    } else if (QWidget* root = form.rootWidget()) {
        root->show();
        root->activateWindow();
    }
    form.show();
}

void GraphicalUserInterface::answer(const control::Action& action)
{
    answer(action.toMap());
}

void GraphicalUserInterface::answer(const QVariantMap& values)
{
    Shown* const asked = m_cancelling ? m_cancelling : m_shown.isEmpty() ? nullptr : m_shown.last();
    m_cancelledInARow = m_cancelling ? m_cancelledInARow : 0;
    if (asked) {
        asked->finish({values, false});
    }
}

QSharedPointer<BasicForm> GraphicalUserInterface::topForm() const
{
    for (auto shown = m_shown.crbegin(); shown != m_shown.crend(); ++shown) {
        if (!(*shown)->isAnswered) {
            return (*shown)->form;
        }
    }
    return nullptr;
}

void GraphicalUserInterface::cancelForms()
{
    const QList<Shown*> shown = m_shown;
    for (auto form = shown.crbegin(); form != shown.crend(); ++form) {
        if (m_shown.contains(*form)) {
            cancel(**form);
        }
    }
}

bool GraphicalUserInterface::fail(const QObject& source, const std::exception_ptr& exception)
{
    for (auto shown = m_shown.crbegin(); shown != m_shown.crend(); ++shown) {
        if (!(*shown)->isAnswered && (*shown)->owns(source)) {
            (*shown)->fail(exception);
            return true;
        }
    }
    return false;
}

/// A caller that asks again whenever it is cancelled must not keep the register from ending.
void GraphicalUserInterface::cancel(Shown& shown)
{
    if (shown.isAnswered) {
        return;
    }
    ++m_cancelledInARow;
    if (m_cancelledInARow > 2 * mostCancelledInARow && m_host->giveUp) {
        m_host->giveUp();
    }
    if (m_cancelledInARow > mostCancelledInARow) {
        shown.fail(
            std::make_exception_ptr(BasicException({u"formsEnded"_s, u"Действие прервано: касса закрывается."_s})));
    } else {
        close(shown);
    }
}

void GraphicalUserInterface::close(Shown& shown)
{
    const QScopedValueRollback<Shown*> answers(m_cancelling, &shown);
    if (QWidget* root = shown.form->rootWidget()) {
        QCloseEvent close;
        QCoreApplication::sendEvent(root, &close);
    }
    shown.finish(noAnswer());
}
