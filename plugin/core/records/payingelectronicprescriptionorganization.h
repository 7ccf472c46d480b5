// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The organization that pays a patient's benefit. Held by shared pointers; never changes.
class PayingElectronicPrescriptionOrganization
{
public:
    /// @param id the organization's identifier in the registry
    PayingElectronicPrescriptionOrganization(const QString& id, const QString& name);
    virtual ~PayingElectronicPrescriptionOrganization();
    Q_DISABLE_COPY_MOVE(PayingElectronicPrescriptionOrganization)

    virtual QString getId() const;
    virtual QString getName() const;

private:
    QString m_id;
    QString m_name;
};
