// SPDX-License-Identifier: MIT
// A form in the language of the catalogue beside the plug-in's layouts.
#include "dialogforms.h"
#include "electronicprescriptionconfirmdispenseform.h"

#include <QCoreApplication>
#include <QTranslator>

namespace
{

class Translations : public DialogForms
{
};

} // namespace

TEST_F(Translations, catalogueInstalled_formSpeaksEnglish)
{
    QTranslator translator;
    ASSERT_TRUE(translator.load(PLUGIN_CATALOGUE)) << PLUGIN_CATALOGUE;
    QCoreApplication::installTranslator(&translator);
    const ElectronicPrescriptionConfirmDispenseForm form(
        ElectronicPrescriptionConfirmDispenseParams(prescription("Метформин")), nullptr);
    EXPECT_EQ(text(form, "completeDispenseButton"), "In full");
    EXPECT_EQ(text(form, "confirmDispenseLabel"), "The medicine prescribed as\n'Метформин'\nhas been dispensed");
    QCoreApplication::removeTranslator(&translator);
}
