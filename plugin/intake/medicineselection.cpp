// SPDX-License-Identifier: MIT
#include "action.h"
#include "actionfactory.h"
#include "actionqueuecontroller.h"
#include "cashiermessage.h"
#include "dialog.h"
#include "electronicprescription.h"
#include "electronicprescriptionservice.h"
#include "prescriptiontexts.h"
#include "singleton.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace
{

constexpr double smallestDoses = 0.001;

control::Action createReceiptAction(control::EActionType type)
{
    control::Action action = Singleton<control::ActionFactory>::get()->create(type);
    action.setAllowContexts({EContext::OpenDocument});
    return action;
}

TextInputParams dosesInput(const ElectronicPrescription& prescription)
{
    TextInputParams params;
    params.title = {u"electronicPrescriptionInputDispensedDoseQuantityFormTitle"_s,
                    u"Ввод количества отпущенных доз"_s};
    params.message = tr::Tr(u"electronicPrescriptionInputDispensedDoseQuantityFormMessage"_s,
                            u"Введите количество отпущенных доз по рецепту на\n'%1 / %2'\n"
                            "(выписано %3/отпущено ранее %4)"_s)
                         .arg(prescription.getInn())
                         .arg(prescription.getTradeName())
                         .arg(QString::number(prescription.getDoseQuantity(), 'f', 2))
                         .arg(QString::number(prescription.getDispensedDoseQuantity(), 'f', 2));
    params.scanError = prescriptiontexts::scanError();
    params.okText = prescriptiontexts::ok();
    params.cancelText = prescriptiontexts::cancel();
    params.inputName = u"inputQuantity"_s;
    params.mask = uR"(\d{1,9}(\.)\d{0,2}|\d{1,9})"_s;
    params.numeric = true;
    params.manualOnly = true;
    params.lines = 1;
    params.columns = 10;
    params.hint = {u"electronicPrescriptionDosesHint"_s,
                   u"Число больше 0, не больше двух знаков после запятой или точки"_s};
    return params;
}

} // namespace

bool ElectronicPrescriptionService::selectMedicineForElectronicPrescription(
    const QSharedPointer<ElectronicPrescription>& prescription, QVariant& selected) const
{
    const QString inn = prescription->getInn();
    const QString doses = QString::number(prescription->getDoseQuantity(), 'g', QLocale::FloatingPointShortest);

    control::Action action = createReceiptAction(control::SelectGoods);
    action.appendArgument(inn, u"filterByInn"_s);
    action.appendArgument(u"%1 / %2 / %3"_s.arg(inn, prescription->getTradeName(), doses), u"medicineInfo"_s);
    if (Singleton<ActionQueueController>::get()->execute(action) != EContext::GoOn) {
        return false;
    }

    selected = action.value(u"result"_s);
    return true;
}

int ElectronicPrescriptionService::addSelectedMedicine(const QVariant& selected) const
{
    control::Action action = createReceiptAction(control::AddSelectedGoods);
    action.insert(u"result"_s, selected);
    if (Singleton<ActionQueueController>::get()->execute(action) != EContext::GoOn) {
        return -1;
    }
    return action.value(u"positionNumber"_s).toInt();
}

bool ElectronicPrescriptionService::inputDispensedDoseQuantity(
    const QSharedPointer<ElectronicPrescription>& prescription, double& doses) const
{
    const TextInputParams params = dosesInput(*prescription);
    while (true) {
        const auto result = Dialog::create()->showTextInput(params);
        if (result.canceled()) {
            return false;
        }

        bool isNumber = false;
        doses = result.getData().toString().toDouble(&isNumber);
        if (isNumber && doses >= smallestDoses) {
            return true;
        }

        showError({u"electronicPrescriptionInputDispensedDoseQuantityError"_s,
                   u"Введено некорректное количество доз\nПовторите ввод"_s});
    }
}
