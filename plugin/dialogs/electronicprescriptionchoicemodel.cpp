// SPDX-License-Identifier: MIT
#include "electronicprescriptionchoicemodel.h"

#include "prescriptiondate.h"
#include "tr.h"

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
          tr::Tr("electronicPrescriptionChoiceFormInn", "МНН").ui(),
          tr::Tr("electronicPrescriptionChoiceFormInnCode", "Код").ui(),
          tr::Tr("electronicPrescriptionChoiceFormPrescriptionDate", "Дата\nвыписки").ui(),
          tr::Tr("electronicPrescriptionChoiceFormDoseQuantity", "Выписано\nдоз").ui(),
          tr::Tr("electronicPrescriptionChoiceFormDispensedDoseQuantity", "Отпущено\nдоз").ui(),
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
