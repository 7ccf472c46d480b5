// SPDX-License-Identifier: MIT
#include "patient.h"

Patient::Patient(const QString& name, const QDate& birthday)
    : m_name(name)
    , m_birthday(birthday)
{
}

Patient::~Patient() = default;

QString Patient::getName() const
{
    return m_name;
}

QDate Patient::getBirthday() const
{
    return m_birthday;
}
