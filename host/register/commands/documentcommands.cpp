// SPDX-License-Identifier: MIT
#include "documentcommands.h"

#include "actionfactory.h"
#include "basicdialog.h"
#include "documentlistparams.h"
#include "documentwords.h"
#include "finally.h"
#include "notice.h"
#include "question.h"
#include "registeraction.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace
{

constexpr int latestShown = 500;

/// The document number of the action, else what the cashier types; nothing when the cashier leaves.
std::optional<int> documentNumber(const control::Action& action, const tr::Tr& title, const tr::Tr& message)
{
    if (const int given = action.value(u"number"_s).toInt(); given > 0) {
        return given;
    }
    TextInputParams params;
    params.title = title;
    params.message = message;
    params.inputName = u"inputDocumentNumber"_s;
    params.mask = u"0*[1-9]\\d{0,7}"_s;
    params.numeric = true;
    const core::BasicDialog::Result result = Dialog::create()->showTextInput(params);
    if (result.canceled() || result.isEmpty()) {
        return std::nullopt;
    }
    return result.getData().toString().toInt();
}

tr::Tr voidQuestion(const Document& document)
{
    if (document.getState() == Document::State::Suspended) {
        return {u"annulPutAsideQuestion"_s, u"Аннулировать отложенный чек № %1 на сумму %2?"_s};
    }
    if (document.getSum() == 0) {
        return {u"annulSaleWithoutMoneyQuestion"_s, u"Аннулировать продажу № %1 на сумму %2?"_s};
    }
    return {u"annulSaleQuestion"_s, u"Аннулировать продажу № %1 на сумму %2? Деньги возвращаются покупателю."_s};
}

tr::Tr noDocument(int number)
{
    return tr::Tr(u"documentNotFound"_s, u"Документа № %1 нет среди отложенных и завершённых.\nПроверьте номер."_s)
        .arg(QString::number(number));
}

} // namespace

DocumentCommands::DocumentCommands(Till& till, const ReceiptPrinter& printer, const PositionMarks& marks)
    : m_till(till)
    , m_printer(printer)
    , m_marks(marks)
{
}

void DocumentCommands::offer(ActionQueueController& controller)
{
    controller.setHostHandler(EContext::OpenDocument, registeraction::suspend,
                              [this](control::Action&) { return suspend(); });
    controller.setHostHandler(registeraction::showDocuments, [this](control::Action&) { return showDocuments(); });
    controller.setHostHandler(registeraction::returnSale,
                              [this](control::Action& action) { return returnSale(action); });
    controller.setHostHandler(registeraction::voidByNumber,
                              [this](control::Action& action) { return voidByNumber(action); });
    // All of the voiding stands in its frame: the document is the current one and is saved whatever the triggers say.
    controller.setHostHandler(control::VoidDocument, [](control::Action&) { return EContext::GoOn; });
    controller.setHostFrame(control::VoidDocument,
                            [this](control::Action& action, const auto& course) { return voidFrame(action, course); });
}

EContext::Result DocumentCommands::suspend()
{
    const QSharedPointer<Document> document = m_till.document();
    if (document->isReturn()) {
        showNotice({u"takeBackNotPutAside"_s, u"Возврат нельзя отложить: завершите его или отмените."_s});
        return EContext::Stop;
    }
    return m_till.suspend() ? EContext::GoOn : EContext::Stop;
}

EContext::Result DocumentCommands::showDocuments()
{
    DocumentListParams params;
    params.documents = [this] { return m_till.archive().latest(latestShown); };
    params.isReturned = [this](const Document& document) {
        return m_till.archive().isReturned(document, m_till.document());
    };
    params.voidDocument = [this](const auto& document) -> std::optional<QString> {
        const Document::State before = document->getState();
        if (voidDocument(document) != EContext::GoOn) {
            return std::nullopt;
        }
        return documentwords::voiding(*document, before);
    };
    params.print = [this](const auto& document) { return print(*document); };
    params.openSale = m_till.document() ? m_till.document()->getNumber() : 0;
    params.marks = &m_marks;
    Event event(DocumentListParams::eventCode);
    event.addArgument(u"params"_s, QVariant::fromValue(params));
    const QVariantMap answer =
        core::BasicDialog().show(false, true, {EInput::Keyboard, EInput::Scanner}, event).getData().toMap();
    if (const int number = answer.value(u"takeUp"_s).toInt(); number > 0) {
        return resume(number);
    }
    if (const int number = answer.value(u"takeBack"_s).toInt(); number > 0) {
        control::Action action = Singleton<control::ActionFactory>::get()->create(registeraction::returnSale);
        action.insert(u"number"_s, number);
        return returnSale(action);
    }
    return EContext::GoOn;
}

/// Tells the cashier when a document is open, so that no other document can be.
bool DocumentCommands::showIfDocumentIsOpen() const
{
    const QSharedPointer<Document> open = m_till.document();
    if (open) {
        showNotice(tr::Tr(u"finishOpenReceiptFirst"_s, u"Сначала завершите или отложите открытый чек № %1."_s)
                       .arg(QString::number(open->getNumber())));
    }
    return !open.isNull();
}

