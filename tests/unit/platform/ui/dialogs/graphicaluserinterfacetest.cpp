// SPDX-License-Identifier: MIT
#include "actionqueuecontroller.h"
#include "dialogeventfilter.h"
#include "formhost.h"
#include "inputblocker.h"
#include "uitest.h"

#include <QLineEdit>
#include <QPushButton>

namespace
{

constexpr auto firstEvent = EActivityListener::Event(901);
constexpr auto secondEvent = EActivityListener::Event(902);

class GraphicalUserInterfaceTest : public UiTest
{
protected:
    QSharedPointer<LayoutForm> createForm()
    {
        return QSharedPointer<LayoutForm>::create(
            writeLayout("form.ui", widget("TalloLineEdit", "edit") + widget("QPushButton", "ok")));
    }

    /// A form that answers "status" = -7 when it is cancelled, as a plug-in's does.
    QSharedPointer<LayoutForm> createAnsweringForm()
    {
        const QSharedPointer<LayoutForm> form = createForm();
        auto* filter = new DialogEventFilter(form.data());
        form->rootWidget()->installEventFilter(filter);
        QObject::connect(filter, &DialogEventFilter::cancel, form.data(),
                         [this] { gui.answer(answerOf("status", -7)); });
        return form;
    }

    static QVariant value(const core::BasicDialog::Result& result, const QString& key)
    {
        return result.getData().toMap().value(key);
    }

    static void expectNoAnswer(const core::BasicDialog::Result& result)
    {
        EXPECT_TRUE(result.canceled());
        EXPECT_EQ(value(result, "data"), -1);
        EXPECT_EQ(value(result, "status"), -1);
    }
};

class FixedCreator : public BasicFormCreator
{
public:
    FixedCreator(EActivityListener::Event event, QSharedPointer<BasicForm> form)
        : m_event(event)
        , m_form(std::move(form))
    {
    }
    QSharedPointer<BasicForm> create(const Event& event) override
    {
        ++asked;
        return event.getCode() == m_event ? m_form : nullptr;
    }
    QSharedPointer<BasicForm> create(EContext::Code) override { return nullptr; }

