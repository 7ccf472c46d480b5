// SPDX-License-Identifier: MIT
#include "documentlistform.h"

#include "actionqueuecontroller.h"
#include "config.h"
#include "currenttime.h"
#include "dialogeventfilter.h"
#include "formanswer.h"
#include "formkeys.h"
#include "iconsviewnotifier.h"
#include "inactivitylocker.h"
#include "registerstyle.h"
#include "shownkey.h"
#include "stoppedaction.h"
#include "tablecolumn.h"
#include "tallokeyboard.h"
#include "tallolineedit.h"
#include "tallotableview.h"

#include <QBoxLayout>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QShortcut>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

const QString digits = u"digits"_s;

/// The day that the text names: "29.02.2024", "29.2.24" or "29.02", with points or commas. Without a whole year it is
/// the last one that has come. Invalid when the text names no day.
QDate typedDay(const QString& text)
{
    static const QRegularExpression form(u"\\A(\\d{1,2})[.,](\\d{1,2})(?:[.,](\\d{0,4}))?\\z"_s);
    const QRegularExpressionMatch typed = form.match(text);
    const int day = typed.captured(1).toInt();
    const int month = typed.captured(2).toInt();
    const QString year = typed.captured(3);
    if (year.size() == 4 || year.size() == 2) {
        return {year.toInt() + (year.size() == 2 ? 2000 : 0), month, day};
    }
    const QDate today = CurrentTime::create()->current().date();
    const QDate thisYear(today.year(), month, day);
    return thisYear > today ? thisYear.addYears(-1) : thisYear;
}

} // namespace

DocumentListForm::DocumentListForm(const DocumentListParams& params, QObject* parent)
    : BasicForm(parent)
    , m_params(params)
    , m_positions(*params.marks)
{
    setContextCode(EContext::StoredDocuments); // the context in which plug-ins handle voiding
    loadUI(u"documentlist.ui"_s);
    if (!isTouchMode()) {
        deleteWidgets({u"scrollButtonsNavigationBar"_s, u"navigationBar"_s});
    }
    m_table = findWidget<TalloTableView>(u"documentTable"_s);
    m_positionsTable = findWidget<TalloTableView>(u"positionsTable"_s);
    m_filter = findWidget<TalloLineEdit>(u"filterLineEdit"_s);
    m_hint = findWidget<QLabel>(u"hintLabel"_s);
    m_resume = findWidget<QPushButton>(u"takeUpButton"_s);
    m_return = findWidget<QPushButton>(u"takeBackButton"_s);
    m_void = findWidget<QPushButton>(u"annulButton"_s);
    m_print = findWidget<QPushButton>(u"printButton"_s);

    findWidget<QLabel>(u"titleLabel"_s)->setText(tr::Tr(u"documentsTitle"_s, u"Документы"_s).ui());
    setUpTables();
    setUpButtons();
    nameControls();

    auto* keys = new DialogEventFilter(this);
    keys->setTableView(m_table);
    keys->setLineEdit(m_filter);
    connect(keys, &DialogEventFilter::ok, this, &DocumentListForm::confirm);
    connect(keys, &DialogEventFilter::cancel, this, &DocumentListForm::leave);
    rootWidget()->installEventFilter(keys);
    connect(m_filter, &QLineEdit::textChanged, this, &DocumentListForm::filter);
    connect(Singleton<ActionQueueController>::get(), &ActionQueueController::stopped, this,
            &DocumentListForm::rememberStop);
    load();
}

void DocumentListForm::setUpTables()
{
    m_filtered.setSourceModel(&m_documents);
    m_table->setModel(&m_filtered);
    m_table->setColumns(TableColumn::texts({
        {u"number"_s, TableColumn::fittingContents, TableColumn::right},
        {u"state"_s, TableColumn::remainingRoom, TableColumn::left},
        {u"time"_s, TableColumn::fittingContents, TableColumn::left},
        {u"positions"_s, TableColumn::fittingContents, TableColumn::right},
        {u"sum"_s, TableColumn::fittingMoney, TableColumn::right},
        {u"searchText"_s, 0, TableColumn::left, false},
        {u"days"_s, 0, TableColumn::left, false},
    }));
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &DocumentListForm::showCurrent);

    m_positionsTable->setModel(&m_positions);
    m_positionsTable->setFocusPolicy(Qt::NoFocus);
    m_positionsTable->setSelectionMode(QAbstractItemView::NoSelection);
    m_positionsTable->setColumns(TableColumn::texts({
        {u"number"_s, TableColumn::fittingContents, TableColumn::right},
        {u"name"_s, TableColumn::remainingRoom, TableColumn::left},
        {u"mark"_s, TableColumn::fittingContents, TableColumn::centred},
        {u"quantity"_s, TableColumn::fittingContents, TableColumn::right},
        {u"initialPrice"_s, 0, TableColumn::right, false},
        {u"price"_s, 0, TableColumn::right, false},
        {u"sum"_s, TableColumn::fittingMoney, TableColumn::right},
        {u"state"_s, TableColumn::fittingContents, TableColumn::left},
    }));
}

