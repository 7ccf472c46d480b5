// SPDX-License-Identifier: MIT
#pragma once

#include "basicdialogform.h"
#include "question.h"

/// Asks a question. The yes button answers with "yes", true; every other way out dismisses the form.
class QuestionForm : public BasicDialogForm
{
    Q_OBJECT

public:
    explicit QuestionForm(const Question& question, QObject* parent = nullptr);

    void show() override;

private:
    void fillTexts(const Question& question);
};
