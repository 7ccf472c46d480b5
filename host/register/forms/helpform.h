// SPDX-License-Identifier: MIT
#pragma once

#include "basicdialogform.h"
#include "helpparams.h"

/// The keys that work on a screen, and what comes next there. Ends without an answer.
class HelpForm : public BasicDialogForm
{
    Q_OBJECT

public:
    explicit HelpForm(const HelpParams& params, QObject* parent = nullptr);

private:
    void showKeys(const QList<FormHelp::Key>& keys);
};
