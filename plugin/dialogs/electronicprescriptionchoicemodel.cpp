// SPDX-License-Identifier: MIT
#include "electronicprescriptionchoicemodel.h"

#include "prescriptiondate.h"
#include "tr.h"

using namespace Qt::StringLiterals;

namespace
{

QString doses(double quantity)
{
    return QString::number(quantity, 'f', 3);
}

} // namespace

ElectronicPrescriptionChoiceModel::ElectronicPrescriptionChoiceModel(
    const QList<QSharedPointer<ElectronicPrescription>>& electronicPrescriptions,
    const QSharedPointer<Patient>& patient, QObject* parent)
    : QAbstractItemModel(parent)
    , m_electronicPrescriptions(electronicPrescriptions)
    , m_patient(patient)
    , m_captions{
          tr::Tr(u"electronicPrescriptionChoiceFormInn"_s, u"МНН"_s).ui(),
          tr::Tr(u"electronicPrescriptionChoiceFormInnCode"_s, u"Код"_s).ui(),
          tr::Tr(u"electronicPrescriptionChoiceFormPrescriptionDate"_s, u"Дата\nвыписки"_s).ui(),
          tr::Tr(u"electronicPrescriptionChoiceFormDoseQuantity"_s, u"Выписано\nдоз"_s).ui(),
          tr::Tr(u"electronicPrescriptionChoiceFormDispensedDoseQuantity"_s, u"Отпущено\nдоз"_s).ui(),
      }
{
}

QModelIndex ElectronicPrescriptionChoiceModel::index(int row, int column, const QModelIndex&) const
{
    return createIndex(row, column);
}

QModelIndex ElectronicPrescriptionChoiceModel::parent(const QModelIndex&) const
{
    return {};
}

int ElectronicPrescriptionChoiceModel::rowCount(const QModelIndex&) const
{
    return int(m_electronicPrescriptions.size());
}

int ElectronicPrescriptionChoiceModel::columnCount(const QModelIndex&) const
{
    return int(m_captions.size());
}

QVariant ElectronicPrescriptionChoiceModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole || !index.isValid()) {
        return {};
    }
    const auto prescription = getElectronicPrescription(index.row());
    if (!prescription) {
        return {};
    }

    switch (index.column()) {
    case Inn:
        return prescription->getInn();
    case InnCode:
        return prescription->getInnCode();
    case PrescriptionDate:
        return formatted(prescription->getPrescriptionDate());
    case DoseQuantity:
        return doses(prescription->getDoseQuantity());
    case DispensedDoseQuantity:
        return doses(prescription->getDispensedDoseQuantity());
    default:
        return {};
    }
}

QVariant ElectronicPrescriptionChoiceModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return QAbstractItemModel::headerData(section, orientation, role);
    }
    if (section < 0 || section >= m_captions.size()) {
        return {};
    }
    return m_captions.at(section);
}

QSharedPointer<ElectronicPrescription> ElectronicPrescriptionChoiceModel::getElectronicPrescription(int row) const
{
    if (row < 0 || row >= m_electronicPrescriptions.size()) {
        return {};
    }
    return m_electronicPrescriptions.at(row);
}

QSharedPointer<Patient> ElectronicPrescriptionChoiceModel::getPatient() const
{
    return m_patient;
}
