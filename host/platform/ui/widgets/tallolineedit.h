// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QLineEdit>

/// The register's line of input.
class REGISTERPLATFORM_EXPORT TalloLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit TalloLineEdit(QWidget* parent = nullptr);

    /// A comma typed or pasted is taken as a point, and so are the letters that the Russian layout has on the keys of
    /// comma and point.
    bool isNumeric() const { return m_numeric; }
    void setNumeric(bool numeric);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool m_numeric = false;
};
