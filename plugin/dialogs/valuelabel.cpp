// SPDX-License-Identifier: MIT
#include "valuelabel.h"

#include <QLabel>
#include <QTextDocument>

void showValue(QLabel* label, const QString& text)
{
    if (!label)
        return;
    label->setText(text);
    label->setToolTip(text.isEmpty() ? QString() : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal));
}
