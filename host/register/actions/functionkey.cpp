// SPDX-License-Identifier: MIT
#include "functionkey.h"

#include "actionfactory.h"
#include "actionhost.h"
#include "actionqueuecontroller.h"
#include "config.h"
#include "registeraction.h"
#include "tr.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

/// One for each digit. The smallest screen has no room for more.
constexpr qsizetype maxMenuEntries = 9;

constexpr EContext::Code everywhere[] = {EContext::Idle, EContext::OpenDocument, EContext::StoredDocuments,
                                         EContext::DialogOnTop};

/// A key as it is without a configuration.
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
        {u"newReceiptKey"_s, {u"keyNewReceipt"_s, u"Новый чек"_s}, u"F2"_s, registeraction::openSale},
        {u"goodsKey"_s, {u"keyGoods"_s, u"Товар"_s}, u"F3"_s, registeraction::addGoods},
        {u"quantityKey"_s, {u"keyQuantity"_s, u"Количество"_s}, u"F4"_s, registeraction::changeQuantity},
        {u"subtotalKey"_s, {u"keySubtotal"_s, u"Подытог"_s}, u"F6"_s, control::Subtotal},
        {u"removeKey"_s, {u"keyRemove"_s, u"Удалить"_s}, u"F8"_s, registeraction::askToRemovePosition},
        {u"cancelReceiptKey"_s,
         {u"keyCancelReceipt"_s, u"Отмена чека"_s},
         u"F9"_s,
         registeraction::askToCancelDocument},
        {u"menuKey"_s, {u"keyMenu"_s, u"Меню"_s}, u"F10"_s, registeraction::showMenu},
        {u"paymentKey"_s, {u"keyPayment"_s, u"Оплата"_s}, u"F12"_s, control::SubtotalAndPayment},
    };
}

QList<DefaultKey> defaultMenuEntries()
{
    return {
        {u"putAsideEntry"_s, {u"menuPutAside"_s, u"Отложить чек"_s}, {}, registeraction::suspend},
        {u"documentsEntry"_s, {u"menuDocuments"_s, u"Документы"_s}, {}, registeraction::showDocuments},
        {u"takeBackEntry"_s, {u"menuTakeBack"_s, u"Возврат продажи"_s}, {}, registeraction::returnSale},
        {u"annulEntry"_s, {u"menuAnnul"_s, u"Аннулировать по номеру"_s}, {}, registeraction::voidByNumber},
        {u"cancelReceiptEntry"_s,
         {u"menuCancelReceipt"_s, u"Отменить чек"_s},
         {},
         registeraction::askToCancelDocument,
         u"by=%1"_s.arg(int(control::CancelDocumentFromMenu))},
        {u"lockEntry"_s, {u"menuLock"_s, u"Заблокировать кассу"_s}, {}, registeraction::lock},
        {u"helpEntry"_s, {u"menuHelp"_s, u"Справка"_s}, {}, registeraction::showHelp},
    };
}

QVariantMap readArguments(const QString& text)
{
    QVariantMap arguments;
    for (const QString& argument : text.split(u',', Qt::SkipEmptyParts)) {
        const QString name = argument.section(u'=', 0, 0).trimmed();
        if (!name.isEmpty()) {
            arguments.insert(name, argument.section(u'=', 1).trimmed());
        }
    }
    return arguments;
}

/// The key with the name of `base`. What the configuration leaves out is as in `base`.
FunctionKey readKey(const Config& config, const DefaultKey& base)
{
    const QString section = u"FunctionKey."_s + base.name;
    return {
        .name = base.name,
        .text = config.getString(section + u":text"_s, base.text.ui()),
        .shortcut = QKeySequence::fromString(config.getString(section + u":key"_s, base.shortcut)),
        .actionType = static_cast<control::EActionType>(config.getInt(section + u":action"_s, base.actionType)),
        .arguments = readArguments(config.getString(section + u":arguments"_s, base.arguments)),
    };
}

/// The keys in the configured list `list`; without such a list: `defaults`.
QList<FunctionKey> readKeys(const Config& config, const QString& list, const QList<DefaultKey>& defaults)
{
    QStringList names;
    std::transform(defaults.cbegin(), defaults.cend(), std::back_inserter(names), std::mem_fn(&DefaultKey::name));
    const QList<DefaultKey> known = defaultKeys() + defaultMenuEntries();
    QList<FunctionKey> keys;
    for (const QString& entry : config.getString(list, names.join(u',')).split(u',')) {
        const QString name = entry.trimmed();
        const auto base =
            std::find_if(known.cbegin(), known.cend(), [&name](const DefaultKey& key) { return key.name == name; });
        if (name.isEmpty()) {
            continue;
        }
        const FunctionKey key =
            readKey(config, base == known.cend() ? DefaultKey{name, {tr::undefined, name}, {}, 0} : *base);
        if (key.actionType != 0) {
            keys.append(key);
        } else {
            Log4Qt::LogManager::logger(u"register"_s)->warn(u"Function key without an action left out: "_s + name);
        }
    }
    return keys;
}