void DocumentListForm::setUpButtons()
{
    struct Button {
        QPushButton* button;
        tr::Tr text;
        QKeySequence shortcut;
        void (DocumentListForm::*act)();
    };
    const Button buttons[] = {
        {m_resume, {u"documentsTakeUp"_s, u"Взять в работу"_s}, formkeys::resume, &DocumentListForm::resume},
        {m_return, {u"documentsTakeBack"_s, u"Вернуть"_s}, formkeys::returnSale, &DocumentListForm::returnSale},
        {m_void, {u"documentsAnnul"_s, u"Аннулировать"_s}, formkeys::voidDocument, &DocumentListForm::voidDocument},
        {m_print, {u"documentsPrint"_s, u"Печать копии"_s}, formkeys::printCopy, &DocumentListForm::print},
        {findWidget<QPushButton>(u"cancelButton"_s), {u"documentsCancel"_s, u"Назад"_s}, {}, &DocumentListForm::leave},
    };
    for (const Button& entry : buttons) {
        entry.button->setText(withShownKey(entry.shortcut, entry.text.ui()));
        entry.button->setAccessibleName(entry.text.ui());
        connect(entry.button, &QPushButton::clicked, this, entry.act);
        if (entry.shortcut.isEmpty()) {
            continue;
        }
        // A button's own shortcut clicks with a delay, and another document may be the current one by then.
        auto* pressed = new QShortcut(entry.shortcut, rootWidget());
        pressed->setAutoRepeat(false);
        connect(pressed, &QShortcut::activated, entry.button, &QPushButton::click);
    }
    if (auto* keyboard = findWidget<TalloKeyboard>(u"talloKeyboard"_s, false)) {
        const QString letters = Singleton<Config>::get()->getString(u"Language:keyboardLayouts"_s, u"ru,en"_s);
        keyboard->setKeyboardLayouts(digits + u',' + letters);
        connect(keyboard, &TalloKeyboard::layoutChanged, this, &DocumentListForm::arrangeForKeyboard);
        connect(keyboard, &TalloKeyboard::layoutChanged, Singleton<IconsViewNotifier>::get(),
                &IconsViewNotifier::notifyIcons);
        connect(keyboard, &TalloKeyboard::keyPressed, Singleton<InactivityLocker>::get(),
                &InactivityLocker::resetTimer);
    }
}

