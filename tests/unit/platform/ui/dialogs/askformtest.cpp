// SPDX-License-Identifier: MIT
#include "askform.h"
#include "formanswer.h"

#include "actionfactory.h"
#include "actionqueuecontroller.h"
#include "textinputparams.h"
#include "uitest.h"

#include <QLabel>

#include <memory>
#include <utility>

namespace
{

constexpr auto testEvent = EActivityListener::Event(900);

/// Shows a form with the title of the record.
class TitleFormCreator : public BasicFormCreator
{
public:
    explicit TitleFormCreator(const QString& layout)
        : m_layout(layout)
    {
    }

    QSharedPointer<BasicForm> create(const Event& event) override
    {
        if (event.getCode() != testEvent) {
            return nullptr;
        }
        auto form = QSharedPointer<LayoutForm>::create(m_layout);
        form->showText("titleLabel", formParams<TextInputParams>(event).title.ui());
        return form;
    }
    QSharedPointer<BasicForm> create(EContext::Code) override { return nullptr; }

private:
    QString m_layout;
};

class AskFormTest : public UiTest
{
protected:
    AskFormTest()
    {
        gui.addFormCreator(
            QSharedPointer<TitleFormCreator>::create(writeLayout("title.ui", widget("QLabel", "titleLabel"))));
        record.title = {"testTitle", "Ввод карты"};
    }

    ActionQueueController controller;
    InPlace<ActionQueueController> controllerInPlace{&controller};
    TextInputParams record;
};

TEST_F(AskFormTest, formAnswered_itsValuesAreReturnedUnderTheirNames)
{
    QString title;
    bool takesScans = true;
    whenShown([&] {
        title = gui.topForm()->rootWidget()->findChild<QLabel*>("titleLabel")->text();
        takesScans = gui.topForm()->expectsScans();
        answerForm({{"data", 3}, {"result", "Метформин"}});
    });
    EXPECT_EQ(askForm(testEvent, record), (QVariantMap{{"data", 3}, {"result", "Метформин"}}));
    EXPECT_EQ(title, "Ввод карты");
    EXPECT_FALSE(takesScans);
    EXPECT_EQ(gui.topForm(), nullptr);
}

TEST_F(AskFormTest, oneValueAnswered_isReturnedUnderItsName)
{
    whenShown([] { answerForm("yes", true); });
    EXPECT_EQ(askForm(testEvent, record), (QVariantMap{{"yes", true}}));
}

TEST_F(AskFormTest, askedWithAScanner_formExpectsScans)
{
    bool takesScans = false;
    whenShown([&] {
        takesScans = gui.topForm()->expectsScans();
        answerForm("data", 0);
    });
    askForm(testEvent, record, {EInput::Keyboard, EInput::Scanner});
    EXPECT_TRUE(takesScans);
}

TEST_F(AskFormTest, formDismissed_answerIsMinusOne)
{
    whenShown([this] { gui.cancelForms(); });
    EXPECT_EQ(askForm(testEvent, record), (QVariantMap{{"data", -1}, {"status", -1}}));
}

TEST_F(AskFormTest, noFormOnTop_answerIsDropped)
{
    EXPECT_NO_THROW(answerForm("data", 0));
}

TEST_F(AskFormTest, noFactoryOrControllerYet_answerMakesThem)
{
    const InPlace<control::ActionFactory> noFactory(nullptr);
    const InPlace<ActionQueueController> noController(nullptr);
    answerForm("data", 0);
    const std::unique_ptr<ActionQueueController> madeController(Singleton<ActionQueueController>::instance);
    const std::unique_ptr<control::ActionFactory> madeFactory(Singleton<control::ActionFactory>::instance);
    EXPECT_TRUE(madeController);
    EXPECT_TRUE(madeFactory);
}

TEST_F(AskFormTest, eventOfAForm_carriesItsRecordAsParams)
{
    const Event event = formEvent(testEvent, QVariant::fromValue(record));
    EXPECT_EQ(event.getCode(), testEvent);
    EXPECT_EQ(formParams<TextInputParams>(event).title, record.title);
}

TEST_F(AskFormTest, eventWithoutARecordOrWithAnother_givesADefaultOne)
{
    EXPECT_EQ(formParams<TextInputParams>(Event(testEvent)).title, tr::Tr());
    EXPECT_EQ(formParams<TextInputParams>(formEvent(testEvent, QSize(1, 2))).title, tr::Tr());
}

} // namespace
