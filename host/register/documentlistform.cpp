// SPDX-License-Identifier: MIT
#include "documentlistform.h"

#include "actionqueuecontroller.h"
#include "dialogeventfilter.h"
#include "formanswer.h"
#include "refusal.h"
#include "registerstyle.h"
#include "tallokeyboard.h"
#include "tallolineedit.h"
#include "tallotableview.h"

#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>

using namespace Qt::StringLiterals;

DocumentListForm::DocumentListForm(const DocumentListParams& params, QObject* parent)
    : BasicForm(parent)
    , m_params(params)
    , m_positions(*params.marks)
{
    setContextCode(EContext::StoredDocuments); // plug-ins annul what belongs to a document in this context
    loadUI(u"documentlist.ui"_s);
    if (!isTouchMode()) {
        deleteWidgets({u"scrollButtonsNavigationBar"_s, u"navigationBar"_s});
    }
    m_table = findWidget<TalloTableView>(u"documentTable"_s);
    m_positionsTable = findWidget<TalloTableView>(u"positionsTable"_s);
    m_filter = findWidget<TalloLineEdit>(u"filterLineEdit"_s);
    m_hint = findWidget<QLabel>(u"hintLabel"_s);
    m_takeUp = findWidget<QPushButton>(u"takeUpButton"_s);
    m_takeBack = findWidget<QPushButton>(u"takeBackButton"_s);
    m_annul = findWidget<QPushButton>(u"annulButton"_s);
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
    connect(Singleton<ActionQueueController>::get(), &ActionQueueController::refused, this,
            &DocumentListForm::rememberRefusal);
    load();
}

void DocumentListForm::setUpTables()
{
    m_filtered.setSourceModel(&m_documents);
    m_table->setModel(&m_filtered);
    m_table->setColumns({
        u"number;;80;true;130"_s,
        u"state;;-1;true;129"_s,
        u"time;;-2;true;129"_s,
        u"positions;;-2;true;130"_s,
        u"sum;;-2;true;130"_s,
        u"searchText;;0;false;129"_s,
    });
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &DocumentListForm::showCurrent);

    m_positionsTable->setModel(&m_positions);
    m_positionsTable->setFocusPolicy(Qt::NoFocus);
    m_positionsTable->setSelectionMode(QAbstractItemView::NoSelection);
    m_positionsTable->setColumns({
        u"number;;40;true;130"_s,
        u"name;;-1;true;129"_s,
        u"mark;;-2;true;132"_s,
        u"quantity;;-2;true;130"_s,
        u"initialPrice;;0;false;130"_s,
        u"price;;0;false;130"_s,
        u"sum;;104;true;130"_s,
        u"state;;-2;true;129"_s,
    });
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
        {m_takeUp, {"documentsTakeUp", "Взять в работу"}, {}, &DocumentListForm::takeUp},
        {m_takeBack, {"documentsTakeBack", "Вернуть"}, Qt::Key_F7, &DocumentListForm::takeBack},
        {m_annul, {"documentsAnnul", "Аннулировать"}, Qt::Key_F8, &DocumentListForm::annul},
        {m_print, {"documentsPrint", "Печать копии"}, Qt::Key_F9, &DocumentListForm::print},
        {findWidget<QPushButton>(u"cancelButton"_s), {"documentsCancel", "Назад"}, {}, &DocumentListForm::leave},
    };
    for (const Button& entry : buttons) {
        const QString key = entry.shortcut.toString(QKeySequence::NativeText);
        entry.button->setText(key.isEmpty() ? entry.text.ui() : key + u' ' + entry.text.ui());
        entry.button->setAccessibleName(entry.text.ui());
        connect(entry.button, &QPushButton::clicked, this, entry.act);
        if (entry.shortcut.isEmpty()) {
            continue;
        }
        // A button's own shortcut would click a moment later, perhaps when another document is the current one.
        auto* pressed = new QShortcut(entry.shortcut, rootWidget());
        pressed->setAutoRepeat(false);
        connect(pressed, &QShortcut::activated, entry.button, &QPushButton::click);
    }
    if (auto* keyboard = findWidget<TalloKeyboard>(u"talloKeyboard"_s, false)) {
        keyboard->setKeyboardLayouts(u"digits"_s);
    }
}

void DocumentListForm::nameControls()
{
    m_filter->setPlaceholderText(tr::Tr(u"documentsFilterHint"_s, u"Номер, состояние или название товара"_s).ui());
    setAccessibleNames({
        {"filterLineEdit", {"documentsFilter", "Поиск документа"}},
        {"documentTable", {"documentsTable", "Список документов"}},
        {"positionsTable", {"documentsPositions", "Позиции документа"}},
        {"pageUpButton", {"documentsPageUp", "На страницу вверх"}},
        {"scrollUpButton", {"documentsUp", "Вверх"}},
        {"scrollDownButton", {"documentsDown", "Вниз"}},
        {"pageDownButton", {"documentsPageDown", "На страницу вниз"}},
    });
}

