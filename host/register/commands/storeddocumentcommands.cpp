// SPDX-License-Identifier: MIT
#include "storeddocumentcommands.h"

#include "actionfactory.h"
#include "actionhost.h"
#include "askform.h"
#include "commandtable.h"
#include "documentlistparams.h"
#include "documentwords.h"
#include "finally.h"
#include "obstaclenotice.h"
#include "question.h"
#include "registeraction.h"
#include "returnparams.h"
#include "undoingquestion.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{

constexpr int latestShown = 500;

/// The document number that the action carries, else the one that the cashier types; nothing when the cashier cancels.
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
    if (document.getState() == Document::State::Suspended && document.getCharged() > Kopecks{0}) {
        return {u"annulPutAsideChargedQuestion"_s, u"Аннулировать отложенный чек № %1 на сумму %2?\n"
                                                   "Оплата картой вернётся на карту покупателя."_s};
    }
    if (document.getState() == Document::State::Suspended) {
        return {u"annulPutAsideQuestion"_s, u"Аннулировать отложенный чек № %1 на сумму %2?"_s};
    }
    if (document.getSum() == Kopecks{}) {
        return {u"annulSaleWithoutMoneyQuestion"_s, u"Аннулировать продажу № %1 на сумму %2?"_s};
    }
    return {u"annulSaleQuestion"_s, u"Аннулировать продажу № %1 на сумму %2? Деньги возвращаются покупателю."_s};
}

/// What is saved of a document, without the money that moves when it is voided.
QJsonObject withoutVoiding(const Document& document)
{
    QJsonObject saved = document.toJson();
    saved.remove("annulmentBegun"_L1);
    saved.remove("cardOperations"_L1);
    return saved;
}

EContext::Result runHooks(Document& document, const std::function<EContext::Result()>& course)
{
    document.setBeingVoided(true);
    const Finally closedAgain([&document] { document.setBeingVoided(false); });
    return course();
}

/// What is known when not all the money went back.
tr::Tr notRefunded(const Document& document, const PositionMarks& marks, bool isBegun)
{
    const QString number = QString::number(document.getNumber());
    if (!isBegun) {
        return tr::Tr(u"voidingNotDone"_s, u"Документ № %1 не аннулирован: деньги на карту не возвращены.\n"
                                           "Повторите аннулирование, когда терминал ответит."_s)
            .arg(number);
    }
    const auto& positions = document.positions();
    const auto external =
        std::find_if(positions.cbegin(), positions.cend(), [](const auto& position) { return position->isExternal(); });
    if (external == positions.cend()) {
        return tr::Tr(u"voidingNotRefunded"_s, u"Аннулирование документа № %1 не завершено: деньги возвращены не все.\n"
                                               "Повторите аннулирование, когда терминал ответит."_s)
            .arg(number);
    }
    return tr::Tr(u"voidingNotFinished"_s, u"Аннулирование документа № %1 не завершено: деньги возвращены не все, а "
                                           "отпуск %2 мог быть отменён.\n"
                                           "Повторите аннулирование, когда терминал ответит."_s)
        .arg(number)
        .arg(marks.origin(**external));
}

Obstacle suspendedUnsettled(const Document& document)
{
    return {tr::Tr(u"suspendedUnsettled"_s, u"Документ № %1: неизвестно, прошла ли операция по карте.\n"
                                            "Возьмите его в работу: касса спросит терминал."_s)
                .arg(QString::number(document.getNumber()))};
}

tr::Tr noDocument(int number)
{
    return tr::Tr(u"documentNotFound"_s, u"Документа № %1 нет среди отложенных и завершённых.\nПроверьте номер."_s)
        .arg(QString::number(number));
}

} // namespace

StoredDocumentCommands::StoredDocumentCommands(Till& till, const ReceiptPrinter& printer, const PositionMarks& marks)
    : m_till(till)
    , m_cards(till)
    , m_printer(printer)
    , m_marks(marks)
{
}

