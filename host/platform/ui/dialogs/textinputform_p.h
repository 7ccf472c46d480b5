// SPDX-License-Identifier: MIT
#pragma once

#include "basicdialogform.h"
#include "tallolineedit.h"
#include "textinputparams.h"

#include <QPointer>
#include <QRegularExpression>

/// Asks for a line of text. OK answers with it under "data". Every other way out dismisses the form.
class TextInputForm : public BasicDialogForm
{
    Q_OBJECT

public:
    explicit TextInputForm(const TextInputParams& params, QObject* parent = nullptr);

    void show() override;

private:
    void fillTexts();
    void showHint();
    void prepareField();
    void prepareKeyboard();
    void prepareButtons();

    void takeScan(const QString& code);
    void refuseScan(const tr::Tr& reason);
    /// Compares a text with the whole mask. A partial match may still become a full one.
    QRegularExpressionMatch matched(const QString& text) const;
    void accept();
    void showProblem(const tr::Tr& problem);
    void hideProblem();

    TextInputParams m_params;
    QPointer<TalloLineEdit> m_field;
};