/// Digits are beside the tables. Letters need the whole width, so they are below, in the place of the positions.
void DocumentListForm::arrangeForKeyboard()
{
    const bool isWide = findWidget<TalloKeyboard>(u"talloKeyboard"_s)->currentLayout() != digits;
    m_positionsTable->setVisible(!isWide);
    findWidget<QWidget>(u"scrollButtonsNavigationBar"_s)->setVisible(!isWide);
    if (auto* contents = rootWidget()->findChild<QBoxLayout*>(u"contentsLayout"_s)) {
        contents->setDirection(isWide ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    }
}

void DocumentListForm::nameControls()
{
    m_filter->setPlaceholderText(
        tr::Tr(u"documentsFilterHint"_s, u"Номер, день (29.02.2024), состояние или товар"_s).ui());
    setAccessibleNames({
        {u"filterLineEdit"_s, {u"documentsFilter"_s, u"Поиск документа"_s}},
        {u"documentTable"_s, {u"documentsTable"_s, u"Список документов"_s}},
        {u"positionsTable"_s, {u"documentsPositions"_s, u"Позиции документа"_s}},
    });
}

void DocumentListForm::load()
{
    const int number = current() ? current()->getNumber() : 0;
    m_documents.show(m_params.documents(), m_params.returned);
    search(m_filter->text().trimmed());
    makeCurrent(number);
    showCurrent();
}

void DocumentListForm::filter(const QString& text)
{
    const int number = current() ? current()->getNumber() : 0;
    const QString wanted = text.trimmed();
    search(wanted);
    makeCurrent(m_documents.rowOf(wanted.toInt()) >= 0 ? wanted.toInt() : number);
    showCurrent();
}

/// Searches the latest documents, and any document whose day or number is typed.
void DocumentListForm::search(const QString& text)
{
    const QDate day = typedDay(text);
    if (day.isValid()) {
        m_documents.add(m_params.ofDay(day), m_params.returned);
    } else if (const int number = text.toInt(); number > 0 && m_documents.rowOf(number) < 0) {
        if (const Pointer document = m_params.byNumber(number)) {
            m_documents.add({document}, m_params.returned);
        }
    }
    m_filtered.addFilter(DocumentTableModel::Days, day.isValid() ? DocumentTableModel::dayText(day) : QString(),
                         ComplexFilterProxyModel::Contains);
    m_filtered.search(day.isValid() ? QString() : text);
}

void DocumentListForm::showCurrent()
{
    const Pointer document = current();
    const std::pair<QPushButton*, DocumentListParams::Rule> rules[] = {
        {m_resume, m_params.obstacleToResuming},
        {m_return, m_params.obstacleToReturning},
        {m_void, m_params.obstacleToVoiding},
        {m_print, m_params.obstacleToPrinting},
    };
    for (const auto& [button, rule] : rules) {
        const std::optional<Obstacle> obstacle = document ? rule(*document) : Obstacle();
        button->setEnabled(!obstacle);
        button->setToolTip(obstacle ? obstacle->text.ui() : QString());
    }

    m_positions.refresh(document);
    for (const auto column : {PositionTableModel::Mark, PositionTableModel::State}) {
        m_positionsTable->setColumnHidden(column, m_positions.isEmpty(column));
    }
    showHint();
}

void DocumentListForm::showHint()
{
    const Pointer document = current();
    if (m_documents.rowCount() == 0) {
        showHint(tr::Tr(u"documentsNone"_s, u"Отложенных и завершённых документов нет."_s).ui(), "hint");
    } else if (!document) {
        showHint(tr::Tr(u"documentsNotFound"_s,
                        u"Ничего не найдено. Измените строку поиска; давние документы ищут по номеру или дню."_s)
                     .ui(),
                 "error");
    } else if (document->getNumber() == m_outcome.document) {
        showHint(m_outcome.text, m_outcome.textRole);
    } else if (const auto obstacle = m_params.warning(*document)) {
        showHint(obstacle->text.ui(), "waiting");
    } else if (m_params.obstacleToAnother) {
        showHint(m_params.obstacleToAnother->text.ui(), "hint");
    } else {
        showHint(m_print->toolTip(), "hint");
    }
}

void DocumentListForm::showHint(const QString& text, const char* textRole)
{
    showText(u"hintLabel"_s, text);
    m_hint->setVisible(!text.isEmpty());
    setStyleProperty(*m_hint, u"textRole"_s, QLatin1StringView(textRole));
}

void DocumentListForm::rememberStop(const control::Action& action, EContext::Result result)
{
    if (result == EContext::NotFound || !current()) {
        return; // the register shows a message
    }
    m_outcome = {current()->getNumber(), stoppedaction::stopped(action).ui(), "waiting"};
}

DocumentListForm::Pointer DocumentListForm::current() const
{
    const QModelIndex index = m_filtered.mapToSource(m_table->currentIndex());
    return index.isValid() ? m_documents.document(index.row()) : nullptr;
}

/// Makes the first document the current one when the wanted one is not in the list.
void DocumentListForm::makeCurrent(int number)
{
    const QModelIndex wanted =
        m_filtered.mapFromSource(m_documents.index(m_documents.rowOf(number), DocumentTableModel::Number));
    m_table->setCurrentIndex(wanted.isValid() ? wanted : m_filtered.index(0, DocumentTableModel::Number));
}

/// The Return key only resumes: that does no harm.
void DocumentListForm::confirm()
{
    if (m_resume->isEnabled()) {
        resume();
    }
}

void DocumentListForm::resume()
{
    answerForm(u"resume"_s, current()->getNumber());
}

void DocumentListForm::returnSale()
{
    answerForm(u"returnSale"_s, current()->getNumber());
}

void DocumentListForm::voidDocument()
{
    act(m_params.voidDocument);
}

void DocumentListForm::print()
{
    act(m_params.print);
}

void DocumentListForm::act(const DocumentListParams::Act& act)
{
    m_outcome = {}; // rememberStop() may set it during the act
    const int number = current()->getNumber();
    if (const std::optional<QString> done = act(current())) {
        m_outcome = {number, *done, "hint"};
    }
    load();
}

void DocumentListForm::leave()
{
    emit dismissed();
}
