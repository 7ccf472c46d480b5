// SPDX-License-Identifier: MIT
// The facade: what each answer of the form means.
#include "dispensechoicefixture.h"
#include "mocked.h"

#include "basicexception.h"

#include <QFile>
#include <QTemporaryDir>

namespace
{

using Result = core::BasicDialog::Result;

/// Answers in the form's place.
class AnsweringDialog : public DispenseChoiceDialog
{
public:
    explicit AnsweringDialog(const Result& result)
        : m_result(result)
    {
    }

    Result show(bool, bool, QFlags<EInput::Source> sources, Event event) override
    {
        shownSources = sources;
        shownEvent = event;
        return m_result;
    }

    QFlags<EInput::Source> shownSources;
    Event shownEvent;

private:
    Result m_result;
};

struct Answer {
    const char* name;
    Result result;
    DispenseChoice::Kind kind;
    int row;
};

class DispenseChoiceAnswer : public DispenseChoiceFixture, public ::testing::WithParamInterface<Answer>
{
};

Result answered(const QVariant& data)
{
    return Result(QVariantMap{{u"data"_s, data}});
}

} // namespace

TEST_P(DispenseChoiceAnswer, ofTwoDispenses_isThisDecision)
{
    const DispenseChoice choice = AnsweringDialog(GetParam().result).ask(twoDispenses());
    EXPECT_EQ(choice.kind, GetParam().kind);
    EXPECT_EQ(choice.row, GetParam().row);
}

INSTANTIATE_TEST_SUITE_P(
    , DispenseChoiceAnswer,
    ::testing::Values(Answer{"firstRow", answered(0), DispenseChoice::Chosen, 0},
                      Answer{"lastDispense", answered(1), DispenseChoice::Chosen, 1},
                      Answer{"rowAfterThem", answered(2), DispenseChoice::NoneOfThem, -1},
                      Answer{"beyondTheList", answered(3), DispenseChoice::Later, -1},
                      Answer{"minusOne", answered(-1), DispenseChoice::Later, -1},
                      Answer{"noNumber", answered(u"first"_s), DispenseChoice::Later, -1},
                      Answer{"noData", Result(QVariantMap{{u"status"_s, 1}}), DispenseChoice::Later, -1},
                      Answer{"nothing", Result(), DispenseChoice::Later, -1},
                      Answer{"canceledRow", Result(QVariantMap{{u"data"_s, 1}}, true), DispenseChoice::Later, -1}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(DispenseChoiceFixture, asked_eventCarriesTheRecordAndScansAreKeptBack)
{
    AnsweringDialog dialog(answered(0));
    dialog.ask(twoDispenses());
    EXPECT_EQ(dialog.shownEvent.getCode(), DispenseChoiceParams::eventCode);
    EXPECT_EQ(dialog.shownSources.toInt(), int(EInput::Keyboard));
    const auto params = dialog.shownEvent.value(u"params"_s).value<DispenseChoiceParams>();
    EXPECT_EQ(params.goods, twoDispenses().goods);
    EXPECT_EQ(params.dispenses.size(), 2);
}

TEST_F(DispenseChoiceFixture, mocked_factoryGivesTheTestsOwnDialog)
{
    const auto own = QSharedPointer<AnsweringDialog>::create(answered(1));
    const Mocked<DispenseChoiceDialog> mocked(own);
    EXPECT_EQ(DispenseChoiceDialog::create()->ask(twoDispenses()).row, 1);
}

TEST_F(DispenseChoiceFixture, otherEventsAndContexts_makeNoForm)
{
    DispenseChoiceFormCreator creator;
    for (const int code : {0, 10, 17, 72, 196, 197, 198, 300, 500, 502}) {
        EXPECT_TRUE(creator.create(Event(EActivityListener::Event(code))).isNull()) << code;
    }
    EXPECT_TRUE(creator.create(EContext::DialogOnTop).isNull());
}

TEST_F(DispenseChoiceFixture, eventWithoutARecord_formOffersThatTheDispenseIsThereOrNot)
{
    const auto form = DispenseChoiceFormCreator().create(Event(DispenseChoiceParams::eventCode));
    ASSERT_TRUE(form);
    EXPECT_EQ(table(*form->rootWidget())->model()->rowCount(), 2);
}

TEST_F(DispenseChoiceFixture, layoutLacksAWidget_exceptionNamesIt)
{
    QFile own(QString::fromUtf8(RECOVERY_LAYOUTS) + u"/dispensechoice.ui"_s);
    ASSERT_TRUE(own.open(QIODevice::ReadOnly));
    const QByteArray layout = own.readAll();
    QTemporaryDir folder;
    config.set(u"GUI:layouts"_s, folder.path());
    for (const QByteArray name : {"dispensesTable", "chooseButton", "laterButton", "titleLabel", "goodsLabel",
                                  "requestLabel", "questionLabel", "hintLabel"}) {
        QFile changed(folder.filePath(u"dispensechoice.ui"_s));
        ASSERT_TRUE(changed.open(QIODevice::WriteOnly));
        changed.write(QByteArray(layout).replace("name=\"" + name + '"', "name=\"renamed\""));
        changed.close();
        try {
            DispenseChoiceDialog::create()->ask(twoDispenses());
            ADD_FAILURE() << name.constData();
        } catch (const BasicException& fault) {
            EXPECT_TRUE(fault.tr().ui().contains(QString::fromUtf8(name))) << qPrintable(fault.tr().ui());
        }
    }
}
