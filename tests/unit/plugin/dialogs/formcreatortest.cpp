// SPDX-License-Identifier: MIT
#include "electronicprescriptionformcreator.h"

#include "dialogforms.h"
#include "electronicprescriptionchoiceform.h"
#include "electronicprescriptionconfirmdispenseform.h"
#include "electronicprescriptionform.h"
#include "tallotableview.h"

#include <QLabel>

namespace
{

class FormCreator : public DialogForms
{
protected:
    QSharedPointer<BasicForm> create(int code, const QVariant& params = {})
    {
        Event event{EActivityListener::Event(code)};
        if (params.isValid()) {
            event.addArgument("params", params);
        }
        return creator.create(event);
    }

    ElectronicPrescriptionFormCreator creator;
};

} // namespace

TEST_F(FormCreator, choiceEvent_makesTheChoiceFormFromItsRecord)
{
    const ElectronicPrescriptionChoiceParams params({prescription("Метформин")}, "active", patient(), false);
    const auto form = creator.create(params.getEvent());
    ASSERT_NE(qobject_cast<ElectronicPrescriptionChoiceForm*>(form.data()), nullptr);
    EXPECT_EQ(form->parent(), nullptr);
    EXPECT_EQ(widget<TalloTableView>(*form, "electronicPrescriptionsTableView")->model()->rowCount(), 1);
}

TEST_F(FormCreator, detailsEvent_makesTheDetailsFormFromItsRecord)
{
    const ElectronicPrescriptionParams params(prescription("Метформин"), "active", patient());
    const auto form = creator.create(params.getEvent());
    ASSERT_NE(qobject_cast<ElectronicPrescriptionForm*>(form.data()), nullptr);
    EXPECT_EQ(form->parent(), nullptr);
    EXPECT_EQ(text(*form, "innNameValueLabel"), "Метформин");
}

TEST_F(FormCreator, confirmEvent_makesTheConfirmationFormFromItsRecord)
{
    const ElectronicPrescriptionConfirmDispenseParams params(prescription("Метформин"));
    const auto form = creator.create(params.getEvent());
    ASSERT_NE(qobject_cast<ElectronicPrescriptionConfirmDispenseForm*>(form.data()), nullptr);
    EXPECT_EQ(form->parent(), nullptr);
    EXPECT_TRUE(text(*form, "confirmDispenseLabel").contains("Метформин"));
}

TEST_F(FormCreator, eventWithoutParams_formIsBuiltFromADefaultRecord)
{
    const auto choice = create(196);
    ASSERT_NE(qobject_cast<ElectronicPrescriptionChoiceForm*>(choice.data()), nullptr);
    EXPECT_EQ(widget<TalloTableView>(*choice, "electronicPrescriptionsTableView")->model()->rowCount(), 0);
    const auto details = create(197);
    ASSERT_NE(qobject_cast<ElectronicPrescriptionForm*>(details.data()), nullptr);
    EXPECT_EQ(text(*details, "innNameValueLabel"), "");
    const auto confirmation = create(198);
    ASSERT_NE(qobject_cast<ElectronicPrescriptionConfirmDispenseForm*>(confirmation.data()), nullptr);
    EXPECT_EQ(text(*confirmation, "confirmDispenseLabel"), "");
}

TEST_F(FormCreator, paramsOfAnotherType_formIsBuiltFromADefaultRecord)
{
    const ElectronicPrescriptionChoiceParams choiceParams({prescription("Метформин")}, "active", patient(), false);
    const auto details = create(197, QVariant::fromValue(choiceParams));
    ASSERT_NE(qobject_cast<ElectronicPrescriptionForm*>(details.data()), nullptr);
    EXPECT_EQ(text(*details, "innNameValueLabel"), "");
    EXPECT_FALSE(widget<QWidget>(*details, "chooseButton")->isEnabled()) << "the default status is empty";

    const auto choice = create(196, "a text");
    EXPECT_EQ(widget<TalloTableView>(*choice, "electronicPrescriptionsTableView")->model()->rowCount(), 0);
    const auto confirmation = create(198, 12);
    EXPECT_EQ(text(*confirmation, "confirmDispenseLabel"), "");
}

TEST_F(FormCreator, anyOtherEvent_makesNothing)
{
    for (const int code : {0, 10, 17, 72, 195, 199, 300, -196}) {
        EXPECT_TRUE(create(code).isNull()) << code;
    }
}

TEST_F(FormCreator, anyContext_makesNothing)
{
    for (const int context : {0, 4, 6, 9, 15, 196, 197, 198, -1}) {
        EXPECT_TRUE(creator.create(EContext::Code(context)).isNull()) << context;
    }
}

TEST_F(FormCreator, layoutLacksARequiredWidget_exceptionPassesThrough)
{
    loseWidget("electronicprescription.ui", "chooseButton");
    EXPECT_THROW(create(197), BasicException);
}

TEST_F(FormCreator, eachForm_bringsTheHelpForItsKeys)
{
    const auto shown = prescription("Метформин");
    const QSharedPointer<BasicForm> forms[] = {
        creator.create(ElectronicPrescriptionChoiceParams({shown}, "active", patient(), false).getEvent()),
        creator.create(ElectronicPrescriptionParams(shown, "active", patient()).getEvent()),
        creator.create(ElectronicPrescriptionConfirmDispenseParams(shown).getEvent()),
    };
    for (const auto& form : forms) {
        ASSERT_TRUE(form);
        QStringList keys;
        for (const FormHelp::Key& key : form->help().keys) {
            keys.append(key.key);
            EXPECT_FALSE(key.does.ui().isEmpty());
        }
        EXPECT_TRUE(keys.contains(FormHelp::enterKey())) << keys.join(' ').toStdString();
        EXPECT_TRUE(keys.contains("Esc")) << keys.join(' ').toStdString();
        EXPECT_FALSE(form->help().next.ui().isEmpty());
    }
}
