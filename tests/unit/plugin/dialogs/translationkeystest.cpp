// SPDX-License-Identifier: MIT
// The key of the message catalogues whose text each widget shows.
#include "dialogforms.h"
#include "electronicprescriptionchoiceform.h"
#include "electronicprescriptionchoicemodel.h"
#include "electronicprescriptionconfirmdispenseform.h"
#include "electronicprescriptionform.h"

#include <QCoreApplication>
#include <QTranslator>

namespace
{

/// A catalogue that has every key. The text names the key.
class EveryKey : public QTranslator
{
public:
    static QString textOf(const QString& key) { return "text of " + key; }

    QString translate(const char*, const char* key, const char*, int) const override { return textOf(key); }
    bool isEmpty() const override { return false; }
};

struct WidgetKey {
    const char* widget;
    const char* key;
};

class TranslationKeys : public DialogForms
{
protected:
    TranslationKeys() { QCoreApplication::installTranslator(&m_everyKey); }
    ~TranslationKeys() override { QCoreApplication::removeTranslator(&m_everyKey); }

    static void expectTextOfKey(const BasicForm& form, const WidgetKey& row)
    {
        EXPECT_EQ(text(form, row.widget), EveryKey::textOf(row.key));
    }

    static QString textOfDetails(const QSharedPointer<ElectronicPrescription>& shown, const QString& widget)
    {
        return text(ElectronicPrescriptionForm({shown, "active", patient()}, nullptr), widget);
    }

private:
    EveryKey m_everyKey;
};

class ChoiceFormKeys : public TranslationKeys, public ::testing::WithParamInterface<WidgetKey>
{
};

class DetailsFormKeys : public TranslationKeys, public ::testing::WithParamInterface<WidgetKey>
{
};

class ConfirmDispenseFormKeys : public TranslationKeys, public ::testing::WithParamInterface<WidgetKey>
{
};

const auto widgetOfParameter = [](const auto& info) { return std::string(info.param.widget); };

} // namespace

