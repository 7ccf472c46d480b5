// SPDX-License-Identifier: MIT
#include "dialog.h"
#include "basicexception.h"
#include "mocked.h"
#include "uitest.h"

namespace
{

class DialogTest : public UiTest
{
};

class MockDialog : public Dialog
{
public:
    MOCK_METHOD(void, showMessage, (const tr::Tr&, int, int, int), (override));
};

/// Returns one form and remembers the event that asked for it.
class RecordingCreator : public BasicFormCreator
{
public:
    explicit RecordingCreator(QSharedPointer<BasicForm> form)
        : m_form(std::move(form))
    {
    }
    QSharedPointer<BasicForm> create(const Event& event) override
    {
        codes.append(event.getCode());
        return m_form;
    }
    QSharedPointer<BasicForm> create(EContext::Code) override { return nullptr; }

    QList<int> codes;

private:
    QSharedPointer<BasicForm> m_form;
};

TEST_F(DialogTest, factoryWithoutAMock_makesADialog)
{
    EXPECT_NE(Dialog::create(), nullptr);
}

TEST_F(DialogTest, factoryWithAMock_returnsIt)
{
    const auto mock = QSharedPointer<MockDialog>::create();
    const Mocked<Dialog> mocked(mock);
    EXPECT_CALL(*mock, showMessage(tr::Tr("key", "text"), 1, 1, 0));
    Dialog::create()->showMessage({"key", "text"}, Dialog::Error, 1, 0);
}

TEST_F(DialogTest, eventWithoutAForm_throwsWithItsNumber)
{
    try {
        core::BasicDialog().show(false, false, EInput::Keyboard, Event(EActivityListener::Event(999)));
        FAIL();
    } catch (const BasicException& exception) {
        EXPECT_EQ(exception.tr().key(), "formUnknownError");
        EXPECT_THAT(exception.what(), ::testing::HasSubstr("999"));
    }
}

TEST_F(DialogTest, show_runsTheFormOfTheEventAndReturnsItsArguments)
{
    const auto form = QSharedPointer<LayoutForm>::create(writeLayout("a.ui", ""));
    const auto creator = QSharedPointer<RecordingCreator>::create(form);
    gui.addFormCreator(creator);
    whenShown([&] {
        EXPECT_EQ(gui.topForm(), form);
        EXPECT_EQ(form->rootWidget()->property("overPayment"), true);
        EXPECT_EQ(form->rootWidget()->property("silent"), false);
        EXPECT_EQ(form->rootWidget()->property("inputSources"), 1);
        gui.answer(answerOf("status", 2));
    });
    core::BasicDialog dialog;
    const core::BasicDialog::Result result =
        dialog.show(true, false, EInput::Keyboard, Event(EActivityListener::Event(197)));
    EXPECT_EQ(result.getData().toMap(), (QVariantMap{{"status", 2}}));
    EXPECT_FALSE(result.canceled());
    EXPECT_EQ(creator->codes, QList<int>({197}));
}

TEST_F(DialogTest, shownTwice_answersBothTimes)
{
    const auto form = QSharedPointer<LayoutForm>::create(writeLayout("a.ui", ""));
    gui.addFormCreator(QSharedPointer<RecordingCreator>::create(form));
    core::BasicDialog dialog;
    for (const int status : {0, 1}) {
        whenShown([&] { gui.answer(answerOf("status", status)); });
        EXPECT_EQ(dialog.show(false, false, EInput::Keyboard, Event()).getData().toMap().value("status"), status);
    }
}

TEST(BasicDialogResultTest, isEmpty_withoutDataOrWithAnEmptyText)
{
    using Result = core::BasicDialog::Result;
    EXPECT_TRUE(Result().isEmpty());
    EXPECT_TRUE(Result(QString("")).isEmpty());
    EXPECT_FALSE(Result(QString("0")).isEmpty());
    EXPECT_FALSE(Result(0).isEmpty());
    EXPECT_FALSE(Result(QVariantMap()).isEmpty());
}

TEST(BasicDialogResultTest, setCanceled_isCanceled)
{
    core::BasicDialog::Result result(QString("1"));
    EXPECT_FALSE(result.canceled());
    result.setCanceled();
    EXPECT_TRUE(result.canceled());
    EXPECT_EQ(result.getData(), "1");
    EXPECT_TRUE(core::BasicDialog::Result({}, true).canceled());
}

} // namespace
