// SPDX-License-Identifier: MIT
#include "configurationreport.h"

#include "config.h"
#include "configurationcheck.h"
#include "functionkey.h"
#include "inilines.h"
#include "lockscreen.h"
#include "messagecatalogues.h"
#include "secretfiles.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace
{

const QString ownLanguage = u"ru"_s; // needs no catalogue
constexpr qsizetype mostEntries = 9; // of the menu, one for each digit
constexpr qsizetype noLimit = -1;

QString shortcutKey(const FunctionKey& key)
{
    return u"FunctionKey."_s + key.name + u":key"_s;
}

/// Keys that edit a text, move about in it or in a list, or answer a form.
constexpr Qt::Key editingKeys[] = {
    Qt::Key_Return, Qt::Key_Enter,  Qt::Key_Escape, Qt::Key_Tab,      Qt::Key_Backtab, Qt::Key_Backspace,
    Qt::Key_Delete, Qt::Key_Insert, Qt::Key_Home,   Qt::Key_End,      Qt::Key_Left,    Qt::Key_Right,
    Qt::Key_Up,     Qt::Key_Down,   Qt::Key_PageUp, Qt::Key_PageDown,
};
/// Letters that edit a text together with Ctrl.
constexpr QStringView editingLetters = u"ACEKUVXYZ";

/// True for a key that a text field or a list takes, or that would be taken from them.
bool isNeededForInput(QKeyCombination combination)
{
    const Qt::Key key = combination.key();
    if (std::find(std::begin(editingKeys), std::end(editingKeys), key) != std::end(editingKeys)) {
        return true;
    }
    const bool isCharacter = key < Qt::Key_Escape; // the first that is none
    const Qt::KeyboardModifiers others = combination.keyboardModifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    return isCharacter && (others == Qt::NoModifier || (others == Qt::ControlModifier && key < 0x80 &&
                                                        editingLetters.contains(QChar(char16_t(key)))));
}

/// Shortcuts that do not do what their writer meant.
QList<ConfigurationFinding> checkShortcuts(const Config& config, const QString& file)
{
    const QHash<QString, int> lines = readIniLines(file);
    const QList<FunctionKey> keys = configuredFunctionKeys(config);
    QList<ConfigurationFinding> findings;
    const auto add = [&](const FunctionKey& key, const QString& text) {
        findings.append({shortcutKey(key), lines.value(shortcutKey(key)), text});
    };
    for (const FunctionKey& key : keys) {
        if (!key.lostTo.isEmpty()) {
            add(key, u"is the shortcut of «%1» as well, which comes first: choose another"_s.arg(key.lostTo));
        }
        if (!key.shortcut.isEmpty() && isNeededForInput(key.shortcut[0])) {
            add(key, u"is needed for typing or for moving about: choose another, for example F5 or Ctrl+R"_s);
        }
    }
    const std::pair<QKeySequence, QString> own[] = {
        {helpKey, u"takes F1 from the help, which then opens in forms only: choose another"_s},
        {cardPaymentKey, u"takes F11 from the payment by card, which then has its button only: choose another"_s},
        {wholeMessageKey,
         u"takes Ctrl+F12 from the message of the status line, which then has its button only: choose another"_s},
    };
    for (const auto& [shortcut, text] : own) {
        if (const FunctionKey* key = keyWithShortcut(keys, shortcut)) {
            add(*key, text);
        }
    }
    return findings;
}

QStringList namesIn(const QString& list)
{
    QStringList names;
    for (const QString& name : list.split(u',')) {
        names.append(name.trimmed());
    }
    names.removeAll(QString());
    return names;
}

/// The names of a configured list of keys or menu entries that lead to none.
/// @param most entries that the list can hold
QList<ConfigurationFinding> checkList(const Config& config, const QString& file, const QString& list,
                                      const QList<FunctionKey>& used, qsizetype most)
{
    QStringList unused = namesIn(config.getString(list));
    for (const FunctionKey& key : used) {
        unused.removeAll(key.name);
    }
    if (unused.isEmpty()) {
        return {};
    }
    const QString reason = used.size() == most ? u"it holds %1 at most"_s.arg(most)
                                               : u"give it an action in [FunctionKey.%1]"_s.arg(unused.constFirst());
    return {{list, readIniLines(file).value(list), u"leaves out "_s + unused.join(u", "_s) + u": "_s + reason}};
}

/// A language whose texts the register does not have.
QList<ConfigurationFinding> checkLanguage(const Config& config, const QString& file)
{
    const QString key = u"Language:interface"_s;
    const QString language = config.getString(key);
    if (language.isEmpty() || language == ownLanguage ||
        MessageCatalogues::areThere(config, u":/translations/pharmacyregister"_s)) {
        return {};
    }
    return {{key, readIniLines(file).value(key), u"names a language without a catalogue; Russian is taken"_s}};
}

/// A code that nobody could type would lock the register for good.
/// @param isTouched by `--touch`, whatever the configuration says
QList<ConfigurationFinding> checkUnlockCode(const Config& config, const QString& file, const ConfigurationKeys& keys,
                                            bool isTouched)
{
    Config withSecrets(file);
    Q_UNUSED(readSecretFiles(withSecrets, keys, file)) // a file that cannot be read is a finding of its own
    const QString value = u"Register:unlockCode"_s;
    const bool isTouchMode = isTouched || config.getBool(u"GUI:touchMode"_s);
    if (!isTouchMode || LockScreen::canBeTyped(withSecrets.getString(value))) {
        return {};
    }
    const QString inFile = value + u"File"_s;
    const QString key = config.getString(inFile).isEmpty() ? value : inFile;
    return {{key, readIniLines(file).value(key),
             u"has a character that the keyboard on the screen does not have: choose a code of Russian or Latin "
             "letters, digits and signs"_s,
             true}};
}

/// Something can be made in the folder or, when it is not there, in the nearest one above it.
bool canBeFilled(const QString& folder)
{
    QString nearest = QDir::cleanPath(QDir().absoluteFilePath(folder));
    while (!QFileInfo::exists(nearest)) {
        nearest = QFileInfo(nearest).path();
    }
    return QTemporaryDir(nearest + u"/.writable-XXXXXX"_s).isValid();
}

/// A folder of logs that can neither be used nor made.
QList<ConfigurationFinding> checkLogFolder(const Config& config, const QString& file)
{
    const QString key = u"Logging:folder"_s;
    const QString folder = config.getString(key);
    if (folder.isEmpty() || canBeFilled(folder)) {
        return {};
    }
    const bool isThere = QFileInfo(folder).isDir();
    const QString text = isThere ? u"names a folder that cannot be written to; logs go to the data folder: "_s
                                 : u"names no folder that can be made: "_s;
    return {{key, readIniLines(file).value(key), text + folder, !isThere}};
}

/// True for the name of a database that is a file.
bool namesDatabaseFile(const Config& config, const QString& key)
{
    const QString section = key.section(u':', 0, -2);
    const bool isDatabase = section == "Database"_L1 || section.startsWith("Database."_L1);
    return isDatabase && key.endsWith(":name"_L1) && !config.getString(key).isEmpty() &&
           isDatabaseFile(config, section);
}

/// Demo goods that are wanted where none are created.
QList<ConfigurationFinding> checkDemoData(const Config& config, const QString& file)
{
    const QString key = u"Register:demoData"_s;
    if (!config.getBool(key) || isDatabaseFile(config, u"Database"_s)) {
        return {};
    }
    return {{key, readIniLines(file).value(key),
             u"has no effect: demo goods are created in a file only, and [Database] driver names a server"_s}};
}

/// Database files in folders that are not there.
QList<ConfigurationFinding> checkDatabaseFolders(const Config& config, const QString& file)
{
    const QHash<QString, int> lines = readIniLines(file);
    QList<ConfigurationFinding> findings;
    for (const QString& key : config.keys()) {
        if (!namesDatabaseFile(config, key)) {
            continue;
        }
        const QString folder = QFileInfo(config.getString(key)).absolutePath();
        if (!QFileInfo(folder).isDir()) {
            findings.append({key, lines.value(key), u"names a file in a folder that is not there: "_s + folder, true});
        }
    }
    return findings;
}

QList<ConfigurationFinding> checkEverything(const Config& config, const QString& file, const ConfigurationKeys& keys,
                                            bool isTouched)
{
    return checkConfiguration(config, file, keys) + checkShortcuts(config, file) +
           checkList(config, file, u"FunctionKeys:keys"_s, configuredFunctionKeys(config), noLimit) +
           checkList(config, file, u"Menu:entries"_s, configuredMenuEntries(config), mostEntries) +
           checkLanguage(config, file) + checkUnlockCode(config, file, keys, isTouched) + checkLogFolder(config, file) +
           checkDatabaseFolders(config, file) + checkDemoData(config, file);
}

} // namespace