void DocumentListForm::load()
{
    const int number = current() ? current()->getNumber() : 0;
    m_documents.show(m_params.documents(), m_params.isTakenBack);
    makeCurrent(number);
    showCurrent();
}

void DocumentListForm::filter(const QString& text)
{
    const int number = current() ? current()->getNumber() : 0;
    m_filtered.addFilter(DocumentTableModel::SearchText, text.trimmed(), ComplexFilterProxyModel::Contains);
    makeCurrent(number);
    showCurrent();
}

void DocumentListForm::showCurrent()
{
    const Document document = current();
    const auto state = document ? document->getState() : Receipt::State::Open;
    const bool isPutAside = state == Receipt::State::PutAside;
    const bool isSale = state == Receipt::State::Closed && !document->isCancelling() && !isCurrentTakenBack();
    m_takeUp->setEnabled(isPutAside && m_params.openReceipt == 0);
    m_takeBack->setEnabled(isSale && m_params.openReceipt == 0);
    m_annul->setEnabled(isPutAside || isSale);
    m_print->setEnabled(state == Receipt::State::Closed);
    m_print->setToolTip(m_print->isEnabled() || !document ? QString() : printObstacle());

    m_positions.refresh(document);
    for (const auto column : {ReceiptTableModel::Mark, ReceiptTableModel::State}) {
        m_positionsTable->setColumnHidden(column, m_positions.isEmpty(column));
    }
    showHint();
}

void DocumentListForm::showHint()
{
    const Document document = current();
    if (m_documents.rowCount() == 0) {
        showHint(tr::Tr(u"documentsNone"_s, u"Отложенных и завершённых документов нет."_s).ui(), "hint");
    } else if (!document) {
        showHint(tr::Tr(u"documentsNotFound"_s, u"Ничего не найдено. Измените строку поиска."_s).ui(), "error");
    } else if (document->getNumber() == m_told.document) {
        showHint(m_told.text, m_told.textRole);
    } else if (m_params.openReceipt != 0) {
        showHint(tr::Tr(u"documentsReceiptOpen"_s,
                        u"Открыт чек № %1: взять в работу и вернуть можно, когда он завершён или отложен."_s)
                     .arg(QString::number(m_params.openReceipt))
                     .ui(),
                 "hint");
    } else {
        showHint(m_print->isEnabled() ? QString() : printObstacle(), "hint");
    }
}

QString DocumentListForm::printObstacle()
{
    return tr::Tr(u"documentsPrintClosed"_s, u"Печатаются только закрытые документы, которые не аннулированы."_s).ui();
}

void DocumentListForm::showHint(const QString& text, const char* textRole)
{
    m_hint->setText(text);
    m_hint->setVisible(!text.isEmpty());
    setStyleProperty(*m_hint, u"textRole"_s, QLatin1StringView(textRole));
}

void DocumentListForm::rememberRefusal(const control::Action& action, EContext::Result result)
{
    if (result == EContext::NotFound || !current()) {
        return; // the register shows a message
    }
    m_told = {current()->getNumber(), refusal::stopped(action).ui(), "waiting"};
}

DocumentListForm::Document DocumentListForm::current() const
{
    const QModelIndex index = m_filtered.mapToSource(m_table->currentIndex());
    return index.isValid() ? m_documents.document(index.row()) : nullptr;
}

/// The first document when the wanted one is not shown.
void DocumentListForm::makeCurrent(int number)
{
    const QModelIndex wanted =
        m_filtered.mapFromSource(m_documents.index(m_documents.rowOf(number), DocumentTableModel::Number));
    m_table->setCurrentIndex(wanted.isValid() ? wanted : m_filtered.index(0, DocumentTableModel::Number));
}

bool DocumentListForm::isCurrentTakenBack() const
{
    return m_documents.isTakenBack(m_filtered.mapToSource(m_table->currentIndex()).row());
}

/// Return does what harms nothing; what goes further has keys of its own.
void DocumentListForm::confirm()
{
    if (m_takeUp->isEnabled()) {
        takeUp();
    }
}

void DocumentListForm::takeUp()
{
    answerForm(u"takeUp"_s, current()->getNumber());
}

void DocumentListForm::takeBack()
{
    answerForm(u"takeBack"_s, current()->getNumber());
}

void DocumentListForm::annul()
{
    act(m_params.annul);
}

void DocumentListForm::print()
{
    act(m_params.print);
}

/// What is told of the document before is dropped; a refusal may take its place meanwhile.
void DocumentListForm::act(const DocumentListParams::Act& act)
{
    m_told = {};
    const int number = current()->getNumber();
    if (const QString done = act(current()); !done.isEmpty()) {
        m_told = {number, done, "hint"};
    }
    load();
}

void DocumentListForm::leave()
{
    emit dismissed();
}
