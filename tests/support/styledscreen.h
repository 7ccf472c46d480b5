// SPDX-License-Identifier: MIT
#pragma once

#include "registerstyle.h"

#include <QApplication>

/// The register's style for a screen of that size, for as long as it lives. Afterwards the scale is that of the other
/// tests.
class StyledScreen
{
public:
    explicit StyledScreen(QSize size) { applyRegisterStyle(*qApp, size); }
    ~StyledScreen()
    {
        applyRegisterStyle(*qApp, {1024, 600});
        qApp->setStyleSheet(QString());
    }
    Q_DISABLE_COPY_MOVE(StyledScreen)
};
