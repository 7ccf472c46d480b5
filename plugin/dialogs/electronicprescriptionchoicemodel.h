// SPDX-License-Identifier: MIT
#pragma once

#include "electronicprescription.h"
#include "patient.h"

#include <QAbstractItemModel>
#include <QList>
#include <QSharedPointer>
#include <QStringList>

/// A patient's prescriptions as a flat table, one row each, in the order given. The rows never change.
class ElectronicPrescriptionChoiceModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column : int {
        Inn,
        InnCode,
        PrescriptionDate,
        DoseQuantity,
        DispensedDoseQuantity,
    };

    /// @param patient the prescriptions' patient; kept for the form
    ElectronicPrescriptionChoiceModel(const QList<QSharedPointer<ElectronicPrescription>>& electronicPrescriptions,
                                      const QSharedPointer<Patient>& patient, QObject* parent);

    /// An index for any row and column; bounds are not checked.
    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    using QObject::parent;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    /// For the display role the text of the cell: dates as "yyyy-MM-dd" (an invalid one is empty), doses with three
    /// decimals. An invalid QVariant for any other role and for a cell out of range.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    /// The row's prescription; null when there is no such row.
    QSharedPointer<ElectronicPrescription> getElectronicPrescription(int row) const;
    QSharedPointer<Patient> getPatient() const;

private:
    QList<QSharedPointer<ElectronicPrescription>> m_electronicPrescriptions;
    QSharedPointer<Patient> m_patient;
    QStringList m_captions;
};
