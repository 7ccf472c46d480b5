// SPDX-License-Identifier: MIT
#include "textinputform_p.h"

#include "config.h"
#include "dialogeventfilter.h"
#include "graphicaluserinterface.h"
#include "iconsviewnotifier.h"
#include "inactivitylocker.h"
#include "registerstyle.h"
#include "scanfilter.h"
#include "tallokeyboard.h"

#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace
{

/// Room for the prompt, in pixels of the smallest window: the form fits a window 600 pixels high, also with the touch
/// keyboard.
constexpr int tallestPrompt = 260;
constexpr int tallestPromptInTouchMode = 100;

/// The text; the register's own when it is empty.
QString textOr(const tr::Tr& text, const tr::Tr& own)
{
    return (text.text().isEmpty() ? own : text).ui();
}

} // namespace

TextInputForm::TextInputForm(const TextInputParams& params, QObject* parent)
    : BasicDialogForm(parent)
    , m_params(params)
{
    loadUI(u"textinput.ui"_s);
    m_field = findWidget<TalloLineEdit>(u"inputLineEdit"_s);
    fillTexts();
    prepareKeyboard();
    prepareButtons();
    prepareField();
    setHelp({{{FormHelp::enterKey(), {u"helpTextInputEnter"_s, u"принять введённое"_s}},
              {u"Esc"_s, {u"helpTextInputEsc"_s, u"отказаться от ввода"_s}}},
             {u"helpTextInputNext"_s, u"Введите значение и примите его: касса продолжит работу с ним."_s}});
}

void TextInputForm::show()
{
    fitMessage(scaledPixels(isTouchMode() ? tallestPromptInTouchMode : tallestPrompt));
    BasicDialogForm::show();
}

void TextInputForm::fillTexts()
{
    setTitle(m_params.title.ui());
    showText(u"messageLabel"_s, m_params.message.ui());
    showHint();
    hideProblem();
    if (auto* area = findWidget<QWidget>(u"messageScrollArea"_s, false)) {
        area->setVisible(!m_params.message.ui().isEmpty());
    }
}

/// A layout without the label shows no hint.
void TextInputForm::showHint()
{
    const QString hint = m_params.hint.ui();
    showText(u"hintLabel"_s, hint, false);
    if (auto* label = findWidget<QLabel>(u"hintLabel"_s, false)) {
        label->setVisible(!hint.isEmpty());
    }
}

void TextInputForm::prepareField()
{
    auto* filter = new DialogEventFilter(this);
    connect(filter, &DialogEventFilter::ok, this, &TextInputForm::accept);
    connect(filter, &DialogEventFilter::cancel, this, &BasicForm::dismissed);
    rootWidget()->installEventFilter(filter);
    if (!m_field) {
        return;
    }

    filter->setLineEdit(m_field);
    connect(m_field, &QLineEdit::textEdited, this, &TextInputForm::hideProblem);
    connect(new ScanFilter(*m_field), &ScanFilter::scanned, this, &TextInputForm::takeScan);
    m_field->setNumeric(m_params.numeric);
    m_field->setProperty("inputName", m_params.inputName);
    m_field->setAccessibleName(m_params.title.ui());
    m_field->setAccessibleDescription(QStringList{m_params.message.ui(), m_params.hint.ui()}.join(u'\n').trimmed());
    const QFontMetrics metrics = m_field->fontMetrics();
    if (m_params.lines > 1) {
        m_field->setMinimumHeight(m_params.lines * metrics.lineSpacing() + metrics.height());
    }
    if (m_params.columns > 0) {
        m_field->setFixedWidth((m_params.columns + 2) * metrics.horizontalAdvance(u'0') + 2 * metrics.height());
    }
    m_field->setText(m_params.initialText);
    m_field->selectAll();
}