/// Also true when one is the beginning of the other: the shorter one would always be first.
bool collide(const QKeySequence& one, const QKeySequence& other)
{
    return one.matches(other) != QKeySequence::NoMatch || other.matches(one) != QKeySequence::NoMatch;
}

/// Takes the shortcut from each key whose shortcut an earlier one has: pressed, neither of the two would do anything.
void resolveShortcuts(QList<FunctionKey>& keys)
{
    for (auto key = keys.begin(); key != keys.end(); ++key) {
        const auto first = std::find_if(keys.begin(), key, [key](const FunctionKey& earlier) {
            return !earlier.shortcut.isEmpty() && collide(earlier.shortcut, key->shortcut);
        });
        if (key->shortcut.isEmpty() || first == key) {
            continue;
        }
        key->lostTo = first->text;
        key->lostShortcut = std::exchange(key->shortcut, QKeySequence());
    }
}

} // namespace

QList<FunctionKey> configuredFunctionKeys(const Config& config)
{
    QList<FunctionKey> keys = readKeys(config, u"FunctionKeys:keys"_s, defaultKeys());
    resolveShortcuts(keys);
    return keys;
}

const FunctionKey* keyWithShortcut(const QList<FunctionKey>& keys, const QKeySequence& shortcut)
{
    const auto found = std::find_if(keys.cbegin(), keys.cend(), [&shortcut](const FunctionKey& key) {
        return !key.shortcut.isEmpty() && collide(key.shortcut, shortcut);
    });
    return found == keys.cend() ? nullptr : &*found;
}

QStringList unservedKeys(const QList<FunctionKey>& keys)
{
    const ActionHost& host = Singleton<ActionQueueController>::get()->host();
    QStringList labels;
    for (const FunctionKey& key : keys) {
        const bool isServed = std::any_of(std::begin(everywhere), std::end(everywhere), [&](EContext::Code context) {
            return bool(host.handlerOf(context, key.actionType));
        });
        if (!isServed) {
            labels.append(key.text);
        }
    }
    return labels;
}

bool doesSomething(const FunctionKey& key)
{
    return Singleton<ActionQueueController>::get()->isHandled(key.actionType) || opensSale(key);
}

bool opensSale(const FunctionKey& key)
{
    ActionQueueController* controller = Singleton<ActionQueueController>::get();
    return key.actionType == control::PluginCommand && !controller->isHandled(key.actionType) &&
           controller->context() == EContext::Idle &&
           controller->host().handlerOf(EContext::OpenDocument, key.actionType);
}

control::Action actionOf(const FunctionKey& key, int positionNumber)
{
    auto* factory = Singleton<control::ActionFactory>::get();
    QVariantMap arguments = key.arguments;
    if (positionNumber != 0) {
        arguments.insert(u"positionNumber"_s, positionNumber);
    }
    if (Singleton<ActionQueueController>::get()->isHandled(key.actionType)) {
        control::Action own = factory->create(key.actionType);
        for (auto argument = arguments.cbegin(); argument != arguments.cend(); ++argument) {
            own.insert(argument.key(), argument.value());
        }
        return own;
    }
    control::Action instead =
        factory->create(opensSale(key) ? registeraction::openSaleFor : registeraction::explainKey);
    instead.insert(u"action"_s, int(key.actionType));
    instead.insert(u"text"_s, key.text);
    instead.insert(u"arguments"_s, arguments);
    return instead;
}

tr::Tr shortcutConflict(const FunctionKey& key)
{
    return tr::Tr(u"keyShortcutTwice"_s,
                  u"%1 назначена двум кнопкам, работает «%2». Для «%3» исправьте в настройках FunctionKey.%4:key"_s)
        .arg(key.lostShortcut.toString(QKeySequence::NativeText))
        .arg(key.lostTo)
        .arg(key.text)
        .arg(key.name);
}

QList<FunctionKey> configuredMenuEntries(const Config& config)
{
    const QList<FunctionKey> entries = readKeys(config, u"Menu:entries"_s, defaultMenuEntries());
    if (entries.size() > maxMenuEntries) {
        Log4Qt::LogManager::logger(u"register"_s)
            ->warn(u"The menu has more entries than digits; the last ones are left out"_s);
    }
    return entries.first(std::min<qsizetype>(entries.size(), maxMenuEntries));
}
