// SPDX-License-Identifier: MIT
#include "helpform.h"

#include "dialogeventfilter.h"
#include "functionkey.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace
{

/// More keys are in two columns, so that they fit the smallest window.
constexpr qsizetype mostInAColumn = 9;

QLabel* label(const QString& text, const char* textRole)
{
    auto* shown = new QLabel(text);
    shown->setTextFormat(Qt::PlainText);
    shown->setProperty("textRole", QLatin1StringView(textRole));
    return shown;
}

} // namespace

HelpForm::HelpForm(const HelpParams& params, QObject* parent)
    : BasicDialogForm(parent)
{
    loadUI(u"help.ui"_s);
    setTitle(params.title.isEmpty() ? tr::Tr(u"helpTitle"_s, u"Справка"_s).ui()
                                    : tr::Tr(u"helpTitleOf"_s, u"Справка: %1"_s).arg(params.title).ui());
    showText(u"nextLabel"_s, params.help.next.ui());
    findWidget<QWidget>(u"nextLabel"_s)->setVisible(!params.help.next.text().isEmpty());
    showKeys(params.help.keys + QList<FormHelp::Key>{{QKeySequence(helpKey).toString(QKeySequence::NativeText),
                                                      {u"helpHelpKey"_s, u"показать или закрыть справку"_s}}});
    auto* close = findWidget<QPushButton>(u"okButton"_s);
    close->setText(tr::Tr(u"helpClose"_s, u"Закрыть"_s).ui());
    close->setAccessibleName(close->text());
    connect(close, &QPushButton::clicked, this, &BasicForm::dismissed);
    rootWidget()->installEventFilter(new DialogEventFilter(this));
}

/// In touch mode no keys: there are buttons.
void HelpForm::showKeys(const QList<FormHelp::Key>& keys)
{
    if (isTouchMode()) {
        deleteWidgets({u"keys"_s});
        return;
    }
    auto* grid = findWidget<QWidget>(u"keys"_s)->findChild<QGridLayout*>();
    const qsizetype rows = keys.size() > mostInAColumn ? (keys.size() + 1) / 2 : keys.size();
    for (qsizetype index = 0; index < keys.size(); ++index) {
        const auto row = int(index % rows);
        const auto column = int(2 * (index / rows));
        grid->addWidget(label(keys[index].key, "value"), row, column);
        grid->addWidget(label(keys[index].does.ui(), ""), row, column + 1);
        grid->setColumnStretch(column + 1, 1);
    }
}