void TextInputForm::prepareKeyboard()
{
    if (!isTouchMode()) {
        deleteWidgets({u"talloKeyboard"_s, u"navigationBar"_s});
        return;
    }
    auto* keyboard = findWidget<TalloKeyboard>(u"talloKeyboard"_s, false);
    if (!keyboard) {
        return;
    }
    connect(keyboard, &TalloKeyboard::layoutChanged, Singleton<IconsViewNotifier>::get(),
            &IconsViewNotifier::notifyIcons);
    connect(keyboard, &TalloKeyboard::keyPressed, Singleton<InactivityLocker>::get(), &InactivityLocker::resetTimer);
    keyboard->setKeyboardLayouts(m_params.numeric
                                     ? u"digits"_s
                                     : Singleton<Config>::get()->getString(u"Language:keyboardLayouts"_s, u"ru,en"_s));
}

void TextInputForm::prepareButtons()
{
    if (auto* button = findWidget<QPushButton>(u"okButton"_s)) {
        button->setText(textOr(m_params.okText, {u"inputTextFormOkBtn"_s, u"ОК"_s}));
        button->setAccessibleName(button->text());
        connect(button, &QPushButton::clicked, this, &TextInputForm::accept);
    }
    if (auto* button = findWidget<QPushButton>(u"cancelButton"_s)) {
        button->setText(textOr(m_params.cancelText, {u"inputTextFormCancelBtn"_s, u"Отмена"_s}));
        button->setAccessibleName(button->text());
        connect(button, &QPushButton::clicked, this, &BasicForm::dismissed);
    }
}

void TextInputForm::takeScan(const QString& code)
{
    if (m_params.manualOnly || !expectsScans()) {
        refuseScan({u"inputTextFormScanRefused"_s, u"Штрихкод не принят: это значение вводят вручную"_s});
    } else if (!matched(code).hasMatch()) {
        const tr::Tr ownWords(u"inputTextFormScanError"_s,
                              u"Ошибка разбора введенных данных, повторите сканирование"_s);
        refuseScan(m_params.scanError.text().isEmpty() ? ownWords : m_params.scanError);
    } else {
        m_field->setText(code);
        accept();
    }
}

void TextInputForm::refuseScan(const tr::Tr& reason)
{
    m_field->selectAll();
    showProblem(reason);
}

QRegularExpressionMatch TextInputForm::matched(const QString& text) const
{
    const QString mask = m_params.mask.isEmpty() ? u".*"_s : m_params.mask;
    return QRegularExpression(u"\\A(?:"_s + mask + u")\\z"_s)
        .match(text, 0, QRegularExpression::PartialPreferCompleteMatch);
}

void TextInputForm::accept()
{
    if (!m_field) {
        return;
    }
    if (m_params.required && m_field->text().trimmed().isEmpty()) {
        showProblem({u"inputTextFormEmpty"_s, u"Поле пустое. Введите или отсканируйте значение"_s});
        m_field->setFocus();
        return;
    }
    // A text that does not fit stays as it is: without one of its letters it would be another value.
    if (const QRegularExpressionMatch match = matched(m_field->text()); !match.hasMatch()) {
        const tr::Tr begun(u"inputTextFormIncomplete"_s, u"Введите значение полностью"_s);
        const tr::Tr wrong(u"inputTextFormWrong"_s, u"Введено неверно, исправьте значение"_s);
        showProblem(match.hasPartialMatch() ? begun : wrong);
        m_field->setFocus();
        return;
    }
    Singleton<GraphicalUserInterface>::get()->answer(QVariantMap{{u"data"_s, m_field->text()}});
}

void TextInputForm::showProblem(const tr::Tr& problem)
{
    showText(u"scanErrorLabel"_s, problem.ui(), false);
    if (auto* label = findWidget<QLabel>(u"scanErrorLabel"_s, false)) {
        label->show();
    }
}

void TextInputForm::hideProblem()
{
    if (auto* label = findWidget<QLabel>(u"scanErrorLabel"_s, false)) {
        label->hide();
    }
}
