// SPDX-License-Identifier: MIT
#include "questionform.h"

#include "dialogeventfilter.h"
#include "formanswer.h"
#include "registerstyle.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace
{
/// The height of the text in the smallest window, in pixels: the form fits a window 600 pixels high.
constexpr int tallestText = 360;
constexpr int iconSize = 48;
} // namespace

QuestionForm::QuestionForm(const Question& question, QObject* parent)
    : BasicDialogForm(parent)
{
    loadUI(u"question.ui"_s);
    fillTexts(question);
    connect(findWidget<QPushButton>(u"yesButton"_s), &QPushButton::clicked, this, [] { answerForm(u"yes"_s, true); });
    connect(findWidget<QPushButton>(u"noButton"_s), &QPushButton::clicked, this, &BasicForm::dismissed);
    rootWidget()->installEventFilter(new DialogEventFilter(this));
}

void QuestionForm::show()
{
    fitMessage(scaledPixels(tallestText));
    auto* area = findWidget<QScrollArea>(u"messageScrollArea"_s);
    const bool scrolls = area->verticalScrollBarPolicy() == Qt::ScrollBarAlwaysOn;
    area->setFocusPolicy(scrolls ? Qt::StrongFocus : Qt::NoFocus);
    BasicDialogForm::show();
}

void QuestionForm::fillTexts(const Question& question)
{
    setTitle(question.title.ui());
    auto* icon = findWidget<QLabel>(u"iconLabel"_s);
    icon->setPixmap(QApplication::style()->standardIcon(QStyle::SP_MessageBoxQuestion).pixmap(iconSize));
    icon->setAccessibleName(question.title.ui());
    showText(u"messageLabel"_s, question.text.ui());
    findWidget<QWidget>(u"messageScrollArea"_s)->setAccessibleName(question.text.ui());
    const std::pair<QString, tr::Tr> buttons[] = {{u"yesButton"_s, question.yes}, {u"noButton"_s, question.no}};
    for (const auto& [name, text] : buttons) {
        auto* button = findWidget<QPushButton>(name);
        button->setText(text.ui());
        button->setAccessibleName(button->text());
        button->setAccessibleDescription(question.text.ui());
    }
}
