// SPDX-License-Identifier: MIT
#include "electronicprescriptiondialog.h"
#include "mocked.h"

#include <QPointer>

#include <gtest/gtest.h>

#include <type_traits>

namespace
{

using Result = core::BasicDialog::Result;

/// Answers in the form's place.
class AnsweringDialog : public ElectronicPrescriptionDialog
{
public:
    explicit AnsweringDialog(const Result& result)
        : m_result(result)
    {
    }

    Result show(bool overPayment, bool silent, QFlags<EInput::Source> sources, Event event) override
    {
        shownOverPayment = overPayment;
        shownSilent = silent;
        shownSources = sources;
        shownEvent = event;
        return m_result;
    }

    bool shownOverPayment = true;
    bool shownSilent = true;
    QFlags<EInput::Source> shownSources;
    Event shownEvent;

private:
    Result m_result;
};

void expectShown(const AnsweringDialog& dialog, int code)
{
    EXPECT_FALSE(dialog.shownOverPayment);
    EXPECT_FALSE(dialog.shownSilent);
    EXPECT_EQ(dialog.shownSources.toInt(), 1);
    EXPECT_EQ(dialog.shownEvent.getCode(), code);
}

Result answered(const QString& key, const QVariant& value)
{
    return Result(QVariantMap{{key, value}});
}

} // namespace

TEST(DialogFacade, rowChosen_choiceReturnsItAndShowsEvent196)
{
    const auto offered = QSharedPointer<ElectronicPrescription>::create();
    const ElectronicPrescriptionChoiceParams params({offered}, "active", {}, true);
    AnsweringDialog dialog(answered("data", 7));
    EXPECT_EQ(dialog.choiceElectronicPrescription(params), 7);
    expectShown(dialog, 196);
    EXPECT_TRUE(dialog.shownEvent.value("params").value<ElectronicPrescriptionChoiceParams>() == params);
}

TEST(DialogFacade, cashierGoesBack_choiceReturnsMinusOne)
{
    EXPECT_EQ(AnsweringDialog(answered("data", -1)).choiceElectronicPrescription({}), -1);
}

TEST(DialogFacade, resultWithoutData_choiceReturnsZeroEvenWhenCanceled)
{
    EXPECT_EQ(AnsweringDialog(Result()).choiceElectronicPrescription({}), 0);
    EXPECT_EQ(AnsweringDialog(answered("status", 5)).choiceElectronicPrescription({}), 0);
    EXPECT_EQ(AnsweringDialog(Result({}, true)).choiceElectronicPrescription({}), 0);
}

TEST(DialogFacade, canceledResultWithData_choiceReturnsTheData)
{
    EXPECT_EQ(AnsweringDialog(Result(QVariantMap{{"data", 3}}, true)).choiceElectronicPrescription({}), 3);
}

TEST(DialogFacade, detailsAnswered_resultIsReturnedUnchangedAndEvent197Shown)
{
    const ElectronicPrescriptionParams params(QSharedPointer<ElectronicPrescription>::create(), "active", {});
    AnsweringDialog dialog(Result(QVariantMap{{"status", -1}, {"other", "kept"}}, true));
    const auto result = dialog.showElectronicPrescription(params);
    EXPECT_EQ(result.getData().toMap(), (QVariantMap{{"status", -1}, {"other", "kept"}}));
    EXPECT_TRUE(result.canceled());
    expectShown(dialog, 197);
    EXPECT_TRUE(dialog.shownEvent.value("params").value<ElectronicPrescriptionParams>() == params);
}

TEST(DialogFacade, dispenseConfirmed_resultIsReturnedUnchangedAndEvent198Shown)
{
    const ElectronicPrescriptionConfirmDispenseParams params(QSharedPointer<ElectronicPrescription>::create());
    AnsweringDialog dialog(answered("status", 2));
    const auto result = dialog.confirmDispenseForElectronicPrescription(params);
    EXPECT_EQ(result.getData().toMap(), (QVariantMap{{"status", 2}}));
    EXPECT_FALSE(result.canceled());
    expectShown(dialog, 198);
    EXPECT_TRUE(dialog.shownEvent.value("params").value<ElectronicPrescriptionConfirmDispenseParams>() == params);
}

TEST(DialogFacade, oneDialogAskedTwice_answersBothTimes)
{
    AnsweringDialog dialog(answered("data", 2));
    EXPECT_EQ(dialog.choiceElectronicPrescription({}), 2);
    EXPECT_EQ(dialog.choiceElectronicPrescription({}), 2);
}

TEST(DialogFacade, nothingMocked_factoryMakesANewDialogEachTime)
{
    auto first = ElectronicPrescriptionDialog::create();
    const auto second = ElectronicPrescriptionDialog::create();
    ASSERT_TRUE(first);
    EXPECT_NE(first, second);

    QPointer<QObject> tracked = first.data();
    first.reset();
    EXPECT_TRUE(tracked.isNull()) << "the dialog is destroyed with its last pointer";
}

TEST(DialogFacade, factoryMocked_returnsTheMock)
{
    const auto mock = QSharedPointer<AnsweringDialog>::create(answered("data", 4));
    const Mocked<ElectronicPrescriptionDialog> mocked(mock);
    const auto dialog = ElectronicPrescriptionDialog::create();
    EXPECT_EQ(dialog, mock);
    EXPECT_EQ(dialog->choiceElectronicPrescription({}), 4);
}

TEST(DialogFacade, bases_areTheFactoryFirstAndTheHostsDialog)
{
    static_assert(std::is_base_of_v<MockFactory<ElectronicPrescriptionDialog>, ElectronicPrescriptionDialog>);
    static_assert(std::is_base_of_v<core::BasicDialog, ElectronicPrescriptionDialog>);
    const ElectronicPrescriptionDialog dialog;
    EXPECT_STREQ(dialog.metaObject()->className(), "core::BasicDialog");
}