    int asked = 0;

private:
    EActivityListener::Event m_event;
    QSharedPointer<BasicForm> m_form;
};

TEST_F(GraphicalUserInterfaceTest, creatorsAreAskedInTurnUntilOneKnowsTheEvent)
{
    const auto form = createForm();
    const auto first = QSharedPointer<FixedCreator>::create(firstEvent, form);
    const auto second = QSharedPointer<FixedCreator>::create(firstEvent, createForm());
    gui.addFormCreator(nullptr);
    gui.addFormCreator(first);
    gui.addFormCreator(second);
    EXPECT_EQ(gui.createForm(Event(firstEvent)), form);
    EXPECT_EQ(second->asked, 0);
    EXPECT_EQ(gui.createForm(Event(secondEvent)), nullptr);
    EXPECT_EQ(second->asked, 1);
}

TEST_F(GraphicalUserInterfaceTest, creatorForAPlatformForm_isAskedBeforeThePlatform)
{
    const auto form = createForm();
    gui.addFormCreator(QSharedPointer<FixedCreator>::create(EActivityListener::ShowMessage, form));
    EXPECT_EQ(gui.createForm(Event(EActivityListener::ShowMessage)), form);
}

TEST_F(GraphicalUserInterfaceTest, creatorsRemoved_areDropped)
{
    auto creator = QSharedPointer<FixedCreator>::create(firstEvent, createForm());
    const QWeakPointer<FixedCreator> dropped = creator;
    gui.addFormCreator(creator);
    creator.reset();
    EXPECT_FALSE(dropped.isNull());
    gui.host().creators.clear();
    EXPECT_TRUE(dropped.isNull());
    EXPECT_EQ(gui.createForm(Event(firstEvent)), nullptr);
}

TEST_F(GraphicalUserInterfaceTest, hostPutsFormerCreatorsBack_laterOneIsNotAsked)
{
    const auto form = createForm();
    gui.addFormCreator(QSharedPointer<FixedCreator>::create(firstEvent, form));
    const QList<QSharedPointer<BasicFormCreator>> former = gui.host().creators;
    gui.addFormCreator(QSharedPointer<FixedCreator>::create(EActivityListener::ShowMessage, form));
    gui.host().creators = former;
    EXPECT_EQ(gui.createForm(Event(firstEvent)), form);
    EXPECT_NE(gui.createForm(Event(EActivityListener::ShowMessage)), form);
}

TEST_F(GraphicalUserInterfaceTest, answered_itsArgumentsAreTheResult)
{
    whenShown([&] {
        control::Action action(control::DialogAnswer);
        action.insert("data", 3);
        action.insert("status", "x");
        gui.answer(action);
    });
    const core::BasicDialog::Result result = gui.run(createForm());
    EXPECT_EQ(result.getData().toMap(), (QVariantMap{{"data", 3}, {"status", "x"}}));
    EXPECT_FALSE(result.canceled());
}

TEST_F(GraphicalUserInterfaceTest, answeredWithMinusOneByItsOwnSlot_isNotCanceledByTheRegister)
{
    whenShown([&] { gui.answer(answerOf("data", -1)); });
    const core::BasicDialog::Result result = gui.run(createForm());
    EXPECT_EQ(value(result, "data"), -1);
    EXPECT_FALSE(result.canceled());
}

TEST_F(GraphicalUserInterfaceTest, answeredThroughTheActionQueue_ends)
{
    ActionQueueController controller;
    const InPlace<ActionQueueController> place(&controller);
    whenShown([&] { controller.enqueue(answerOf("data", 5), true); });
    EXPECT_EQ(value(gui.run(createForm()), "data"), 5);
}

class ImpatientForm : public LayoutForm
{
public:
    ImpatientForm(GraphicalUserInterface& gui, const QString& layout)
        : LayoutForm(layout)
        , m_gui(gui)
    {
    }
    void show() override
    {
        LayoutForm::show();
        control::Action action(control::DialogAnswer);
        action.insert("data", 9);
        m_gui.answer(action);
    }

private:
    GraphicalUserInterface& m_gui;
};

TEST_F(GraphicalUserInterfaceTest, answeredWhileItIsShown_endsAtOnce)
{
    EXPECT_EQ(value(gui.run(QSharedPointer<ImpatientForm>::create(gui, writeLayout("a.ui", ""))), "data"), 9);
}

TEST_F(GraphicalUserInterfaceTest, nullForm_isNoAnswer)
{
    expectNoAnswer(gui.run(nullptr));
}

TEST_F(GraphicalUserInterfaceTest, answerWithoutAForm_doesNothing)
{
    gui.answer(answerOf("data", 1));
    EXPECT_EQ(gui.topForm(), nullptr);
    whenShown([&] { gui.answer(answerOf("data", 2)); });
    EXPECT_EQ(value(gui.run(createForm()), "data"), 2);
}

TEST_F(GraphicalUserInterfaceTest, secondAnswer_changesNothing)
{
    whenShown([&] {
        gui.answer(answerOf("data", 1));
        gui.answer(answerOf("data", 2));
    });
    EXPECT_EQ(value(gui.run(createForm()), "data"), 1);
}

TEST_F(GraphicalUserInterfaceTest, secondAnswerOfANestedForm_doesNotReachTheFormBelow)
{
    core::BasicDialog::Result nested;
    whenShown([&] {
        whenShown([&] {
            gui.answer(answerOf("data", 1));
            gui.answer(answerOf("data", 2));
        });
        nested = gui.run(createForm());
        gui.answer(answerOf("data", 3));
    });
    EXPECT_EQ(value(gui.run(createForm()), "data"), 3);
    EXPECT_EQ(value(nested, "data"), 1);
}

TEST_F(GraphicalUserInterfaceTest, topForm_isTheTopmostWithoutAnAnswer)
{
    const auto below = createForm();
    const auto above = createForm();
    whenShown([&] {
        EXPECT_EQ(gui.topForm(), below);
        whenShown([&] {
            EXPECT_EQ(gui.topForm(), above);
            gui.answer(answerOf("data", 1));
            EXPECT_EQ(gui.topForm(), below);
        });
        gui.run(above);
        EXPECT_EQ(gui.topForm(), below);
        gui.answer(answerOf("data", 1));
        EXPECT_EQ(gui.topForm(), nullptr);
    });
    gui.run(below);
    EXPECT_EQ(gui.topForm(), nullptr);
}

TEST_F(GraphicalUserInterfaceTest, formWhoseSlotAnswers_livesUntilTheSlotHasReturned)
{
    auto form = createForm();
    const QWeakPointer<LayoutForm> life = form;
    bool livedOn = false;
    QObject::connect(form->findWidget<QPushButton>("ok"), &QPushButton::clicked, [&] {
        gui.answer(answerOf("data", 1));
        QCoreApplication::processEvents();
        livedOn = !life.isNull();
    });
    auto* ok = form->findWidget<QPushButton>("ok");
    whenShown([&, ok] { QTest::mouseClick(ok, Qt::LeftButton); });
    gui.run(std::exchange(form, nullptr));
    EXPECT_TRUE(livedOn);
    EXPECT_TRUE(life.isNull());
}

TEST_F(GraphicalUserInterfaceTest, closedByItsWindow_withoutAnEventFilter_isNoAnswer)
{
    const auto form = createForm();
    whenShown([&] { form->rootWidget()->close(); });
    expectNoAnswer(gui.run(form));
}

TEST_F(GraphicalUserInterfaceTest, esc_withoutAnEventFilter_isNoAnswer)
{
    const auto form = createForm();
    whenShown([&] { QTest::keyClick(form->findWidget<QLineEdit>("edit"), Qt::Key_Escape); });
    expectNoAnswer(gui.run(form));
}

TEST_F(GraphicalUserInterfaceTest, closedByItsWindow_theFormsOwnCancelAnswers)
{
    const auto form = createAnsweringForm();
    whenShown([&] { form->rootWidget()->close(); });
    const core::BasicDialog::Result result = gui.run(form);
    EXPECT_EQ(value(result, "status"), -7);
    EXPECT_FALSE(result.canceled());
}

TEST_F(GraphicalUserInterfaceTest, cancelForms_everyFormOfTheStackAnswersItsOwnCancel)
{
    core::BasicDialog::Result nested;
    whenShown([&] {
        whenShown([&] { gui.cancelForms(); });
        nested = gui.run(createAnsweringForm());
    });
    const core::BasicDialog::Result below = gui.run(createAnsweringForm());
    EXPECT_EQ(value(nested, "status"), -7);
    EXPECT_EQ(value(below, "status"), -7);
}

TEST_F(GraphicalUserInterfaceTest, cancelForms_formThatDoesNotAnswerIsDismissed)
{
    const auto form = createForm();
    DialogEventFilter deaf;
    QObject::connect(&deaf, &DialogEventFilter::cancel, [] {});
    form->rootWidget()->installEventFilter(&deaf);
    whenShown([&] { gui.cancelForms(); });
    expectNoAnswer(gui.run(form));
}

TEST_F(GraphicalUserInterfaceTest, cancelFormsWithoutForms_doesNothing)
{
    gui.cancelForms();
    EXPECT_EQ(gui.topForm(), nullptr);
}

TEST_F(GraphicalUserInterfaceTest, applicationExits_formIsCancelledAndNothingHangs)
{
    bool isReturned = false;
    core::BasicDialog::Result result;
    QTimer::singleShot(0, qApp, [&] {
        whenShown([] { QCoreApplication::exit(0); });
        result = gui.run(createAnsweringForm());
        isReturned = true;
    });
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_TRUE(isReturned);
    EXPECT_EQ(value(result, "status"), -7);
}

TEST_F(GraphicalUserInterfaceTest, applicationIsAskedToQuit_formIsCancelledAndNothingHangs)
{
    bool isReturned = false;
    core::BasicDialog::Result result;
    QTimer::singleShot(0, qApp, [&] {
        whenShown([] { QCoreApplication::quit(); });
        result = gui.run(createAnsweringForm());
        isReturned = true;
        QCoreApplication::exit(0);
    });
    QCoreApplication::exec();
    EXPECT_TRUE(isReturned);
    EXPECT_EQ(value(result, "status"), -7);
}

TEST_F(GraphicalUserInterfaceTest, formGone_focusIsWhereItWas)
{
    QWidget window;
    QLineEdit search(&window);
    QLineEdit other(&window);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    search.setFocus();
    const auto form = createForm();
    whenShown([&] {
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return QApplication::focusWidget() == form->findWidget<QLineEdit>("edit"); }, 5000));
        gui.answer(answerOf("data", 0));
    });
    gui.run(form);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::focusWidget() == &search; }, 5000));
}

