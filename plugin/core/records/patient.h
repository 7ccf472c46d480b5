// SPDX-License-Identifier: MIT
#pragma once

#include <QDate>
#include <QString>

/// The patient whose card was read. Held by shared pointers; never changes.
class Patient
{
public:
    /// @param birthday invalid when unknown
    Patient(const QString& name, const QDate& birthday);
    virtual ~Patient();
    Q_DISABLE_COPY_MOVE(Patient)

    virtual QString getName() const;
    virtual QDate getBirthday() const;

private:
    QString m_name;
    QDate m_birthday;
};
