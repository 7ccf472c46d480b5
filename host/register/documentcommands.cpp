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

tr::Tr annulQuestion(const Receipt& document)
{
    if (document.getState() == Receipt::State::PutAside) {
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

DocumentCommands::DocumentCommands(Sale& sale, const ReceiptPrinter& printer, const PositionMarks& marks)
    : m_sale(sale)
    , m_printer(printer)
    , m_marks(marks)
{
}

void DocumentCommands::offer(ActionQueueController& controller)
{
    controller.setHostHandler(EContext::OpenReceipt, registeraction::putAside,
                              [this](control::Action&) { return putAside(); });
    controller.setHostHandler(registeraction::showDocuments, [this](control::Action&) { return showDocuments(); });
    controller.setHostHandler(registeraction::takeBack, [this](control::Action& action) { return takeBack(action); });
    controller.setHostHandler(registeraction::annulByNumber,
                              [this](control::Action& action) { return annulByNumber(action); });
    // All of the annulment stands in its frame: the document is the current one and is saved whatever the triggers say.
    controller.setHostHandler(control::AnnulDocument, [](control::Action&) { return EContext::GoOn; });
    controller.setHostFrame(control::AnnulDocument,
                            [this](control::Action& action, const auto& course) { return annulFrame(action, course); });
}

EContext::Result DocumentCommands::putAside()
{
    const QSharedPointer<Receipt> receipt = m_sale.receipt();
    if (receipt->isCancelling()) {
        showNotice({u"takeBackNotPutAside"_s, u"Возврат нельзя отложить: завершите его или отмените."_s});
        return EContext::Stop;
    }
    return m_sale.putAside() ? EContext::GoOn : EContext::Stop;
}

EContext::Result DocumentCommands::showDocuments()
{
    DocumentListParams params;
    params.documents = [this] { return m_sale.archive().latest(latestShown); };
    params.isTakenBack = [this](const Receipt& document) {
        return m_sale.archive().isTakenBack(document, m_sale.receipt());
    };
    params.annul = [this](const auto& document) {
        const Receipt::State before = document->getState();
        return annul(document) == EContext::GoOn ? documentwords::annulment(*document, before) : QString();
    };
    params.print = [this](const auto& document) { return print(*document); };
    params.openReceipt = m_sale.receipt() ? m_sale.receipt()->getNumber() : 0;
    params.marks = &m_marks;
    Event event(DocumentListParams::eventCode);
    event.addArgument(u"params"_s, QVariant::fromValue(params));
    const QVariantMap answer =
        core::BasicDialog().show(false, true, {EInput::Keyboard, EInput::Scanner}, event).getData().toMap();
    if (const int number = answer.value(u"takeUp"_s).toInt(); number > 0) {
        return takeUp(number);
    }
    if (const int number = answer.value(u"takeBack"_s).toInt(); number > 0) {
        control::Action action = Singleton<control::ActionFactory>::get()->create(registeraction::takeBack);
        action.insert(u"number"_s, number);
        return takeBack(action);
    }
    return EContext::GoOn;
}

/// Tells the cashier when a receipt is open, so that no other document can be.
bool DocumentCommands::isReceiptInTheWay() const
{
    const QSharedPointer<Receipt> open = m_sale.receipt();
    if (open) {
        showNotice(tr::Tr(u"finishOpenReceiptFirst"_s, u"Сначала завершите или отложите открытый чек № %1."_s)
                       .arg(QString::number(open->getNumber())));
    }
    return !open.isNull();
}

EContext::Result DocumentCommands::takeUp(int number)
{
    if (isReceiptInTheWay()) {
        return EContext::Stop;
    }
    const QSharedPointer<Receipt> document = m_sale.archive().find(number);
    if (!document) { // damaged or taken away while the list stood
        showNotice(noDocument(number));
        return EContext::Stop;
    }
    return m_sale.takeUp(document) ? EContext::GoOn : EContext::Stop;
}

EContext::Result DocumentCommands::takeBack(const control::Action& action)
{
    if (isReceiptInTheWay()) {
        return EContext::Stop;
    }
    const std::optional<int> number =
        documentNumber(action, {u"takeBackTitle"_s, u"Возврат продажи"_s},
                       {u"takeBackMessage"_s, u"Номер чека, по которому возвращают товар"_s});
    if (!number) {
        return EContext::Stop;
    }
    const QSharedPointer<Receipt> sale = m_sale.archive().find(*number);
    if (!sale) {
        showNotice(noDocument(*number));
        return EContext::Stop;
    }
    if (sale->getType() != AbstractDocument::Sale || sale->getState() != Receipt::State::Closed) {
        showNotice(tr::Tr(u"takeBackOnlyClosedSale"_s, u"Документ № %1 — не закрытая продажа, его нельзя вернуть."_s)
                       .arg(QString::number(*number)));
        return EContext::Stop;
    }
    if (m_sale.archive().isTakenBack(*sale, nullptr)) {
        showNotice(tr::Tr(u"takenBackAlready"_s, u"Продажа № %1 уже возвращена документом № %2."_s)
                       .arg(QString::number(*number))
                       .arg(QString::number(sale->getTakenBackBy())));
        return EContext::Stop;
    }
    return m_sale.takeBack(sale) ? EContext::GoOn : EContext::Stop;
}

EContext::Result DocumentCommands::annulByNumber(const control::Action& action)
{
    const std::optional<int> number =
        documentNumber(action, {u"annulTitle"_s, u"Аннулирование документа"_s},
                       {u"annulMessage"_s, u"Номер отложенного чека или закрытой продажи"_s});
    if (!number) {
        return EContext::Stop;
    }
    const QSharedPointer<Receipt> document = m_sale.archive().find(*number);
    if (!document) {
        showNotice(noDocument(*number));
        return EContext::Stop;
    }
    return annul(document);
}

EContext::Result DocumentCommands::annul(const QSharedPointer<Receipt>& document)
{
    const QString number = QString::number(document->getNumber());
    if (!canAnnul(*document)) {
        showNotice(tr::Tr(u"annulNotPossible"_s, u"Документ № %1 нельзя аннулировать: аннулируются отложенные чеки и "
                                                 "закрытые продажи, которые не возвращены."_s)
                       .arg(number));
        return EContext::Stop;
    }
    const Question question{
        {u"annulTitle"_s, u"Аннулирование документа"_s},
        annulQuestion(*document).arg(number).arg(amountText(document->getSum())),
        {u"annulYes"_s, u"Аннулировать"_s},
        {u"questionNo"_s, u"Нет"_s},
    };
    if (!question.ask()) {
        return EContext::Stop;
    }
    control::Action action = Singleton<control::ActionFactory>::get()->create(control::AnnulDocument);
    action.insert(u"document"_s, QVariant::fromValue(document.staticCast<AbstractDocument>()));
    return Singleton<ActionQueueController>::get()->execute(action);
}

EContext::Result DocumentCommands::annulFrame(const control::Action& action,
                                              const std::function<EContext::Result()>& course)
{
    const auto document = action.value(u"document"_s).value<QSharedPointer<AbstractDocument>>().dynamicCast<Receipt>();
    if (!document || !canAnnul(*document)) {
        return EContext::NotFound;
    }
    EContext::Result result = EContext::Stop;
    m_sale.withCurrentDocument(document, [&] {
        {
            document->setBeingAnnulled(true);
            const Finally closedAgain([&] { document->setBeingAnnulled(false); });
            result = course();
        }
        if (result == EContext::GoOn) {
            result = m_sale.annul(document) ? EContext::GoOn : EContext::Stop;
        } else {
            m_sale.archive().save(document);
        }
    });
    return result;
}

QString DocumentCommands::print(const Receipt& document) const
{
    const QString file = m_printer.printAgain(document);
    if (file.isEmpty()) {
        return {};
    }
    return tr::Tr(u"documentPrinted"_s, u"Документ № %1 напечатан: %2"_s)
        .arg(QString::number(document.getNumber()))
        .arg(file)
        .ui();
}

bool DocumentCommands::canAnnul(const Receipt& document) const
{
    switch (document.getState()) {
    case Receipt::State::PutAside:
        return true;
    case Receipt::State::Closed:
        return !document.isCancelling() && !m_sale.archive().isTakenBack(document, m_sale.receipt());
    default:
        return false;
    }
}