TEST_P(ChoiceFormKeys, widget_showsTheTextOfItsKey)
{
    expectTextOfKey(
        ElectronicPrescriptionChoiceForm({{prescription("Метформин")}, "active", patient(), false}, nullptr),
        GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    , ChoiceFormKeys,
    ::testing::Values(WidgetKey{"cancelButton", "electronicPrescriptionChoiceFormCancelButton"},
                      WidgetKey{"okButton", "electronicPrescriptionChoiceFormOkButton"},
                      WidgetKey{"titleLabel", "electronicPrescriptionChoiceFormTitle"},
                      WidgetKey{"tradeNameLabel", "electronicPrescriptionChoiceFormTradeNameLabel"},
                      WidgetKey{"patientNameLabel", "electronicPrescriptionChoiceFormPatientNameLabel"},
                      WidgetKey{"patientBirthdayLabel", "electronicPrescriptionChoiceFormPatientBirthdayLabel"},
                      WidgetKey{"practitionerNameLabel", "electronicPrescriptionChoiceFormPractitionerNameLabel"},
                      WidgetKey{"organizationLabel", "electronicPrescriptionChoiceFormOrganizationLabel"}),
    widgetOfParameter);

TEST_P(DetailsFormKeys, widget_showsTheTextOfItsKey)
{
    expectTextOfKey(ElectronicPrescriptionForm({prescription("Метформин"), "active", patient()}, nullptr), GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    , DetailsFormKeys,
    ::testing::Values(
        WidgetKey{"cancelButton", "electronicPrescriptionFormCancelButton"},
        WidgetKey{"chooseButton", "electronicPrescriptionFormChooseButton"},
        WidgetKey{"titleLabel", "electronicPrescriptionFormTitle"},
        WidgetKey{"innNameLabel", "electronicPrescriptionFormInnLabel"},
        WidgetKey{"innCodeLabel", "electronicPrescriptionFormInnCodeLabel"},
        WidgetKey{"medicineDictCodeLabel", "electronicPrescriptionFormMedicineDictCodeLabel"},
        WidgetKey{"medicineDictNameLabel", "electronicPrescriptionFormMedicineDictNameLabel"},
        WidgetKey{"tradeNameLabel", "electronicPrescriptionFormTradeNameLabel"},
        WidgetKey{"tradeNameCodeLabel", "electronicPrescriptionFormTradeNameCodeLabel"},
        WidgetKey{"prescribedByInnOrTradeNameLabel", "electronicPrescriptionFormPrescribedByInnOrTradeNameLabel"},
        WidgetKey{"patientNameLabel", "electronicPrescriptionFormPatientNameLabel"},
        WidgetKey{"patientBirthdayLabel", "electronicPrescriptionFormPatientBirthdayLabel"},
        WidgetKey{"prescriptionDateLabel", "electronicPrescriptionFormPrescriptionDateLabel"},
        WidgetKey{"expirationDateLabel", "electronicPrescriptionFormExpirationDateLabel"},
        WidgetKey{"practitionerNameLabel", "electronicPrescriptionFormPractitionerNameLabel"},
        WidgetKey{"digitalSignatureLabel", "electronicPrescriptionFormDigitalSignatureLabel"},
        WidgetKey{"discountLabel", "electronicPrescriptionFormDiscountLabel"},
        WidgetKey{"organizationLabel", "electronicPrescriptionFormOrganizationLabel"},
        WidgetKey{"doseQuantityLabel", "electronicPrescriptionFormDoseQuantityLabel"},
        WidgetKey{"dispensedDoseQuantityLabel", "electronicPrescriptionFormDispensedDoseQuantityLabel"},
        WidgetKey{"instructionsLabel", "electronicPrescriptionFormInstructionsLabel"},
        WidgetKey{"medicationDispenseDatesLabel", "electronicPrescriptionFormMedicationDispenseDatesLabel"}),
    widgetOfParameter);

TEST_P(ConfirmDispenseFormKeys, widget_showsTheTextOfItsKey)
{
    expectTextOfKey(ElectronicPrescriptionConfirmDispenseForm(
                        ElectronicPrescriptionConfirmDispenseParams(prescription("Метформин")), nullptr),
                    GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    , ConfirmDispenseFormKeys,
    ::testing::Values(
        WidgetKey{"cancelButton", "electronicPrescriptionConfirmDispenseFormCancelButton"},
        WidgetKey{"completeDispenseButton", "electronicPrescriptionConfirmDispenseFormCompleteDispenseButton"},
        WidgetKey{"partDispenseButton", "electronicPrescriptionConfirmDispenseFormPartDispenseButton"},
        WidgetKey{"titleLabel", "electronicPrescriptionConfirmDispenseFormTitle"},
        WidgetKey{"confirmDispenseLabel", "electronicPrescriptionConfirmDispenseFormConfirmDispenseLabel"},
        WidgetKey{"prescribedDosesLabel", "electronicPrescriptionConfirmDispenseFormPrescribedDoses"},
        WidgetKey{"choiceHintLabel", "electronicPrescriptionConfirmDispenseFormChoiceHint"}),
    widgetOfParameter);

TEST_F(TranslationKeys, choiceTable_headersShowTheTextsOfTheirKeys)
{
    const ElectronicPrescriptionChoiceModel model({}, {}, nullptr);
    const QStringList keys{"electronicPrescriptionChoiceFormInn", "electronicPrescriptionChoiceFormInnCode",
                           "electronicPrescriptionChoiceFormPrescriptionDate",
                           "electronicPrescriptionChoiceFormDoseQuantity",
                           "electronicPrescriptionChoiceFormDispensedDoseQuantity"};
    ASSERT_EQ(model.columnCount(), keys.size());
    for (int section = 0; section < keys.size(); ++section) {
        EXPECT_EQ(model.headerData(section, Qt::Horizontal), EveryKey::textOf(keys.at(section)));
    }
}

TEST_F(TranslationKeys, prescribedBy_showsTheTextOfItsKindsKey)
{
    const auto shown = prescription("Метформин");
    EXPECT_EQ(textOfDetails(shown, "prescribedByInnOrTradeNameValueLabel"),
              EveryKey::textOf("electronicPrescriptionFormPrescribedByTradeName"));
    shown->setPrescribedByInn();
    EXPECT_EQ(textOfDetails(shown, "prescribedByInnOrTradeNameValueLabel"),
              EveryKey::textOf("electronicPrescriptionFormPrescribedByInn"));
}

TEST_F(TranslationKeys, digitalSignature_showsTheTextOfYesOrNo)
{
    const auto shown = prescription("Метформин");
    EXPECT_EQ(textOfDetails(shown, "digitalSignatureValueLabel"),
              EveryKey::textOf("electronicPrescriptionFormDigitalSignatureNo"));
    shown->setDigitalSignature();
    EXPECT_EQ(textOfDetails(shown, "digitalSignatureValueLabel"),
              EveryKey::textOf("electronicPrescriptionFormDigitalSignatureYes"));
}
