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

/// One for each digit; the smallest screen holds no more either.
constexpr qsizetype mostMenuEntries = 9;

/// What a key is when the configuration does not say otherwise.
struct DefaultKey {
    QString name;
    tr::Tr text;
    QString shortcut;
    int actionType;
    QString arguments = {};
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

QList<DefaultKey> defaultMenuEntries()
{
    return {
        {QStringLiteral("putAsideEntry"),
         {QStringLiteral("menuPutAside"), QStringLiteral("Отложить чек")},
         {},
         registeraction::putAside},
        {QStringLiteral("documentsEntry"),
         {QStringLiteral("menuDocuments"), QStringLiteral("Документы")},
         {},
         registeraction::showDocuments},
        {QStringLiteral("takeBackEntry"),
         {QStringLiteral("menuTakeBack"), QStringLiteral("Возврат продажи")},
         {},
         registeraction::takeBack},
        {QStringLiteral("annulEntry"),
         {QStringLiteral("menuAnnul"), QStringLiteral("Аннулировать по номеру")},
         {},
         registeraction::annulByNumber},
        {QStringLiteral("cancelReceiptEntry"),
         {QStringLiteral("menuCancelReceipt"), QStringLiteral("Отменить чек")},
         {},
         registeraction::cancelReceipt,
         QStringLiteral("by=%1").arg(static_cast<int>(control::StornoAllFromMenu))},
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

/// The key of that name as the configuration describes it; what it does not say is as in `base`.
FunctionKey readKey(const Config& config, const DefaultKey& base)
{
    const QString section = QStringLiteral("FunctionKey.") + base.name;
    return {
        .name = base.name,
        .text = config.getString(section + QStringLiteral(":text"), base.text.ui()),
        .shortcut = QKeySequence::fromString(config.getString(section + QStringLiteral(":key"), base.shortcut)),
        .actionType =
            static_cast<control::EActionType>(config.getInt(section + QStringLiteral(":action"), base.actionType)),
        .arguments = readArguments(config.getString(section + QStringLiteral(":arguments"), base.arguments)),
    };
}

/// The keys that a list of the configuration names; without the list: `usual`.
QList<FunctionKey> readKeys(const Config& config, const QString& list, const QList<DefaultKey>& usual)
{
    QStringList names;
    std::transform(usual.cbegin(), usual.cend(), std::back_inserter(names), std::mem_fn(&DefaultKey::name));
    const QList<DefaultKey> known = defaultKeys() + defaultMenuEntries();
    QList<FunctionKey> keys;
    for (const QString& entry : config.getString(list, names.join(QLatin1Char(','))).split(QLatin1Char(','))) {
        const QString name = entry.trimmed();
        const auto base =
            std::find_if(known.cbegin(), known.cend(), [&name](const DefaultKey& key) { return key.name == name; });
        if (name.isEmpty())
            continue;
        const FunctionKey key =
            readKey(config, base == known.cend() ? DefaultKey{name, {tr::undefined, name}, {}, 0} : *base);
        if (key.actionType != 0)
            keys.append(key);
        else
            Log4Qt::LogManager::logger(QStringLiteral("register"))
                ->warn(QStringLiteral("Function key without an action passed over: ") + name);
    }
    return keys;
}

} // namespace

QList<FunctionKey> configuredFunctionKeys(const Config& config)
{
    return readKeys(config, QStringLiteral("FunctionKeys:keys"), defaultKeys());
}

QList<FunctionKey> configuredMenuEntries(const Config& config)
{
    const QList<FunctionKey> entries = readKeys(config, QStringLiteral("Menu:entries"), defaultMenuEntries());
    if (entries.size() > mostMenuEntries)
        Log4Qt::LogManager::logger(QStringLiteral("register"))
            ->warn(QStringLiteral("The menu has more entries than digits; the last ones are passed over"));
    return entries.first(std::min<qsizetype>(entries.size(), mostMenuEntries));
}
