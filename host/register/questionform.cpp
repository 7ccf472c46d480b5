// SPDX-License-Identifier: MIT
#include "questionform.h"

#include "dialogeventfilter.h"
#include "formanswer.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>

namespace
{
/// Room for the text, in pixels: the form fits a window of 600.
constexpr int tallestText = 360;
constexpr int iconSize = 48;
} // namespace

QuestionForm::QuestionForm(const Question& question, QObject* parent)
    : BasicDialogForm(parent)
{
    loadUI(QStringLiteral("question.ui"));
    fillTexts(question);
    connect(findWidget<QPushButton>(QStringLiteral("yesButton")), &QPushButton::clicked, this,
            [] { answerForm(QStringLiteral("yes"), true); });
    connect(findWidget<QPushButton>(QStringLiteral("noButton")), &QPushButton::clicked, this, &BasicForm::dismissed);
    rootWidget()->installEventFilter(new DialogEventFilter(this));
}

void QuestionForm::show()
{
    fitMessage(tallestText);
    auto* area = findWidget<QScrollArea>(QStringLiteral("messageScrollArea"));
    const bool scrolls = area->verticalScrollBarPolicy() == Qt::ScrollBarAlwaysOn;
    area->setFocusPolicy(scrolls ? Qt::StrongFocus : Qt::NoFocus);
    BasicDialogForm::show();
}

void QuestionForm::fillTexts(const Question& question)
{
    setTitle(question.title.ui());
    auto* icon = findWidget<QLabel>(QStringLiteral("iconLabel"));
    icon->setPixmap(QApplication::style()->standardIcon(QStyle::SP_MessageBoxQuestion).pixmap(iconSize));
    icon->setAccessibleName(question.title.ui());
    findWidget<QLabel>(QStringLiteral("messageLabel"))->setText(question.text.ui());
    findWidget<QWidget>(QStringLiteral("messageScrollArea"))->setAccessibleName(question.text.ui());
    const std::pair<QString, tr::Tr> buttons[] = {{QStringLiteral("yesButton"), question.yes},
                                                  {QStringLiteral("noButton"), question.no}};
    for (const auto& [name, text] : buttons) {
        auto* button = findWidget<QPushButton>(name);
        button->setText(text.ui());
        button->setAccessibleName(button->text());
        button->setAccessibleDescription(question.text.ui());
    }
}