bool isDatabaseFile(const Config& config, const QString& database)
{
    return config.getString(database + u":driver"_s, u"QSQLITE"_s) == "QSQLITE"_L1;
}

ConfigurationReport::ConfigurationReport(const Config& config, const CommandLine& commandLine)
{
    const QString& file = commandLine.config;
    if (!config.reading()) {
        for (const IniFault& fault : readIniFaults(file)) {
            problems.append(u"%1:%2: %3"_s.arg(file).arg(fault.line).arg(fault.text));
        }
    }
    for (const Failure& unreadable : keys.loadPlugins(commandLine.pluginFolder)) {
        problems.append(unreadable.detail);
    }
    for (const ConfigurationFinding& finding : checkEverything(config, file, keys, commandLine.touch)) {
        problems.append(finding.description(file));
        preventsStart = preventsStart || finding.preventsStart;
    }
}

ConfigurationCheckResult checkConfiguration(const CommandLine& commandLine)
{
    const Config config(commandLine.config);
    QStringList problems;
    if (!config.reading() && readIniFaults(commandLine.config).isEmpty()) {
        problems.append(config.reading().failure().detail);
    }
    QList<NamedFolder> folders = commandLine.unusableFolders();
    if (folders.isEmpty() && !QDir(commandLine.pluginFolder).isReadable()) { // the one beside the program
        folders.append({u"--plugins"_s, commandLine.pluginFolder});
    }
    for (const NamedFolder& folder : folders) {
        problems.append(describe(folder));
    }
    problems += ConfigurationReport(config, commandLine).problems;
    if (problems.isEmpty()) {
        return {true, commandLine.config + u": nothing is wrong\n"_s};
    }
    return {false, problems.join(u'\n') + u'\n'};
}

QString describe(const NamedFolder& unusable)
{
    return unusable.option + u" names no folder that can be read: "_s + unusable.path;
}