TEST_F(GraphicalUserInterfaceTest, formThatThrowsWhileItIsShown_isRemoved)
{
    class Throwing : public LayoutForm
    {
    public:
        using LayoutForm::LayoutForm;
        void show() override { throw std::runtime_error("no"); }
    };
    const auto form = QSharedPointer<Throwing>::create(writeLayout("a.ui", ""));
    EXPECT_THROW(gui.run(form), std::runtime_error);
    EXPECT_EQ(gui.topForm(), nullptr);
    EXPECT_FALSE(form->rootWidget()->isVisible());
}

TEST_F(GraphicalUserInterfaceTest, duringLongWork_formTakesInput)
{
    const auto form = createForm();
    const InputBlocker blocker;
    whenShown([&] {
        EXPECT_FALSE(InputBlocker::isActive());
        QTest::keyClicks(form->findWidget<QLineEdit>("edit"), "42");
        EXPECT_EQ(form->findWidget<QLineEdit>("edit")->text(), "42");
        gui.answer(answerOf("data", 0));
    });
    gui.run(form);
    EXPECT_TRUE(InputBlocker::isActive());
}

class RecordingStage : public FormStage
{
public:
    void enter(BasicForm& form) override { entered.append(&form); }
    void leave(BasicForm& form) override { left.append(&form); }

    QList<BasicForm*> entered;
    QList<BasicForm*> left;
};

TEST_F(GraphicalUserInterfaceTest, withAStage_formsEnterAndLeaveItInOrder)
{
    RecordingStage stage;
    gui.host().stage = &stage;
    const auto below = createForm();
    const auto above = createForm();
    whenShown([&] {
        EXPECT_EQ(stage.entered, QList<BasicForm*>({below.data()}));
        whenShown([&] { gui.answer(answerOf("data", 1)); });
        gui.run(above);
        EXPECT_EQ(stage.entered, QList<BasicForm*>({below.data(), above.data()}));
        EXPECT_EQ(stage.left, QList<BasicForm*>({above.data()}));
        gui.answer(answerOf("data", 1));
    });
    gui.run(below);
    EXPECT_EQ(stage.left, QList<BasicForm*>({above.data(), below.data()}));
}

} // namespace
