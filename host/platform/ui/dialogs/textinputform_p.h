// SPDX-License-Identifier: MIT
#pragma once

#include "basicdialogform.h"
#include "scanrecognizer.h"
#include "tallolineedit.h"
#include "textinputparams.h"

#include <QPointer>
#include <QRegularExpression>

class QKeyEvent;
class QLabel;

/// Asks for a line of text. OK answers with it under "data"; every other way out dismisses the form.
class TextInputForm : public BasicDialogForm
{
    Q_OBJECT

public:
    explicit TextInputForm(const TextInputParams& params, QObject* parent = nullptr);

    void show() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fillTexts();
    void prepareField();
    void prepareKeyboard();
    void prepareButtons();

    /// True when the key ended a scan.
    bool takeKey(const QKeyEvent& key);
    void takeScan(const ScanRecognizer::Scan& scan);
    /// The text against the whole mask; a partial match is what may still become one that fits.
    QRegularExpressionMatch matched(const QString& text) const;
    void accept();
    QLabel* problemLabel();
    void showProblem(const QString& text);

    TextInputParams m_params;
    ScanRecognizer m_recognizer;
    QPointer<TalloLineEdit> m_field;
};