EContext::Result DocumentCommands::resume(int number)
{
    if (showIfDocumentIsOpen()) {
        return EContext::Stop;
    }
    const QSharedPointer<Document> document = m_till.archive().find(number);
    if (!document) { // damaged or taken away while the list stood
        showNotice(noDocument(number));
        return EContext::Stop;
    }
    return m_till.resume(document) ? EContext::GoOn : EContext::Stop;
}

EContext::Result DocumentCommands::returnSale(const control::Action& action)
{
    if (showIfDocumentIsOpen()) {
        return EContext::Stop;
    }
    const std::optional<int> number =
        documentNumber(action, {u"takeBackTitle"_s, u"Возврат продажи"_s},
                       {u"takeBackMessage"_s, u"Номер чека, по которому возвращают товар"_s});
    if (!number) {
        return EContext::Stop;
    }
    const QSharedPointer<Document> sale = m_till.archive().find(*number);
    if (!sale) {
        showNotice(noDocument(*number));
        return EContext::Stop;
    }
    if (sale->getType() != AbstractDocument::Sale || sale->getState() != Document::State::Closed) {
        showNotice(tr::Tr(u"takeBackOnlyClosedSale"_s, u"Документ № %1 — не закрытая продажа, его нельзя вернуть."_s)
                       .arg(QString::number(*number)));
        return EContext::Stop;
    }
    if (m_till.archive().isReturned(*sale, nullptr)) {
        showNotice(tr::Tr(u"takenBackAlready"_s, u"Продажа № %1 уже возвращена документом № %2."_s)
                       .arg(QString::number(*number))
                       .arg(QString::number(sale->getReturnedBy())));
        return EContext::Stop;
    }
    return m_till.returnSale(sale) ? EContext::GoOn : EContext::Stop;
}

EContext::Result DocumentCommands::voidByNumber(const control::Action& action)
{
    const std::optional<int> number =
        documentNumber(action, {u"annulTitle"_s, u"Аннулирование документа"_s},
                       {u"annulMessage"_s, u"Номер отложенного чека или закрытой продажи"_s});
    if (!number) {
        return EContext::Stop;
    }
    const QSharedPointer<Document> document = m_till.archive().find(*number);
    if (!document) {
        showNotice(noDocument(*number));
        return EContext::Stop;
    }
    return voidDocument(document);
}

EContext::Result DocumentCommands::voidDocument(const QSharedPointer<Document>& document)
{
    const QString number = QString::number(document->getNumber());
    if (!canVoid(*document)) {
        showNotice(tr::Tr(u"annulNotPossible"_s, u"Документ № %1 нельзя аннулировать: аннулируются отложенные чеки и "
                                                 "закрытые продажи, которые не возвращены."_s)
                       .arg(number));
        return EContext::Stop;
    }
    const Question question{
        {u"annulTitle"_s, u"Аннулирование документа"_s},
        voidQuestion(*document).arg(number).arg(amountText(document->getSum())),
        {u"annulYes"_s, u"Аннулировать"_s},
        {u"questionNo"_s, u"Нет"_s},
    };
    if (!question.ask()) {
        return EContext::Stop;
    }
    control::Action action = Singleton<control::ActionFactory>::get()->create(control::VoidDocument);
    action.insert(u"document"_s, QVariant::fromValue(document.staticCast<AbstractDocument>()));
    return Singleton<ActionQueueController>::get()->execute(action);
}

EContext::Result DocumentCommands::voidFrame(const control::Action& action,
                                             const std::function<EContext::Result()>& course)
{
    const auto document = action.value(u"document"_s).value<QSharedPointer<AbstractDocument>>().dynamicCast<Document>();
    if (!document || !canVoid(*document)) {
        return EContext::NotFound;
    }
    EContext::Result result = EContext::Stop;
    m_till.withCurrentDocument(document, [&] {
        {
            document->setBeingVoided(true);
            const Finally closedAgain([&] { document->setBeingVoided(false); });
            result = course();
        }
        if (result == EContext::GoOn) {
            result = m_till.voidDocument(document) ? EContext::GoOn : EContext::Stop;
        } else {
            m_till.archive().saveOrShow(document);
        }
    });
    return result;
}

std::optional<QString> DocumentCommands::print(const Document& document) const
{
    const std::optional<QString> file = m_printer.printAgainOrShow(document);
    if (!file) {
        return std::nullopt;
    }
    return tr::Tr(u"documentPrinted"_s, u"Документ № %1 напечатан: %2"_s)
        .arg(QString::number(document.getNumber()))
        .arg(*file)
        .ui();
}

bool DocumentCommands::canVoid(const Document& document) const
{
    switch (document.getState()) {
    case Document::State::Suspended:
        return true;
    case Document::State::Closed:
        return !document.isReturn() && !m_till.archive().isReturned(document, m_till.document());
    default:
        return false;
    }
}
