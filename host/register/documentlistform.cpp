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

DocumentListForm::DocumentListForm(const DocumentListParams& params, QObject* parent)
    : BasicForm(parent)
    , m_params(params)
    , m_positions(*params.marks)
{
    setContextCode(EContext::StoredDocuments); // plug-ins annul what belongs to a document in this context
    loadUI(QStringLiteral("documentlist.ui"));
    if (!isTouchMode())
        deleteWidgets({QStringLiteral("scrollButtonsNavigationBar"), QStringLiteral("navigationBar")});
    m_table = findWidget<TalloTableView>(QStringLiteral("documentTable"));
    m_positionsTable = findWidget<TalloTableView>(QStringLiteral("positionsTable"));
    m_filter = findWidget<TalloLineEdit>(QStringLiteral("filterLineEdit"));
    m_hint = findWidget<QLabel>(QStringLiteral("hintLabel"));
    m_takeUp = findWidget<QPushButton>(QStringLiteral("takeUpButton"));
    m_takeBack = findWidget<QPushButton>(QStringLiteral("takeBackButton"));
    m_annul = findWidget<QPushButton>(QStringLiteral("annulButton"));
    m_print = findWidget<QPushButton>(QStringLiteral("printButton"));

    findWidget<QLabel>(QStringLiteral("titleLabel"))
        ->setText(tr::Tr(QStringLiteral("documentsTitle"), QStringLiteral("Документы")).ui());
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
        QStringLiteral("number;;80;true;130"),
        QStringLiteral("state;;-1;true;129"),
        QStringLiteral("time;;-2;true;129"),
        QStringLiteral("positions;;-2;true;130"),
        QStringLiteral("sum;;-2;true;130"),
        QStringLiteral("searchText;;0;false;129"),
    });
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &DocumentListForm::showCurrent);

    m_positionsTable->setModel(&m_positions);
    m_positionsTable->setFocusPolicy(Qt::NoFocus);
    m_positionsTable->setSelectionMode(QAbstractItemView::NoSelection);
    m_positionsTable->setColumns({
        QStringLiteral("number;;40;true;130"),
        QStringLiteral("name;;-1;true;129"),
        QStringLiteral("mark;;-2;true;132"),
        QStringLiteral("quantity;;-2;true;130"),
        QStringLiteral("initialPrice;;0;false;130"),
        QStringLiteral("price;;0;false;130"),
        QStringLiteral("sum;;104;true;130"),
        QStringLiteral("state;;-2;true;129"),
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
        {findWidget<QPushButton>(QStringLiteral("cancelButton")),
         {"documentsCancel", "Назад"},
         {},
         &DocumentListForm::leave},
    };
    for (const Button& entry : buttons) {
        const QString key = entry.shortcut.toString(QKeySequence::NativeText);
        entry.button->setText(key.isEmpty() ? entry.text.ui() : key + QLatin1Char(' ') + entry.text.ui());
        entry.button->setAccessibleName(entry.text.ui());
        connect(entry.button, &QPushButton::clicked, this, entry.act);
        if (entry.shortcut.isEmpty())
            continue;
        // A button's own shortcut would click a moment later, perhaps when another document is the current one.
        auto* pressed = new QShortcut(entry.shortcut, rootWidget());
        pressed->setAutoRepeat(false);
        connect(pressed, &QShortcut::activated, entry.button, &QPushButton::click);
    }
    if (auto* keyboard = findWidget<TalloKeyboard>(QStringLiteral("talloKeyboard"), false))
        keyboard->setKeyboardLayouts(QStringLiteral("digits"));
}

void DocumentListForm::nameControls()
{
    m_filter->setPlaceholderText(
        tr::Tr(QStringLiteral("documentsFilterHint"), QStringLiteral("Номер, состояние или название товара")).ui());
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
    for (const auto column : {ReceiptTableModel::Mark, ReceiptTableModel::State})
        m_positionsTable->setColumnHidden(column, m_positions.isEmpty(column));
    showHint();
}

void DocumentListForm::showHint()
{
    const Document document = current();
    if (m_documents.rowCount() == 0)
        showHint(
            tr::Tr(QStringLiteral("documentsNone"), QStringLiteral("Отложенных и завершённых документов нет.")).ui(),
            "hint");
    else if (!document)
        showHint(
            tr::Tr(QStringLiteral("documentsNotFound"), QStringLiteral("Ничего не найдено. Измените строку поиска."))
                .ui(),
            "error");
    else if (document->getNumber() == m_told.document)
        showHint(m_told.text, m_told.textRole);
    else if (m_params.openReceipt != 0)
        showHint(
            tr::Tr(QStringLiteral("documentsReceiptOpen"),
                   QStringLiteral("Открыт чек № %1: взять в работу и вернуть можно, когда он завершён или отложен."))
                .arg(QString::number(m_params.openReceipt))
                .ui(),
            "hint");
    else
        showHint(m_print->isEnabled() ? QString() : printObstacle(), "hint");
}

QString DocumentListForm::printObstacle()
{
    return tr::Tr(QStringLiteral("documentsPrintClosed"),
                  QStringLiteral("Печатаются только закрытые документы, которые не аннулированы."))
        .ui();
}

void DocumentListForm::showHint(const QString& text, const char* textRole)
{
    m_hint->setText(text);
    m_hint->setVisible(!text.isEmpty());
    setStyleProperty(*m_hint, QStringLiteral("textRole"), QLatin1String(textRole));
}

void DocumentListForm::rememberRefusal(const control::Action& action, EContext::Result result)
{
    if (result == EContext::NotFound || !current())
        return; // the register shows a message
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
    if (m_takeUp->isEnabled())
        takeUp();
}

void DocumentListForm::takeUp()
{
    answerForm(QStringLiteral("takeUp"), current()->getNumber());
}

void DocumentListForm::takeBack()
{
    answerForm(QStringLiteral("takeBack"), current()->getNumber());
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
    if (const QString done = act(current()); !done.isEmpty())
        m_told = {number, done, "hint"};
    load();
}

void DocumentListForm::leave()
{
    emit dismissed();
}
