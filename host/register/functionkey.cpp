// SPDX-License-Identifier: MIT
#include "functionkey.h"

#include "config.h"
#include "registeraction.h"
#include "tr.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <algorithm>
#include <iterator>

namespace
{

/// What a key is when the configuration does not say otherwise.
struct DefaultKey {
    QString name;
    tr::Tr text;
    QString shortcut;
    int actionType;
};

QList<DefaultKey> defaultKeys()
{
    return {
        {QStringLiteral("newReceiptKey"),
         {QStringLiteral("keyNewReceipt"), QStringLiteral("Новый чек")},
         QStringLiteral("F2"),
         registeraction::openReceipt},
        {QStringLiteral("goodsKey"),
         {QStringLiteral("keyGoods"), QStringLiteral("Товар")},
         QStringLiteral("F3"),
         registeraction::addGoods},
        {QStringLiteral("quantityKey"),
         {QStringLiteral("keyQuantity"), QStringLiteral("Количество")},
         QStringLiteral("F4"),
         registeraction::changeQuantity},
        {QStringLiteral("subtotalKey"),
         {QStringLiteral("keySubtotal"), QStringLiteral("Подытог")},
         QStringLiteral("F6"),
         control::Subtotal},
        {QStringLiteral("removeKey"),
         {QStringLiteral("keyRemove"), QStringLiteral("Удалить")},
         QStringLiteral("F8"),
         registeraction::removePosition},
        {QStringLiteral("cancelReceiptKey"),
         {QStringLiteral("keyCancelReceipt"), QStringLiteral("Отмена чека")},
         QStringLiteral("F9"),
         registeraction::cancelReceipt},
        {QStringLiteral("menuKey"),
         {QStringLiteral("keyMenu"), QStringLiteral("Меню")},
         QStringLiteral("F10"),
         registeraction::showMenu},
        {QStringLiteral("paymentKey"),
         {QStringLiteral("keyPayment"), QStringLiteral("Оплата")},
         QStringLiteral("F12"),
         control::SubtotalAndPayment},
    };
}

QVariantMap readArguments(const QString& text)
{
    QVariantMap arguments;
    for (const QString& argument : text.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const QString name = argument.section(QLatin1Char('='), 0, 0).trimmed();
        if (!name.isEmpty())
            arguments.insert(name, argument.section(QLatin1Char('='), 1).trimmed());
    }
    return arguments;
}

} // namespace

QList<FunctionKey> configuredFunctionKeys(const Config& config)
{
    const QList<DefaultKey> defaults = defaultKeys();
    QStringList names;
    std::transform(defaults.cbegin(), defaults.cend(), std::back_inserter(names), std::mem_fn(&DefaultKey::name));
    const QString listed = config.getString(QStringLiteral("FunctionKeys:keys"), names.join(QLatin1Char(',')));

    QList<FunctionKey> keys;
    for (const QString& entry : listed.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const QString name = entry.trimmed();
        const auto known =
            std::find_if(defaults.cbegin(), defaults.cend(), [&name](const auto& key) { return key.name == name; });
        const DefaultKey base = known == defaults.cend() ? DefaultKey{name, {tr::undefined, name}, {}, 0} : *known;
        const QString section = QStringLiteral("FunctionKey.") + name;
        const int action = config.getInt(section + QStringLiteral(":action"), base.actionType);
        if (action == 0) {
            Log4Qt::LogManager::logger(QStringLiteral("register"))
                ->warn(QStringLiteral("Function key without an action passed over: ") + name);
            continue;
        }
        keys.append({
            .name = name,
            .text = config.getString(section + QStringLiteral(":text"), base.text.ui()),
            .shortcut = QKeySequence::fromString(config.getString(section + QStringLiteral(":key"), base.shortcut)),
            .actionType = static_cast<control::EActionType>(action),
            .arguments = readArguments(config.getString(section + QStringLiteral(":arguments"))),
        });
    }
    return keys;
}