void StoredDocumentCommands::offer(ActionQueueController& controller)
{
    using Commands = StoredDocumentCommands;
    static constexpr Command<Commands> table[] = {
        {registeraction::showDocuments, Where::Everywhere, &Commands::showDocuments},
        {registeraction::returnSale, Where::Everywhere, &Commands::returnSale},
        {registeraction::voidByNumber, Where::Everywhere, &Commands::voidByNumber},
    };
    offerCommands<Commands>(controller, *this, table);
    for (const Command<Commands>& command : table) {
        controller.host().setFrame(command.action, [this](control::Action&, const auto& course) {
            return m_isVoiding ? EContext::Stop : course();
        });
    }
    // The frame does the voiding: during the triggers the document is the current one, and it is saved whatever they
    // return.
    controller.host().setHandler(control::VoidDocument, [](control::Action&) { return EContext::GoOn; });
    controller.host().setFrame(control::VoidDocument, [this](control::Action& action, const auto& course) {
        return voidFrame(action, course);
    });
}

void StoredDocumentCommands::settleRestored() const
{
    for (const QSharedPointer<Document>& document : m_till.unsettledDocuments()) {
        if (m_cards.settleOrShow(document)) {
            showIfObstacle(m_till.obstacleOfVoiding(*document)); // it says what to do next
        }
    }
}

EContext::Result StoredDocumentCommands::showDocuments(control::Action&)
{
    DocumentListParams params;
    params.documents = [this] { return m_till.archive().latest(latestShown); };
    params.byNumber = [this](int number) { return m_till.archive().find(number); };
    params.ofDay = [this](QDate day) { return m_till.archive().ofDay(day, latestShown); };
    params.returned = [this](const Document& document) { return m_till.returned(document); };
    params.obstacleToResuming = [this](const Document& document) { return m_till.obstacleToResuming(document); };
    params.obstacleToReturning = [this](const Document& document) { return m_till.obstacleToReturning(document); };
    params.obstacleToVoiding = [this](const Document& document) { return m_till.obstacleToVoiding(document); };
    params.obstacleToPrinting = [this](const Document& document) { return m_till.obstacleToPrinting(document); };
    params.warning = [this](const Document& document) {
        if (m_till.archive().damagedReturn(document, m_till.document())) {
            return m_till.obstacleToVoiding(document); // it names the damaged file
        }
        if (document.getState() == Document::State::Suspended && document.unsettledCardOperation()) {
            return std::optional(suspendedUnsettled(document));
        }
        const std::optional<Obstacle> begun = m_till.obstacleOfVoiding(document);
        return begun ? begun : m_till.obstacleOfPlugins(document);
    };
    params.voidDocument = [this](const auto& document) -> std::optional<QString> {
        const Document::State before = document->getState();
        if (voidDocument(document) != EContext::GoOn) {
            return std::nullopt;
        }
        return documentwords::voiding(*document, before);
    };
    params.print = [this](const auto& document) { return print(*document); };
    params.obstacleToAnother = m_till.obstacleToAnotherDocument();
    params.marks = &m_marks;
    const QVariantMap answer = askForm(DocumentListParams::eventCode, params, {EInput::Keyboard, EInput::Scanner});
    if (const int number = answer.value(u"resume"_s).toInt(); number > 0) {
        return resume(number);
    }
    if (const int number = answer.value(u"returnSale"_s).toInt(); number > 0) {
        control::Action action = Singleton<control::ActionFactory>::get()->create(registeraction::returnSale);
        action.insert(u"number"_s, number);
        return returnSale(action);
    }
    return EContext::GoOn;
}

EContext::Result StoredDocumentCommands::resume(int number)
{
    const QSharedPointer<Document> document = m_till.archive().find(number);
    if (!document) { // damaged or removed while the list was shown
        showNotice(noDocument(number));
        return EContext::Stop;
    }
    if (showIfObstacle(m_till.obstacleToResuming(*document))) {
        return EContext::Stop;
    }
    if (!m_till.resume(document)) {
        return EContext::Stop;
    }
    m_cards.settleOrShow(document);
    return EContext::GoOn;
}

