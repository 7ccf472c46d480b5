// SPDX-License-Identifier: MIT
// The forms in the language of the catalogue beside the plug-in's layouts.
#include "dialogforms.h"
#include "electronicprescriptionchoiceform.h"
#include "electronicprescriptionconfirmdispenseform.h"
#include "tallotableview.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QTranslator>

namespace
{

class Translations : public DialogForms
{
protected:
    Translations()
    {
        EXPECT_TRUE(m_english.load(PLUGIN_CATALOGUE)) << PLUGIN_CATALOGUE;
        QCoreApplication::installTranslator(&m_english);
    }
    ~Translations() override { QCoreApplication::removeTranslator(&m_english); }

private:
    QTranslator m_english;
};

} // namespace

TEST_F(Translations, catalogueInstalled_formIsInEnglish)
{
    const ElectronicPrescriptionConfirmDispenseForm form(
        ElectronicPrescriptionConfirmDispenseParams(prescription("Метформин")), nullptr);
    EXPECT_EQ(text(form, "completeDispenseButton"), "In full");
    EXPECT_EQ(text(form, "confirmDispenseLabel"), "The medicine prescribed as\n“Метформин”\nhas been dispensed");
}

TEST_F(Translations, choiceListInEnglish_headerShowsTheModelsCaptionsOnly)
{
    ElectronicPrescriptionChoiceForm form({{prescription("Метформин")}, "active", patient(), false}, nullptr);
    open(form);
    auto* table = widget<TalloTableView>(form, "electronicPrescriptionsTableView");
    EXPECT_EQ(table->model()->headerData(0, Qt::Horizontal), "INN");
    const QImage shown = table->horizontalHeader()->grab().toImage();
    QStringList columns = table->columns();
    columns.first().replace("МНН", "");
    table->setColumns(columns);
    EXPECT_EQ(table->horizontalHeader()->grab().toImage(), shown) << "the column's own caption is not shown";
}
