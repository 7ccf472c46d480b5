// SPDX-License-Identifier: MIT
#include "payingelectronicprescriptionorganization.h"

PayingElectronicPrescriptionOrganization::PayingElectronicPrescriptionOrganization(const QString& id,
                                                                                   const QString& name)
    : m_id(id)
    , m_name(name)
{
}

PayingElectronicPrescriptionOrganization::~PayingElectronicPrescriptionOrganization() = default;

QString PayingElectronicPrescriptionOrganization::getId() const
{
    return m_id;
}

QString PayingElectronicPrescriptionOrganization::getName() const
{
    return m_name;
}