EContext::Result StoredDocumentCommands::returnSale(control::Action& action)
{
    if (showIfObstacle(m_till.obstacleToAnotherDocument())) {
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
    if (!m_cards.settleOrShow(sale) || showIfObstacle(m_till.obstacleToReturning(*sale))) {
        return EContext::Stop;
    }
    const QSet<int> positions = choosePositions(*sale);
    if (positions.isEmpty() || showIfChanged(*sale) || showIfObstacle(m_till.obstacleToReturning(*sale, positions))) {
        return EContext::Stop;
    }
    return m_till.returnPositions(sale, positions) ? EContext::GoOn : EContext::Stop;
}

bool StoredDocumentCommands::showIfChanged(const Document& document) const
{
    const QSharedPointer<Document> saved = m_till.archive().find(document.getNumber());
    if (saved && saved->toJson() == document.toJson()) {
        return false;
    }
    showNotice(tr::Tr(u"documentChangedMeanwhile"_s, u"Документ № %1 изменился, пока касса ждала ответа.\n"
                                                     "Проверьте его в списке документов и повторите."_s)
                   .arg(QString::number(document.getNumber())));
    return true;
}

QSet<int> StoredDocumentCommands::choosePositions(const Document& sale) const
{
    QSet<int> returnable = m_till.returnablePositions(sale);
    if (returnable.size() == 1) {
        return returnable;
    }
    ReturnParams params;
    params.title = documentwords::title(sale);
    for (const auto& position : sale.positions()) {
        if (returnable.contains(position->getNumber())) {
            params.positions.append(position);
            params.places.append(sale.placeOf(*position));
        }
        if (const auto obstacle = m_till.obstacleToReturning(sale, {position->getNumber()})) {
            params.obstacles.insert(position->getNumber(), *obstacle);
        }
    }
    params.marks = &m_marks;
    QSet<int> chosen;
    const QVariantList numbers = askForm(ReturnParams::eventCode, params).value(u"positions"_s).toList();
    for (const QVariant& number : numbers) {
        chosen.insert(number.toInt());
    }
    return chosen;
}

EContext::Result StoredDocumentCommands::voidByNumber(control::Action& action)
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

EContext::Result StoredDocumentCommands::voidDocument(const QSharedPointer<Document>& document)
{
    const QString number = QString::number(document->getNumber());
    if (showIfObstacle(m_till.obstacleToVoiding(*document))) {
        return EContext::Stop;
    }
    const Question question{
        {u"annulTitle"_s, u"Аннулирование документа"_s},
        withUndoings(voidQuestion(*document).arg(number).arg(amountText(document->getSum())), m_marks,
                     document->positions()),
        {u"annulYes"_s, u"Аннулировать"_s},
        {u"questionNo"_s, u"Нет"_s},
    };
    if (!question.ask() || showIfChanged(*document)) {
        return EContext::Stop;
    }
    control::Action action = Singleton<control::ActionFactory>::get()->create(control::VoidDocument);
    action.insert(u"document"_s, QVariant::fromValue(document.staticCast<AbstractDocument>()));
    return Singleton<ActionQueueController>::get()->execute(action);
}

EContext::Result StoredDocumentCommands::voidFrame(const control::Action& action,
                                                   const std::function<EContext::Result()>& course)
{
    const auto document = action.value(u"document"_s).value<QSharedPointer<AbstractDocument>>().dynamicCast<Document>();
    if (!document || m_isVoiding || m_till.obstacleToVoiding(*document)) {
        return document && showIfObstacle(m_till.obstacleOfPlugins(*document)) ? EContext::Stop : EContext::NotFound;
    }
    const QScopedValueRollback voiding(m_isVoiding, true);
    EContext::Result result = EContext::Stop;
    m_till.withCurrentDocument(document, [&] { result = voidCurrent(document, course); });
    return result;
}

/// A closed sale is marked before the hooks: so it is saved together with the first thing that they or a terminal do.
EContext::Result StoredDocumentCommands::voidCurrent(const QSharedPointer<Document>& document,
                                                     const std::function<EContext::Result()>& course)
{
    const bool wasBegun = document->isVoidingBegun();
    const QJsonObject before = withoutVoiding(*document);
    document->setVoidingBegun(document->getState() == Document::State::Closed);
    const EContext::Result result = runHooks(*document, course);
    const bool isRefunded = result == EContext::GoOn && m_cards.refundOrShow(document);
    if (isRefunded && m_till.voidDocument(document)) {
        return EContext::GoOn;
    }
    const bool isBegun = wasBegun || document->mayHavePaidBack() || withoutVoiding(*document) != before;
    document->setVoidingBegun(document->isVoidingBegun() && isBegun);
    if (!isRefunded) {
        m_till.archive().saveOrShow(document);
    }
    if (result == EContext::GoOn && !isRefunded) {
        showNotice(notRefunded(*document, m_marks, isBegun));
    }
    return result == EContext::GoOn ? EContext::Stop : result;
}

std::optional<QString> StoredDocumentCommands::print(const Document& document) const
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
