// SPDX-License-Identifier: MIT
#include "registercommands.h"

#include "actionfactory.h"
#include "dialog.h"
#include "registeraction.h"

namespace
{
void notice(const tr::Tr& text)
{
    MockFactory<Dialog>::create()->showMessage(text, Dialog::Notice, 0, 0);
}
} // namespace

RegisterCommands::RegisterCommands(Sale& sale, const GoodsCatalogue& catalogue)
    : m_sale(sale)
    , m_catalogue(catalogue)
{
}

void RegisterCommands::offer(ActionQueueController& controller)
{
    using Member = EContext::Result (RegisterCommands::*)(control::Action&);
    const auto bound = [this](Member member) {
        return [this, member](control::Action& action) { return (this->*member)(action); };
    };
    controller.setHostHandler(registeraction::openReceipt, bound(&RegisterCommands::openReceipt));
    controller.setHostHandler(registeraction::addGoods, bound(&RegisterCommands::addGoods));
    controller.setHostHandler(registeraction::changeQuantity, bound(&RegisterCommands::changeQuantity));
    controller.setHostHandler(registeraction::explainKey, bound(&RegisterCommands::explainKey));
    controller.setHostHandler(registeraction::removePosition, bound(&RegisterCommands::removePosition));
    controller.setHostHandler(EContext::OpenReceipt, control::StornoPosition, bound(&RegisterCommands::stornoPosition));
    controller.setHostHandler(control::SelectGoods, bound(&RegisterCommands::selectGoods));
    controller.setHostHandler(EContext::OpenReceipt, control::AddSelectedGoods,
                              bound(&RegisterCommands::addSelectedGoods));
}

EContext::Result RegisterCommands::openReceipt(control::Action&)
{
    if (m_sale.receipt()) {
        notice(tr::Tr(QStringLiteral("receiptAlreadyOpen"), QStringLiteral("Чек № %1 уже открыт."))
                   .arg(QString::number(m_sale.receipt()->getNumber())));
        return EContext::Stop;
    }
    m_sale.open();
    return EContext::GoOn;
}

EContext::Result RegisterCommands::changeQuantity(control::Action& action)
{
    const QSharedPointer<ReceiptPosition> position = changeablePosition(action);
    if (!position)
        return EContext::Stop;
    TextInputParams params;
    params.title = tr::Tr(QStringLiteral("changeQuantityTitle"), QStringLiteral("Количество"));
    params.message = tr::Tr(QStringLiteral("changeQuantityMessage"), QStringLiteral("Сколько упаковок?\n%1"))
                         .arg(position->getName());
    params.okText = tr::Tr(QStringLiteral("inputTextFormOkBtn"), QStringLiteral("ОК"));
    params.cancelText = tr::Tr(QStringLiteral("inputTextFormCancelBtn"), QStringLiteral("Отмена"));
    params.scanError = tr::Tr(QStringLiteral("inputTextFormScanError"),
                              QStringLiteral("Ошибка разбора введенных данных, повторите сканирование"));
    params.inputName = QStringLiteral("inputPacks");
    params.initialText = QString::number(position->getQuantity());
    params.mask = QStringLiteral("[1-9]\\d{0,2}");
    params.numeric = true;
    params.manualOnly = true;
    const core::BasicDialog::Result result = MockFactory<Dialog>::create()->showTextInput(params);
    const int packs = result.getData().toString().toInt();
    if (result.canceled() || packs < 1)
        return EContext::Stop;
    m_sale.setPacks(position->getNumber(), packs);
    return EContext::GoOn;
}

EContext::Result RegisterCommands::removePosition(control::Action& action)
{
    const QSharedPointer<ReceiptPosition> position = changeablePosition(action);
    if (!position)
        return EContext::Stop;
    control::Action storno = Singleton<control::ActionFactory>::get()->create(control::StornoPosition);
    storno.insert(QStringLiteral("positionNumber"), position->getNumber());
    return Singleton<ActionQueueController>::get()->execute(storno);
}

EContext::Result RegisterCommands::stornoPosition(control::Action& action)
{
    m_sale.remove(action.value(QStringLiteral("positionNumber")).toInt());
    return EContext::GoOn;
}

EContext::Result RegisterCommands::explainKey(control::Action& action)
{
    const tr::Tr withoutReceipt(QStringLiteral("keyNeedsReceipt"),
                                QStringLiteral("«%1» работает при открытом чеке.\nОткройте чек и повторите."));
    const tr::Tr withoutPlugin(QStringLiteral("keyNeedsPlugin"),
                               QStringLiteral("«%1» сейчас недоступно: нет подключённого модуля, который это умеет.\n"
                                              "Обратитесь к администратору."));
    notice((m_sale.receipt() ? withoutPlugin : withoutReceipt).arg(action.value(QStringLiteral("text")).toString()));
    return EContext::GoOn;
}

QSharedPointer<ReceiptPosition> RegisterCommands::changeablePosition(const control::Action& action) const
{
    const int number = action.value(QStringLiteral("positionNumber")).toInt();
    const QSharedPointer<ReceiptPosition> position = m_sale.receipt() ? m_sale.receipt()->position(number) : nullptr;
    if (!position) {
        notice({QStringLiteral("positionNotChosen"), QStringLiteral("Сначала выберите позицию чека.")});
        return nullptr;
    }
    if (position->isBound()) {
        notice(tr::Tr(QStringLiteral("positionBound"),
                      QStringLiteral("Позиция № %1 отпускается по документу: её количество не меняется и "
                                     "она не удаляется."))
                   .arg(QString::number(number)));
        return nullptr;
    }
    return position;
}
